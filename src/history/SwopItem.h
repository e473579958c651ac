#pragma once

#include "history/Clip.h"

/// The selection that a swop took from the front application. Never stored.
struct SwopItem : Clip
{
    /// Larger than what the history records: it is left on the pasteboard and nowhere else.
    bool isTooLarge = false;
};
