#include "platform/absent/CompositorBindings.h"

#include "platform/ModifierFlags.h"
#include "platform/typing/KeySymbols.h"

#include <QHash>
#include <QStringList>

#include <array>

namespace {

using CompositorBindings::Compositor;

struct Row
{
    Compositor compositor;
    const char16_t *desktop;  ///< In XDG_CURRENT_DESKTOP, whatever its case.
    const char16_t *variable; ///< Set in whatever a session of it starts.
};

constexpr std::array kRows = std::to_array<Row>({
    {Compositor::Sway, u"sway", u"SWAYSOCK"},
    {Compositor::Labwc, u"labwc", u"LABWC_PID"},
    {Compositor::Hyprland, u"Hyprland", u"HYPRLAND_INSTANCE_SIGNATURE"},
    {Compositor::Niri, u"niri", u"NIRI_SOCKET"},
    {Compositor::River, u"river", u""},
    {Compositor::Wayfire, u"Wayfire", u"WAYFIRE_SOCKET"},
});

/// The kernel's name of the key's place, by which one compositor matches.
QString placeName(quint32 keyCode)
{
    static const QHash<QString, QString> kOtherNames{
        {QStringLiteral("Return"), QStringLiteral("ENTER")},
        {QStringLiteral("Escape"), QStringLiteral("ESC")},
        {QStringLiteral("period"), QStringLiteral("DOT")},
        {QStringLiteral("bracketleft"), QStringLiteral("LEFTBRACE")},
        {QStringLiteral("bracketright"), QStringLiteral("RIGHTBRACE")},
        {QStringLiteral("Prior"), QStringLiteral("PAGEUP")},
        {QStringLiteral("Next"), QStringLiteral("PAGEDOWN")},
    };
    const QString name = KeySymbols::americanName(keyCode);
    return name.isEmpty() ? QString()
                          : QStringLiteral("KEY_") + kOtherNames.value(name, name.toUpper());
}

/// The modifiers by the names given, in the order in which people say them.
QStringList modifiers(quint32 carbonModifiers, const std::array<const char16_t *, 4> &names)
{
    constexpr std::array kBits{CarbonModifiers::kCommand, CarbonModifiers::kControl,
                               CarbonModifiers::kOption, CarbonModifiers::kShift};
    QStringList held;
    for (size_t i = 0; i < kBits.size(); ++i) {
        if ((carbonModifiers & kBits[i]) != 0)
            held.append(QString::fromUtf16(names[i]));
    }
    return held;
}

QString joined(const QStringList &words, const QString &key, QChar between)
{
    return (words + QStringList{key}).join(between);
}

} // namespace

Compositor CompositorBindings::compositorIn(const QProcessEnvironment &environment)
{
    const QStringList desktops =
        environment.value(QStringLiteral("XDG_CURRENT_DESKTOP")).split(u':');
    for (const Row &row : kRows) {
        if (desktops.contains(QStringView(row.desktop), Qt::CaseInsensitive))
            return row.compositor;
    }
    for (const Row &row : kRows) {
        const QString variable = QString::fromUtf16(row.variable);
        if (!variable.isEmpty() && !environment.value(variable).isEmpty())
            return row.compositor;
    }
    return Compositor::Unknown;
}

QString CompositorBindings::lineFor(Compositor compositor, const HotKeyCombination &combination,
                                    const QString &printed, const Command &command)
{
    const quint32 held = combination.carbonModifiers;
    const QString key = compositor == Compositor::Wayfire
                            ? placeName(combination.keyCode)
                            : KeySymbols::nameOf(combination.keyCode, printed);
    if (key.isEmpty())
        return {};
    const QString line = command.program + u' ' + command.word;
    const QStringList words = modifiers(held, {u"Super", u"Ctrl", u"Alt", u"Shift"});
    const QString capital = key.size() == 1 ? key.toUpper() : key;
    switch (compositor) {
    case Compositor::Sway:
        return QStringLiteral("bindsym %1 exec %2")
            .arg(joined(modifiers(held, {u"Mod4", u"Ctrl", u"Mod1", u"Shift"}), key, u'+'), line);
    case Compositor::Labwc:
        return QStringLiteral("<keybind key=\"%1\"><action name=\"Execute\" command=\"%2\"/>"
                              "</keybind>")
            .arg(joined(modifiers(held, {u"W", u"C", u"A", u"S"}), key, u'-'), line);
    case Compositor::Hyprland:
        return QStringLiteral("bind = %1, %2, exec, %3")
            .arg(modifiers(held, {u"SUPER", u"CTRL", u"ALT", u"SHIFT"}).join(u' '), capital, line);
    case Compositor::Niri:
        return QStringLiteral("%1 { spawn \"%2\" \"%3\"; }")
            .arg(joined(words, capital, u'+'), command.program, command.word);
    case Compositor::River:
        return QStringLiteral("riverctl map normal %1 %2 spawn '%3'")
            .arg(words.isEmpty()
                     ? QStringLiteral("None")
                     : modifiers(held, {u"Super", u"Control", u"Alt", u"Shift"}).join(u'+'),
                 capital, line);
    case Compositor::Wayfire:
        return QStringLiteral("binding_quillmarsh_%1 = %2\ncommand_quillmarsh_%1 = %3")
            .arg(command.word,
                 joined(modifiers(held, {u"<super>", u"<ctrl>", u"<alt>", u"<shift>"}), key, u' '),
                 line);
    case Compositor::Unknown:
        break;
    }
    return {};
}
