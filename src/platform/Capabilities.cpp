#include "platform/Capabilities.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <algorithm>
#include <cstring>

namespace {

Q_LOGGING_CATEGORY(lcCapabilities, "quillmarsh.platform.capabilities", QtInfoMsg)

const char *nameOf(Capability::Kind kind)
{
    switch (kind) {
    case Capability::Kind::Recording:
        return "recording";
    case Capability::Kind::Shortcuts:
        return "shortcuts";
    case Capability::Kind::Pasting:
        return "pasting";
    case Capability::Kind::WindowPlace:
        break;
    }
    return "window place";
}

const char *nameOf(Capability::State state)
{
    switch (state) {
    case Capability::State::Works:
        return "works";
    case Capability::State::WorksAfter:
        return "works after a step of yours";
    case Capability::State::Withheld:
        break;
    }
    return "withheld";
}

bool areEqual(const char *left, const char *right)
{
    return left && right ? std::strcmp(left, right) == 0 : left == right;
}

QString translated(const char *text)
{
    return text ? QCoreApplication::translate("Capabilities", text) : QString();
}

QString lineOf(const Capability &capability)
{
    QString line = QStringLiteral("%1: %2").arg(QLatin1String(nameOf(capability.kind)),
                                                QLatin1String(nameOf(capability.state)));
    if (capability.reason)
        line += QStringLiteral(". ") + QString::fromUtf8(capability.reason);
    if (capability.remedy)
        line += u' ' + QString::fromUtf8(capability.remedy);
    return capability.configuration.isEmpty() ? line : line + u'\n' + capability.configuration;
}

} // namespace

bool Capability::operator==(const Capability &other) const
{
    return kind == other.kind && state == other.state && areEqual(reason, other.reason) &&
           areEqual(remedy, other.remedy) && configuration == other.configuration;
}

bool Capabilities::doAllWork() const
{
    return std::ranges::all_of(
        m_all, [](const Capability &one) { return one.state == Capability::State::Works; });
}

QString Capabilities::reasonOf(const Capability &capability)
{
    return translated(capability.reason);
}

QString Capabilities::remedyOf(const Capability &capability)
{
    return translated(capability.remedy);
}

void Capabilities::tell(const Capability &capability)
{
    const auto place = std::ranges::lower_bound(m_all, capability.kind, {}, &Capability::kind);
    if (place != m_all.end() && *place == capability)
        return;
    if (place != m_all.end() && place->kind == capability.kind)
        *place = capability;
    else
        m_all.insert(place, capability);
    qCInfo(lcCapabilities).noquote() << lineOf(capability);
    Q_EMIT changed();
}
