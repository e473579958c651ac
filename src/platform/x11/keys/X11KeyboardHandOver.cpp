#include "platform/x11/keys/X11KeyboardHandOver.h"

#include "platform/x11/QtX11Connection.h"

namespace {

using std::chrono::milliseconds;

/// A window of ours that had the keyboard all along may be about to lose it to another one of ours.
constexpr milliseconds kSettleTime{60};
/// The keyboard stands still meanwhile, for everybody. Less than a key takes until it repeats: what
/// it repeated meanwhile would be typed afterwards.
constexpr milliseconds kLimit{500};

} // namespace

X11KeyboardHandOver::X11KeyboardHandOver(const X11Connection &connection)
    : m_connection(connection), m_active(connection)
{
}

void X11KeyboardHandOver::begin()
{
    m_focusBefore = m_active.inputFocus();
    m_begin = std::chrono::steady_clock::now();
}

void X11KeyboardHandOver::passOver()
{
    m_heldSince.reset();
    // Gives the next event and freezes the keyboard again with it.
    xcb_allow_events(m_connection.get(), XCB_ALLOW_SYNC_KEYBOARD, XCB_CURRENT_TIME);
}

bool X11KeyboardHandOver::isOurWindowReady(TimePoint now) const
{
    const xcb_window_t focus = m_active.inputFocus();
    return isQtWindow(focus) && (focus != m_focusBefore || now - m_begin >= kSettleTime);
}

bool X11KeyboardHandOver::isTooLate(TimePoint now) const
{
    return m_heldSince && now - *m_heldSince >= kLimit;
}

void X11KeyboardHandOver::letGo()
{
    m_heldSince.reset();
    // The server takes the key as if it had just been pressed and no grab of ours had been there.
    xcb_allow_events(m_connection.get(), XCB_ALLOW_REPLAY_KEYBOARD, XCB_CURRENT_TIME);
}
