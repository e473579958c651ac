#pragma once

#include "platform/x11/LastApplication.h"
#include "platform/x11/X11ActiveWindow.h"

#include <QString>

#include <xcb/xcb.h>

class ApplicationNames;

/// Knows the application in front at any moment. The window manager's announcements arrive on the
/// same connection and in the same order as the changes of the pasteboard, so the window known
/// when a change is handled is the one that was in front when it happened. Owned by the
/// pasteboard's service; service thread only.
class FrontWindowTracker
{
public:
    /// Neither is owned; both must outlive this object.
    FrontWindowTracker(const X11Connection &connection, const ApplicationNames &names);

    /// Begins to follow the active window. Once, on the service thread.
    void start();

    void handle(const xcb_property_notify_event_t &event);

    struct Front
    {
        QString applicationName;
        bool isOurs = false; ///< One of our own windows.
    };

    /// Who is in front while `owner` copies, and the name to give its copy: that of the
    /// application in front; with none in front the owner's own, as far as its window tells; else
    /// the last one while it runs; else empty. Waits for the server only.
    Front frontAtCopy(xcb_window_t owner);

private:
    void update();
    void identify();
    void checkNames();
    QString nameOfOwner(xcb_window_t owner) const;

    const X11Connection &m_connection;
    const ApplicationNames &m_names;
    X11ActiveWindow m_activeWindow;
    xcb_atom_t m_activeWindowAtom;
    xcb_atom_t m_managerAtom;
    bool m_isManaged = false;
    xcb_window_t m_window = XCB_NONE;       ///< In front.
    xcb_window_t m_namingWindow = XCB_NONE; ///< The one it is a dialog of, or itself.
    QByteArray m_windowClass;               ///< Of the naming window, when it was identified.
    bool m_isInFront = false;               ///< There is such a window.
    QString m_name;                         ///< Empty where it tells none.
    LastApplication m_last;
};
