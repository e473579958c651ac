#include "platform/x11/windows/X11PasteTarget.h"

#include "platform/x11/QtX11Connection.h"

#include <QCoreApplication>
#include <QEvent>

namespace {

} // namespace

X11PasteTarget::X11PasteTarget()
    : m_active(m_connection),
      m_events(m_connection, [this](const xcb_generic_event_t &event) { handle(event); })
{
    const auto atoms = m_connection.atoms({"_NET_ACTIVE_WINDOW", "_NET_SUPPORTING_WM_CHECK"});
    m_activeWindowAtom = atoms[0];
    m_managerAtom = atoms[1];
    const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK,
                                 &events);
    if (QCoreApplication *application = QCoreApplication::instance())
        application->installEventFilter(this);
    refresh();
}

void X11PasteTarget::refresh()
{
    m_events.handleArrived();
    follow();
    if (m_window == XCB_NONE || m_active.current() != m_window)
        return;
    // One of ours may have it before it is said to be in front.
    const xcb_window_t focus = m_active.inputFocus();
    if (isQtWindow(focus))
        return;
    // Window managers have windows of their own that take the keyboard in passing.
    const bool isOfTarget = focus != XCB_NONE && (m_active.isOfSameProgram(focus, m_window) ||
                                                  m_active.hasInputFocus(m_window));
    m_keyboardPlace = isOfTarget ? focus : m_window;
}

bool X11PasteTarget::eventFilter(QObject *watched, QEvent *event)
{
    // Sent before the window is shown.
    if (event->type() == QEvent::Show && watched->isWindowType())
        refresh();
    return QObject::eventFilter(watched, event);
}

void X11PasteTarget::handle(const xcb_generic_event_t &event)
{
    if (typeOf(event) != XCB_PROPERTY_NOTIFY)
        return;
    const xcb_atom_t atom = reinterpret_cast<const xcb_property_notify_event_t &>(event).atom;
    // The second is written by a window manager that starts: from then on it tells who is in front,
    // and not the place of the keyboard.
    if (atom == m_activeWindowAtom || atom == m_managerAtom)
        follow();
}

void X11PasteTarget::follow()
{
    const xcb_window_t front = m_active.current();
    // The one that is told may have been put away a moment ago.
    if (front != XCB_NONE && !isQtWindow(front) && m_active.isShown(front)) {
        // Told again, it is no news of the keyboard.
        if (front != m_window)
            m_keyboardPlace = front;
        m_window = front;
        return;
    }
    // Window managers say that nobody is in front in passing, between one window and the next.
    if (!isQtWindow(front) && m_window != XCB_NONE && !m_active.isShown(m_window))
        m_window = XCB_NONE;
}
