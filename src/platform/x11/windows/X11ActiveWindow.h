#pragma once

#include "platform/x11/windows/WindowQuestion.h"

/// Tells which window is in front and what it says about its program, over the connection of the
/// thread that asks. Every question is answered anew.
class X11ActiveWindow
{
public:
    /// `connection` must outlive this object.
    explicit X11ActiveWindow(const X11Connection &connection);

    /// The window the window manager calls active; without a window manager the top window of the
    /// input focus. XCB_NONE when there is none.
    xcb_window_t current() const;

    /// Whether a window manager runs that keeps the extended hints. Its properties alone do not
    /// tell: they stay behind when it dies.
    bool isManaged() const;

    /// Whether the keyboard input goes to `window` or to a window inside it.
    bool hasInputFocus(xcb_window_t window) const { return leadsTo(window, inputFocus()); }

    /// Whether it goes to `keyboardPlace`, often the window itself, and the window manager, if one
    /// runs, calls the window active.
    bool isInFrontWithFocus(xcb_window_t window, xcb_window_t keyboardPlace) const;

    /// The window that has the keyboard, often a part of another; XCB_NONE when none has.
    xcb_window_t inputFocus() const;

    bool exists(xcb_window_t window) const { return mapStateOf(window).has_value(); }

    /// Whether the window is on the screen. A window manager with no other to call active may go
    /// on calling one so that was hidden.
    bool isShown(xcb_window_t window) const { return mapStateOf(window) == XCB_MAP_STATE_VIEWABLE; }

    /// What the window tells of its program; `identityOf` waits for the answer.
    WindowQuestion ask(xcb_window_t window) const;
    std::optional<WindowIdentity> identityOf(xcb_window_t window) const;

    /// Whether both windows belong to one process, if only by different connections.
    bool isOfSameProgram(xcb_window_t one, xcb_window_t other) const;

    /// The window whose name a dialog bears: the one it is for, else the window itself.
    xcb_window_t namingWindowOf(xcb_window_t window) const;

private:
    using PendingFocus = PendingReply<xcb_get_input_focus_cookie_t, xcb_get_input_focus_reply_t>;
    PendingFocus askFocus() const;
    static xcb_window_t focusOf(PendingFocus &pending);
    bool leadsTo(xcb_window_t window, xcb_window_t part) const;
    xcb_window_t parentOf(xcb_window_t window) const;
    std::optional<quint8> mapStateOf(xcb_window_t window) const;

    const X11Connection &m_connection;
    struct Atoms
    {
        xcb_atom_t activeWindow, supportingCheck;
    } m_atoms;
    WindowQuestion::Atoms m_questionAtoms;
    mutable xcb_window_t m_lastManager = XCB_NONE; ///< Asked along with who it is now.
};
