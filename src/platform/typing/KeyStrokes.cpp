#include "platform/typing/KeyStrokes.h"

#include "platform/ModifierFlags.h"

#include <linux/input-event-codes.h>

namespace {

constexpr xkb_keycode_t kEvdevOffset = 8;

struct ModifierKey
{
    quint32 carbonModifier; ///< 0: only characters need it.
    const char *name;       ///< Of the modifier in a keymap.
    xkb_keysym_t symbol;
    quint32 usualCode;
};

constexpr ModifierKey kModifierKeys[] = {
    {CarbonModifiers::kControl, XKB_MOD_NAME_CTRL, XKB_KEY_Control_L, KEY_LEFTCTRL},
    {CarbonModifiers::kOption, XKB_MOD_NAME_ALT, XKB_KEY_Alt_L, KEY_LEFTALT},
    {CarbonModifiers::kCommand, XKB_MOD_NAME_LOGO, XKB_KEY_Super_L, KEY_LEFTMETA},
    {CarbonModifiers::kShift, XKB_MOD_NAME_SHIFT, XKB_KEY_Shift_L, KEY_LEFTSHIFT},
    {0, "Mod5", XKB_KEY_ISO_Level3_Shift, KEY_RIGHTALT},
};

std::optional<Xkb::Place> placeOf(const KeyChord &chord, xkb_keymap *keymap)
{
    if (!chord.isShortcut())
        return Xkb::placeOf(keymap, chord.symbol, 0);
    if (const auto keycode = Xkb::keyFor(keymap, chord.symbol, 0))
        return Xkb::Place{*keycode, 0};
    const xkb_layout_index_t groups = xkb_keymap_num_layouts(keymap);
    for (xkb_layout_index_t group = 0; group < groups; ++group) {
        if (const auto place = Xkb::placeOf(keymap, chord.symbol, group))
            return place;
    }
    const XkbPointer<xkb_keymap> american = Xkb::americanKeymap();
    return Xkb::placeOf(american.get(), chord.symbol, 0);
}

/// The keys to hold; absent when the place needs a modifier that has none.
std::optional<std::vector<quint32>> keysToHold(const KeyChord &chord, const Xkb::Place &place,
                                               xkb_keymap *keymap)
{
    std::vector<quint32> keys;
    xkb_mod_mask_t missing = place.modifiers;
    for (const ModifierKey &key : kModifierKeys) {
        const xkb_mod_index_t index = xkb_keymap_mod_get_index(keymap, key.name);
        const xkb_mod_mask_t mask = index == XKB_MOD_INVALID ? 0 : 1U << index;
        if ((chord.carbonModifiers & key.carbonModifier) == 0 && (place.modifiers & mask) == 0)
            continue;
        missing &= ~mask;
        // Some people have them elsewhere, as Control on the key of Caps Lock.
        const std::optional<xkb_keycode_t> keycode = Xkb::keyFor(keymap, key.symbol, 0);
        keys.push_back(keycode ? *keycode - kEvdevOffset : key.usualCode);
    }
    return missing == 0 ? std::optional(keys) : std::nullopt;
}

} // namespace

std::optional<std::vector<KeyStroke>> KeyStrokes::of(const KeySequence &sequence,
                                                     xkb_keymap *keymap)
{
    if (!keymap) {
        const XkbPointer<xkb_keymap> american = Xkb::americanKeymap();
        return american ? of(sequence, american.get()) : std::nullopt;
    }
    std::vector<KeyStroke> strokes;
    for (const KeyChord &chord : sequence) {
        const std::optional<Xkb::Place> place = placeOf(chord, keymap);
        const auto held = place ? keysToHold(chord, *place, keymap) : std::nullopt;
        if (!held)
            return std::nullopt;
        for (const quint32 key : *held)
            strokes.push_back({key, true});
        const quint32 key = place->keycode - kEvdevOffset;
        strokes.insert(strokes.end(), {{key, true}, {key, false}});
        for (auto modifier = held->rbegin(); modifier != held->rend(); ++modifier)
            strokes.push_back({*modifier, false});
    }
    return strokes;
}
