#pragma once

#include <QString>

class KeyboardLayout;

/// Names combinations for people, in the way of the hot-key field: its names differ from those of
/// the shortcuts on purpose.
namespace HotKeyName {

/// Glyphs of the modifiers and the name of the key: by a fixed table, else what the current layout
/// gives with these modifiers held. A modifier key of the left side is named by the glyphs alone.
/// `keyCode` is a virtual key code, `modifierFlags` bits of ModifierFlags. Whoever shows the name
/// does so in upper case. Null for `layout`: only keys of the table have names.
QString of(quint16 keyCode, quint64 modifierFlags, const KeyboardLayout *layout);

} // namespace HotKeyName
