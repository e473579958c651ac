#pragma once

#include <QByteArray>

#include <xkbcommon/xkbcommon.h>

#include <memory>
#include <optional>

struct FreeKeymap
{
    void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_context *context) const { xkb_context_unref(context); }
    void operator()(xkb_state *state) const { xkb_state_unref(state); }
};

template <typename T>
using XkbPointer = std::unique_ptr<T, FreeKeymap>;

/// What a keymap has where. Keycodes are at most 255, because nobody's events have more than a
/// byte for them. Null is a keymap without keys.
namespace Xkb {

/// What it takes to type a symbol.
struct Place
{
    xkb_keycode_t keycode;
    xkb_mod_mask_t modifiers; ///< The keymap's, to be held.
};

/// What the key gives by itself in `group`; XKB_KEY_NoSymbol when nothing.
xkb_keysym_t plainSymbol(xkb_keymap *keymap, xkb_keycode_t keycode, xkb_layout_index_t group);

/// A key that gives `symbol` by itself: in `group`, else in any.
std::optional<xkb_keycode_t> keyFor(xkb_keymap *keymap, xkb_keysym_t symbol,
                                    xkb_layout_index_t group);

/// How to type `symbol` in `group` while nothing is locked, with as few modifiers as it takes.
std::optional<Place> placeOf(xkb_keymap *keymap, xkb_keysym_t symbol, xkb_layout_index_t group);

/// From its text, as compositors hand it on. Null when it is none.
XkbPointer<xkb_keymap> keymapOf(const QByteArray &text);

/// An American keyboard, whatever the user's is. Null where the descriptions of keyboards are
/// missing.
XkbPointer<xkb_keymap> americanKeymap();

} // namespace Xkb
