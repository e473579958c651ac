#pragma once

#include "platform/typing/KeyChord.h"
#include "platform/x11/keys/X11HotKeys.h"

#include <optional>

/// Finds the keys that type chords on the keyboard as it is, whatever is held or locked. Valid
/// while the typing it is made with is.
class X11ChordPlan
{
public:
    explicit X11ChordPlan(const X11HotKeys::Typing &typing);

    /// Absent when one of the chords is a character that no group of the keyboard has. A shortcut
    /// is typed in any case: where it stands on most keyboards, as people do.
    std::optional<X11HotKeys::Keystroke> of(const KeySequence &sequence) const;

private:
    /// A key, and what has to be held with it.
    struct Stroke
    {
        X11Keyboard::Place place;
        quint32 carbonModifiers;
    };
    using Strokes = std::vector<Stroke>;

    std::optional<Strokes> strokesIn(xkb_layout_index_t group, const KeySequence &sequence) const;
    Strokes strokesAnywhere(const KeySequence &sequence) const;
    X11HotKeys::Keystroke typed(const Strokes &strokes) const;

    const X11HotKeys::Typing &m_typing;
};
