#include "platform/typing/Xkb.h"

#include <algorithm>
#include <array>
#include <bit>

namespace {

constexpr xkb_keycode_t kLastKeycode = 255;

xkb_keycode_t lastKeycodeOf(xkb_keymap *keymap)
{
    return std::min(xkb_keymap_max_keycode(keymap), kLastKeycode);
}

/// The modifiers that stay on when their key is let go.
xkb_mod_mask_t locksOf(xkb_keymap *keymap)
{
    xkb_mod_mask_t locks = 0;
    for (const char *name : {XKB_MOD_NAME_CAPS, XKB_MOD_NAME_NUM}) {
        const xkb_mod_index_t index = xkb_keymap_mod_get_index(keymap, name);
        if (index != XKB_MOD_INVALID)
            locks |= 1U << index;
    }
    return locks;
}

} // namespace

xkb_keysym_t Xkb::plainSymbol(xkb_keymap *keymap, xkb_keycode_t keycode, xkb_layout_index_t group)
{
    // A key that has fewer groups than the keyboard answers in the one it has for this group.
    const xkb_keysym_t *symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap, keycode, group, 0, &symbols);
    return count == 1 ? symbols[0] : xkb_keysym_t(XKB_KEY_NoSymbol);
}

std::optional<xkb_keycode_t> Xkb::keyFor(xkb_keymap *keymap, xkb_keysym_t symbol,
                                         xkb_layout_index_t group)
{
    if (!keymap)
        return std::nullopt;
    std::optional<xkb_keycode_t> elsewhere;
    const xkb_keycode_t last = lastKeycodeOf(keymap);
    for (xkb_keycode_t keycode = xkb_keymap_min_keycode(keymap); keycode <= last; ++keycode) {
        if (plainSymbol(keymap, keycode, group) == symbol)
            return keycode;
        // Toolkits find Ctrl-V in another group where the one in effect has no Latin letters; so
        // the key of that group will do.
        const xkb_layout_index_t groups = xkb_keymap_num_layouts_for_key(keymap, keycode);
        for (xkb_layout_index_t other = 0; other < groups && !elsewhere; ++other) {
            if (plainSymbol(keymap, keycode, other) == symbol)
                elsewhere = keycode;
        }
    }
    return elsewhere;
}

std::optional<Xkb::Place> Xkb::placeOf(xkb_keymap *keymap, xkb_keysym_t symbol,
                                       xkb_layout_index_t group)
{
    if (!keymap)
        return std::nullopt;
    const xkb_mod_mask_t locks = locksOf(keymap);
    std::optional<Place> best;
    const xkb_keycode_t last = lastKeycodeOf(keymap);
    for (xkb_keycode_t keycode = xkb_keymap_min_keycode(keymap); keycode <= last; ++keycode) {
        const xkb_level_index_t levels = xkb_keymap_num_levels_for_key(keymap, keycode, group);
        for (xkb_level_index_t level = 0; level < levels; ++level) {
            const xkb_keysym_t *symbols = nullptr;
            const int count =
                xkb_keymap_key_get_syms_by_level(keymap, keycode, group, level, &symbols);
            if (count != 1 || symbols[0] != symbol)
                continue;
            std::array<xkb_mod_mask_t, 16> masks{};
            const std::size_t known = xkb_keymap_key_get_mods_for_level(
                keymap, keycode, group, level, masks.data(), masks.size());
            for (std::size_t i = 0; i < known; ++i) {
                const bool isFewer =
                    !best || std::popcount(masks[i]) < std::popcount(best->modifiers);
                if ((masks[i] & locks) == 0 && masks[i] <= 0xFF && isFewer)
                    best = Place{keycode, masks[i]};
            }
        }
    }
    return best;
}

XkbPointer<xkb_keymap> Xkb::keymapOf(const QByteArray &text)
{
    const XkbPointer<xkb_context> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    if (!context || text.isEmpty())
        return nullptr;
    return XkbPointer<xkb_keymap>(xkb_keymap_new_from_string(
        context.get(), text.constData(), XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

XkbPointer<xkb_keymap> Xkb::americanKeymap()
{
    const XkbPointer<xkb_context> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    // Whole, so that nothing is taken from what the environment says of the user's.
    const xkb_rule_names names{"evdev", "pc105", "us", "", ""};
    return XkbPointer<xkb_keymap>(
        context ? xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS)
                : nullptr);
}
