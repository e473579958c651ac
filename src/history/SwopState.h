#pragma once

#include "history/SwopItem.h"

#include <optional>

/// Whether a swop is under way, and the selection it holds until the exchange. Capture fills it,
/// paste consumes it. Owned by the application delegate.
class SwopState
{
public:
    bool performSwop = false;
    std::optional<SwopItem> swopClipItem;

    void clear()
    {
        performSwop = false;
        swopClipItem.reset();
    }
};
