#include "platform/freedesktop/PortalAppearance.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace {

using Settings = QMap<QString, QVariantMap>;

const auto kService = QStringLiteral("org.freedesktop.portal.Desktop");
const auto kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto kInterface = QStringLiteral("org.freedesktop.portal.Settings");
const auto kSpace = QStringLiteral("org.freedesktop.appearance");
const auto kColorScheme = QStringLiteral("color-scheme");
const auto kAccentColor = QStringLiteral("accent-color");

/// What both desktops say about animations, in the portal's names.
const auto kGnomeSpace = QStringLiteral("org.gnome.desktop.interface");
const auto kGnomeAnimations = QStringLiteral("enable-animations");
const auto kKdeSpace = QStringLiteral("org.kde.kdeglobals.KDE");
const auto kKdeDuration = QStringLiteral("AnimationDurationFactor");

/// A switch, or what durations are multiplied by, as a number or its text; absent when it is
/// neither.
std::optional<bool> toAnimationsWanted(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    bool isNumber = false;
    const double factor = value.toDouble(&isNumber);
    return isNumber ? std::optional(factor > 0) : std::nullopt;
}

Appearance::ColorScheme toColorScheme(const QVariant &value)
{
    // Later portals may know further values, which mean no preference to whoever does not.
    switch (value.typeId() == QMetaType::UInt ? value.toUInt() : 0U) {
    case 1:
        return Appearance::ColorScheme::Dark;
    case 2:
        return Appearance::ColorScheme::Light;
    default:
        return Appearance::ColorScheme::Unspecified;
    }
}

std::optional<QColor> toColor(const QVariant &value)
{
    if (value.userType() != qMetaTypeId<QDBusArgument>())
        return std::nullopt;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != u"(ddd)")
        return std::nullopt;
    double red = 0;
    double green = 0;
    double blue = 0;
    argument.beginStructure();
    argument >> red >> green >> blue;
    argument.endStructure();
    // Outside of this range it says that there is none.
    for (const double part : {red, green, blue})
        if (!(part >= 0 && part <= 1))
            return std::nullopt;
    return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green),
                            static_cast<float>(blue));
}

} // namespace

PortalAppearance::PortalAppearance(QDBusConnection bus) : m_bus(std::move(bus))
{
    // Without a bus a pending call would never finish.
    if (!m_bus.isConnected())
        return;
    qDBusRegisterMetaType<Settings>();
    // Qt finds the slot only once the name of its type is known.
    qRegisterMetaType<QDBusVariant>();
    m_portalWatcher.setConnection(m_bus);
    m_portalWatcher.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
    m_portalWatcher.addWatchedService(kService);
    connect(&m_portalWatcher, &QDBusServiceWatcher::serviceRegistered, this,
            &PortalAppearance::readAll);
    // Without a sender's name, because looking its owner up would wait; nobody gains by pretending.
    m_bus.connect(QString(), kPath, kInterface, QStringLiteral("SettingChanged"), this,
                  SLOT(settingChanged(QString, QString, QDBusVariant)));
    readAll();
}

void PortalAppearance::readAll()
{
    auto call =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("ReadAll"));
    // All at once, because portals without an accent answer an error to a question for it.
    call << QStringList{kSpace, kGnomeSpace, kKdeSpace};
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<Settings> reply = *watcher;
        if (reply.isError())
            return;
        const QVariantMap settings = reply.value().value(kSpace);
        const auto gnome =
            toAnimationsWanted(reply.value().value(kGnomeSpace).value(kGnomeAnimations));
        const auto kde = toAnimationsWanted(reply.value().value(kKdeSpace).value(kKdeDuration));
        m_areAnimationsWanted = gnome.value_or(true) && kde.value_or(true);
        take(toColorScheme(settings.value(kColorScheme)), toColor(settings.value(kAccentColor)));
    });
}

void PortalAppearance::settingChanged(const QString &space, const QString &key,
                                      const QDBusVariant &value)
{
    if ((space == kGnomeSpace && key == kGnomeAnimations) ||
        (space == kKdeSpace && key == kKdeDuration))
        m_areAnimationsWanted = toAnimationsWanted(value.variant()).value_or(m_areAnimationsWanted);
    if (space != kSpace)
        return;
    if (key == kColorScheme)
        take(toColorScheme(value.variant()), m_accentColor);
    else if (key == kAccentColor)
        take(m_colorScheme, toColor(value.variant()));
}

void PortalAppearance::take(ColorScheme colorScheme, const std::optional<QColor> &accentColor)
{
    if (colorScheme == m_colorScheme && accentColor == m_accentColor)
        return;
    m_colorScheme = colorScheme;
    m_accentColor = accentColor;
    Q_EMIT changed();
}
