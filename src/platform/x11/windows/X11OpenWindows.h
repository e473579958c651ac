#pragma once

#include "platform/ApplicationNames.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/windows/X11ActiveWindow.h"

#include <QList>

/// The windows that are open now, over a connection of its own.
class X11OpenWindows
{
public:
    X11OpenWindows();

    /// What each window of another process tells about its program: those that the window manager
    /// lists; without a window manager those shown on the screen. In no order.
    QList<WindowIdentity> identities() const;

private:
    std::vector<xcb_window_t> shownWithoutManager() const;

    X11Connection m_connection;
    X11ActiveWindow m_windows{m_connection};
    xcb_atom_t m_clientList;
};
