#pragma once

#include "platform/x11/X11ActiveWindow.h"

#include <QString>

#include <xcb/xcb.h>

class ApplicationNames;

/// Knows the name of the application in front at any moment. The window manager's announcements
/// arrive on the same connection and in the same order as the changes of the pasteboard, so the
/// name known when a change is handled is the one that was in front when it happened, and knowing
/// it costs a copy no time. Owned by the pasteboard's service; service thread only.
class FrontWindowTracker
{
public:
    /// Neither is owned; both must outlive this object.
    FrontWindowTracker(const X11Connection &connection, const ApplicationNames &names);

    /// Begins to follow the active window. Once, on the service thread.
    void start();

    void handle(const xcb_property_notify_event_t &event);

    /// To be called at a change of the pasteboard. Only where no window manager announces the
    /// active window does it ask the server.
    void note();

    struct Front
    {
        QString applicationName;
        bool isOurs = false; ///< One of our own windows.
    };

    /// The last known one while no window is active or the active one is gone; else an empty name.
    const Front &front() const { return m_front; }

private:
    void update();

    const X11Connection &m_connection;
    const ApplicationNames &m_names;
    X11ActiveWindow m_activeWindow;
    xcb_atom_t m_activeWindowAtom;
    xcb_atom_t m_managerAtom;
    bool m_isManaged = false;
    Front m_front;
};
