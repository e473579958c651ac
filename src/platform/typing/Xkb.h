#pragma once

#include <xkbcommon/xkbcommon.h>

#include <memory>

struct FreeKeymap
{
    void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_context *context) const { xkb_context_unref(context); }
    void operator()(xkb_state *state) const { xkb_state_unref(state); }
};

template <typename T>
using XkbPointer = std::unique_ptr<T, FreeKeymap>;

namespace Xkb {

/// What the key gives by itself in `group`; XKB_KEY_NoSymbol when nothing.
xkb_keysym_t plainSymbol(xkb_keymap *keymap, xkb_keycode_t keycode, xkb_layout_index_t group);

} // namespace Xkb
