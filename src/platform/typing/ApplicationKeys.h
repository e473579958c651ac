#pragma once

#include "platform/typing/KeyChord.h"

/// How an application is made to copy and to paste.
/// A terminal, for one, ends the program inside by Ctrl-C and types a control character by Ctrl-V,
/// and Ctrl-Shift-V is not every terminal's: what is marked there is the primary selection already,
/// and Shift-Insert pastes that.
struct ApplicationKeys
{
    KeySequence paste; ///< Empty: nothing is known to paste there.
    /// Empty: no keys copy there without doing harm.
    KeySequence copy;
    /// Pastes in place of the selection that was copied.
    KeySequence replace;
    /// Pasting takes the primary selection, not the clipboard.
    bool pastesPrimary = false;
    /// What is selected there is the primary selection, so that it is copied without keys.
    bool copiesMarked = false;
    /// Whether it shows another computer, which has a clipboard of its own.
    enum class Remote {
        No,
        Asks, ///< Asks for the formats of what is copied here, if it takes them over at all.
        Tells ///< May tell of it only, so that nobody can know whether it has.
    };
    Remote remote = Remote::No;
};
