#pragma once

#include "platform/typing/KeyChord.h"
#include "platform/typing/Xkb.h"

#include <optional>
#include <vector>

/// A key that goes down or comes up, by the kernel's code of its place.
struct KeyStroke
{
    quint32 evdevCode;
    bool isPress;

    bool operator==(const KeyStroke &) const = default;
};

namespace KeyStrokes {

/// What types the chords on a keyboard with that keymap on which nothing is held or locked, for
/// display systems that do not tell which group is in effect: plain characters are typed as in the
/// first. Absent when one of them is none of that group's. A shortcut is typed in any case: where
/// it stands on most keyboards, as people do. Null is a keyboard of which nothing is known.
std::optional<std::vector<KeyStroke>> of(const KeySequence &sequence, xkb_keymap *keymap);

} // namespace KeyStrokes
