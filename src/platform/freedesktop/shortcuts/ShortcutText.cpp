#include "platform/freedesktop/shortcuts/ShortcutText.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <QHash>
#include <QKeySequence>

#include <xkbcommon/xkbcommon.h>

#include <memory>

namespace {

constexpr quint32 kX11Offset = 8;

struct Place
{
    quint32 keyCode;
    bool isShifted; ///< The key types this only with Shift.
};

using Places = QHash<xkb_keysym_t, Place>;

Places usKeyboard()
{
    Places places;
    const std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context(
        xkb_context_new(XKB_CONTEXT_NO_FLAGS), xkb_context_unref);
    // The lists name symbols, and hot keys are places: where a symbol lies is read off one
    // keyboard, the American one, as the virtual key codes are.
    const xkb_rule_names names{"evdev", "pc105", "us", "", ""};
    const std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> keymap(
        context ? xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS)
                : nullptr,
        xkb_keymap_unref);
    // Without the system's keyboard descriptions no name can be placed.
    if (!keymap)
        return places;
    // Level by level, so that a symbol is found where it needs no Shift, if there is such a place.
    for (xkb_level_index_t level = 0; level < 2; ++level) {
        for (const VirtualKey::Row &row : VirtualKey::rows()) {
            const xkb_keysym_t *symbols = nullptr;
            const int count = xkb_keymap_key_get_syms_by_level(
                keymap.get(), row.evdevCode + kX11Offset, 0, level, &symbols);
            if (count > 0 && !places.contains(symbols[0]))
                places.insert(symbols[0], {row.virtualKey, level == 1});
        }
    }
    return places;
}

std::optional<Place> placeOf(xkb_keysym_t symbol)
{
    static const Places kPlaces = usKeyboard();
    const auto found = kPlaces.constFind(symbol);
    return found == kPlaces.constEnd() ? std::nullopt : std::optional(*found);
}

std::optional<quint32> gtkModifier(const QString &name)
{
    static const QHash<QString, quint32> kModifiers{
        {QStringLiteral("shift"), CarbonModifiers::kShift},
        {QStringLiteral("shft"), CarbonModifiers::kShift},
        // The toolkit's name for the main modifier, which is Control everywhere but on one system.
        {QStringLiteral("primary"), CarbonModifiers::kControl},
        {QStringLiteral("control"), CarbonModifiers::kControl},
        {QStringLiteral("ctrl"), CarbonModifiers::kControl},
        {QStringLiteral("ctl"), CarbonModifiers::kControl},
        {QStringLiteral("alt"), CarbonModifiers::kOption},
        {QStringLiteral("mod1"), CarbonModifiers::kOption},
        {QStringLiteral("super"), CarbonModifiers::kCommand},
        {QStringLiteral("mod4"), CarbonModifiers::kCommand},
        {QStringLiteral("release"), 0},
    };
    const auto found = kModifiers.constFind(name.toLower());
    return found == kModifiers.constEnd() ? std::nullopt : std::optional(*found);
}

xkb_keysym_t gtkSymbol(QStringView name)
{
    // The key above Tab, whatever it types.
    if (name == u"Above_Tab")
        return XKB_KEY_grave;
    const QByteArray bytes = name.toUtf8();
    xkb_keysym_t symbol = xkb_keysym_from_name(bytes.constData(), XKB_KEYSYM_NO_FLAGS);
    // Written by hand, names come in any case ("return"); but exactly first, as "V" and "v" are two
    // symbols.
    if (symbol == XKB_KEY_NoSymbol)
        symbol = xkb_keysym_from_name(bytes.constData(), XKB_KEYSYM_CASE_INSENSITIVE);
    return xkb_keysym_to_lower(symbol);
}

xkb_keysym_t qtSymbol(Qt::Key key)
{
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35)
        return XKB_KEY_F1 + static_cast<xkb_keysym_t>(key - Qt::Key_F1);
    // Below this a key is the character that it types.
    if (key < Qt::Key_Escape)
        return xkb_keysym_to_lower(xkb_utf32_to_keysym(static_cast<uint32_t>(key)));
    static const QHash<int, xkb_keysym_t> kSymbols{
        {Qt::Key_Escape, XKB_KEY_Escape},
        {Qt::Key_Tab, XKB_KEY_Tab},
        {Qt::Key_Backtab, XKB_KEY_Tab},
        {Qt::Key_Backspace, XKB_KEY_BackSpace},
        {Qt::Key_Return, XKB_KEY_Return},
        {Qt::Key_Enter, XKB_KEY_KP_Enter},
        {Qt::Key_Insert, XKB_KEY_Insert},
        {Qt::Key_Delete, XKB_KEY_Delete},
        {Qt::Key_Home, XKB_KEY_Home},
        {Qt::Key_End, XKB_KEY_End},
        {Qt::Key_Left, XKB_KEY_Left},
        {Qt::Key_Up, XKB_KEY_Up},
        {Qt::Key_Right, XKB_KEY_Right},
        {Qt::Key_Down, XKB_KEY_Down},
        {Qt::Key_PageUp, XKB_KEY_Page_Up},
        {Qt::Key_PageDown, XKB_KEY_Page_Down},
        {Qt::Key_Menu, XKB_KEY_Menu},
        {Qt::Key_Help, XKB_KEY_Help},
        {Qt::Key_VolumeUp, XKB_KEY_XF86AudioRaiseVolume},
        {Qt::Key_VolumeDown, XKB_KEY_XF86AudioLowerVolume},
        {Qt::Key_VolumeMute, XKB_KEY_XF86AudioMute},
    };
    return kSymbols.value(key, XKB_KEY_NoSymbol);
}

} // namespace

std::optional<SymbolicHotKey> ShortcutText::fromGtk(QStringView accelerator)
{
    SymbolicHotKey hotKey;
    while (accelerator.startsWith(u'<')) {
        const qsizetype end = accelerator.indexOf(u'>');
        const auto modifier =
            end < 0 ? std::nullopt : gtkModifier(accelerator.sliced(1, end - 1).toString());
        // With a modifier that no hot key of ours can have it clashes with none.
        if (!modifier)
            return std::nullopt;
        hotKey.carbonModifiers |= *modifier;
        accelerator = accelerator.sliced(end + 1);
    }
    const auto place = placeOf(gtkSymbol(accelerator));
    if (!place)
        return std::nullopt;
    hotKey.keyCode = place->keyCode;
    return hotKey;
}

std::optional<SymbolicHotKey> ShortcutText::fromQt(const QString &shortcut)
{
    const QKeySequence sequence = QKeySequence::fromString(shortcut, QKeySequence::PortableText);
    if (sequence.count() != 1)
        return std::nullopt;
    const auto place = placeOf(qtSymbol(sequence[0].key()));
    if (!place)
        return std::nullopt;
    const quint64 modifiers = ModifierFlags::ofQt(sequence[0].keyboardModifiers());
    // "Meta+!" leaves out the Shift that its key needs.
    const quint32 shift = place->isShifted ? CarbonModifiers::kShift : 0;
    return SymbolicHotKey{place->keyCode, CarbonModifiers::ofFlags(modifiers) | shift, true};
}
