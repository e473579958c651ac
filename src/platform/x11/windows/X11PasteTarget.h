#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11EventNotifier.h"
#include "platform/x11/windows/X11ActiveWindow.h"

#include <QObject>

/// Where a paste goes: the window of another program that was in front last, however it got there
/// and whichever of our own windows have been in front since. The window manager's announcements
/// are followed as they come; because one may still be under way when a window of ours takes the
/// front, it is asked once more before any of them is shown. Owned by the front application; has a
/// connection of its own, so that nobody else's questions take its events. Main thread only.
class X11PasteTarget : public QObject
{
    Q_OBJECT

public:
    X11PasteTarget();

    /// Asks who is in front now. Where no window manager tells, this is all that is known.
    void refresh();

    /// XCB_NONE when there is none, or when it was put away before any window of ours came to the
    /// front: nobody wants text typed into a window that cannot be seen.
    xcb_window_t window() const { return m_window; }

    /// What had the keyboard before a window of ours was shown: the window, or a part of it, or a
    /// field of its own beside it. The window when it was not asked then.
    xcb_window_t keyboardPlace() const { return m_keyboardPlace; }

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void handle(const xcb_generic_event_t &event);
    void follow();

    X11Connection m_connection;
    const X11ActiveWindow m_active;
    xcb_atom_t m_activeWindowAtom;
    xcb_atom_t m_managerAtom;
    xcb_window_t m_window = XCB_NONE;
    xcb_window_t m_keyboardPlace = XCB_NONE;
    X11EventNotifier m_events;
};
