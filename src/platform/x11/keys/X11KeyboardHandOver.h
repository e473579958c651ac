#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/windows/X11ActiveWindow.h"

#include <chrono>
#include <optional>

/// Hands the keyboard over from a hot key to the window that it opens. While a hot key is down its
/// grab has the keyboard, and the server gives us one key event at a time and holds all later ones
/// back: what belongs to the hot key itself is passed over, and the first other key that is pressed
/// waits here until one of our windows has the keyboard. Then it is let go to that window with
/// everything behind it, so each key arrives once and in order, however quickly it was typed.
/// Owned by the hot keys and used on their thread.
class X11KeyboardHandOver
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// `connection` must outlive this object.
    explicit X11KeyboardHandOver(const X11Connection &connection);

    /// A hot key has gone down: whoever has the keyboard now may be about to lose it to us.
    void begin();

    /// The latest key event was the hot key's own; the next may come.
    void passOver();

    /// The latest key event is another key's press: it waits for our window.
    void holdBack() { m_heldSince = std::chrono::steady_clock::now(); }

    /// Whether a key waits.
    bool isHoldingBack() const { return m_heldSince.has_value(); }

    /// Whether the key that waits can be let go.
    bool isOurWindowReady(TimePoint now) const;

    /// Whether it has waited for so long that no window of ours can be meant.
    bool isTooLate(TimePoint now) const;

    /// Lets the latest key event, and all that was held back behind it, go where the keyboard is,
    /// and ends the grab.
    void letGo();

    /// The grab was ended in another way.
    void forget() { m_heldSince.reset(); }

private:
    const X11Connection &m_connection;
    const X11ActiveWindow m_active;
    xcb_window_t m_focusBefore = XCB_NONE;
    TimePoint m_begin;
    std::optional<TimePoint> m_heldSince;
};
