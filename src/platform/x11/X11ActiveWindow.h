#pragma once

#include "platform/ApplicationNames.h"
#include "platform/x11/X11Connection.h"

#include <optional>

/// Tells which window is in front and what it says about its program, over the connection of the
/// thread that asks. Nothing is remembered between two questions.
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
    bool hasInputFocus(xcb_window_t window) const;

    bool exists(xcb_window_t window) const;

    /// What the window tells; absent when it does not exist any more.
    std::optional<WindowIdentity> identityOf(xcb_window_t window) const;

private:
    xcb_window_t inputFocus() const;
    xcb_window_t parentOf(xcb_window_t window) const;
    QString processNameOf(xcb_window_t window) const;

    const X11Connection &m_connection;
    struct Atoms
    {
        xcb_atom_t activeWindow, supportingCheck, processId, clientMachine, gtkApplicationId, utf8;
    } m_atoms;
};
