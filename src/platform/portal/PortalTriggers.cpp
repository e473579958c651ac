#include "platform/portal/PortalTriggers.h"

#include "platform/KeyboardLayout.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/typing/KeySymbols.h"

#include <QRegularExpression>
#include <QStringList>

#include <array>

namespace {

struct Modifier
{
    quint32 carbon;
    const char16_t *asked;
    std::array<const char16_t *, 3> told; ///< Whatever their case.
};

constexpr std::array kModifiers = std::to_array<Modifier>({
    {CarbonModifiers::kControl, u"CTRL", {u"Control", u"Ctrl", u"Primary"}},
    {CarbonModifiers::kOption, u"ALT", {u"Alt", u"Mod1", u"Alt"}},
    {CarbonModifiers::kShift, u"SHIFT", {u"Shift", u"Shift", u"Shift"}},
    {CarbonModifiers::kCommand, u"LOGO", {u"Super", u"Mod4", u"Logo"}},
});

std::optional<quint32> modifierNamed(const QString &name)
{
    for (const Modifier &modifier : kModifiers) {
        for (const char16_t *told : modifier.told) {
            if (name.compare(QStringView(told), Qt::CaseInsensitive) == 0)
                return modifier.carbon;
        }
    }
    return std::nullopt;
}

std::optional<quint32> keyNamed(const QString &name, const KeyboardLayout &layout)
{
    for (const VirtualKey::Row &row : VirtualKey::rows()) {
        const QString symbol =
            KeySymbols::nameOf(row.virtualKey, layout.asciiCapableName(row.virtualKey));
        if (symbol.compare(name, Qt::CaseInsensitive) == 0)
            return row.virtualKey;
    }
    return std::nullopt;
}

} // namespace

QString PortalTriggers::of(const HotKeyCombination &combination, const KeyboardLayout &layout)
{
    const QString key =
        KeySymbols::nameOf(combination.keyCode, layout.asciiCapableName(combination.keyCode));
    QStringList words;
    quint32 rest = combination.carbonModifiers;
    for (const Modifier &modifier : kModifiers) {
        if ((rest & modifier.carbon) != 0)
            words.append(QString::fromUtf16(modifier.asked));
        rest &= ~modifier.carbon;
    }
    if (key.isEmpty() || rest != 0)
        return {};
    return (words << key).join(u'+');
}

std::optional<HotKeyCombination> PortalTriggers::combinationIn(const QString &description,
                                                               const KeyboardLayout &layout)
{
    static const QRegularExpression kKeys(QStringLiteral("((?:<\\w+>)+)(\\w+)"));
    const QRegularExpressionMatch keys = kKeys.match(description);
    if (!keys.hasMatch())
        return std::nullopt;
    HotKeyCombination combination;
    for (const QString &name : keys.captured(1).mid(1).chopped(1).split(QStringLiteral("><"))) {
        const std::optional<quint32> modifier = modifierNamed(name);
        if (!modifier)
            return std::nullopt;
        combination.carbonModifiers |= *modifier;
    }
    const std::optional<quint32> key = keyNamed(keys.captured(2), layout);
    if (!key)
        return std::nullopt;
    combination.keyCode = *key;
    return combination;
}
