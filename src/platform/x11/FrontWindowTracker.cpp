#include "platform/x11/FrontWindowTracker.h"

#include "platform/x11/QtX11Connection.h"

#include <unistd.h>

FrontWindowTracker::FrontWindowTracker(const X11Connection &connection,
                                       const ApplicationNames &names)
    : m_connection(connection), m_names(names), m_activeWindow(connection)
{
    const auto atoms = connection.atoms({"_NET_ACTIVE_WINDOW", "_NET_SUPPORTING_WM_CHECK"});
    m_activeWindowAtom = atoms[0];
    m_managerAtom = atoms[1];
}

void FrontWindowTracker::start()
{
    const quint32 events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK,
                                 &events);
    update();
}

void FrontWindowTracker::handle(const xcb_property_notify_event_t &event)
{
    if (event.atom == m_activeWindowAtom || event.atom == m_managerAtom)
        update();
}

FrontWindowTracker::Front FrontWindowTracker::frontAtCopy(xcb_window_t owner)
{
    if (m_isManaged)
        checkNames();
    else
        update();
    const bool isOurs = m_isInFront && isQtWindow(m_window);
    const bool isInFront = m_isInFront && (!isOurs || m_activeWindow.isShown(m_window));
    if (isInFront && !m_name.isEmpty())
        return {m_name, isOurs};
    const QString name = nameOfOwner(owner);
    return {name.isEmpty() && !isInFront ? m_last.nameWhileItRuns() : name, false};
}

void FrontWindowTracker::update()
{
    m_isManaged = m_activeWindow.isManaged();
    m_window = m_activeWindow.current();
    identify();
}

void FrontWindowTracker::identify()
{
    m_namingWindow = m_activeWindow.namingWindowOf(m_window);
    m_windowClass = m_connection.property(m_namingWindow, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING);
    const std::optional<WindowIdentity> identity = m_activeWindow.identityOf(m_namingWindow);
    m_isInFront = identity.has_value();
    m_name = identity ? m_names.identify(*identity).name : QString();
    if (!m_name.isEmpty())
        m_last.remember(m_name, m_activeWindow.processIdOf(m_namingWindow));
}

void FrontWindowTracker::checkNames()
{
    if (m_window == XCB_NONE)
        return;
    // Some applications tell their class only once they are in front. A dead window has none.
    const xcb_window_t namingWindow = m_activeWindow.namingWindowOf(m_window);
    const QByteArray windowClass =
        m_connection.property(namingWindow, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING);
    if (namingWindow != m_namingWindow || windowClass.isEmpty() || windowClass != m_windowClass)
        identify();
}

QString FrontWindowTracker::nameOfOwner(xcb_window_t owner) const
{
    const std::optional<WindowIdentity> identity = m_activeWindow.identityOf(owner);
    const bool isOurs =
        identity && m_activeWindow.processIdOf(owner) == static_cast<quint32>(getpid());
    return identity && !isOurs ? m_names.identify(*identity).name : QString();
}
