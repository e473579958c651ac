#pragma once

#include "platform/x11/windows/LastApplication.h"
#include "platform/x11/windows/X11ActiveWindow.h"

#include <QString>

#include <xcb/xcb.h>

#include <optional>

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

    /// The one in front; none where nobody tells.
    xcb_window_t window() const { return m_seen.window; }

private:
    /// A window in front and the name it bears.
    struct Seen
    {
        xcb_window_t window = XCB_NONE;
        xcb_window_t leader = XCB_NONE;       ///< The one it says it is a dialog of.
        xcb_window_t namingWindow = XCB_NONE; ///< The one whose name a dialog bears, or itself.
        QByteArray windowClass;               ///< Of the naming window.
        bool isThere = false;
        QString name; ///< Empty where it tells none.
    };

public:
    struct Front
    {
        QString applicationName;
        bool isOurs = false; ///< One of our own windows.
    };

    /// Who was in front when a copy was made. Asked then, so that what happens until the answer is
    /// collected changes nothing, and nobody waits for it meanwhile.
    class Question
    {
        friend FrontWindowTracker;
        Seen seen;
        bool isOurs = false;
        bool isShown = false;
        LastApplication last;
        std::optional<PendingProperty> leader, windowClass;
        std::optional<WindowQuestion> owner;
    };
    /// While `owner` copies.
    Question askAtCopy(xcb_window_t owner);

    /// The name to give the copy is that of the application in front; with none in front the
    /// owner's own, as far as its window tells; else the last one while it runs; else empty.
    Front answer(Question question);

private:
    void update();
    Seen look(xcb_window_t window) const;
    void remember();
    static bool hasChanged(Question &question);
    QString nameOf(WindowQuestion &owner) const;

    const X11Connection &m_connection;
    const ApplicationNames &m_names;
    X11ActiveWindow m_activeWindow;
    xcb_atom_t m_activeWindowAtom;
    xcb_atom_t m_managerAtom;
    bool m_isManaged = false;
    Seen m_seen;
    LastApplication m_last;
};
