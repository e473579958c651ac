#pragma once

#include "platform/typing/KeyChord.h"

/// How an application is made to copy and to paste.
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
    /// It shows another computer, which has a clipboard of its own.
    bool isRemote = false;
};
