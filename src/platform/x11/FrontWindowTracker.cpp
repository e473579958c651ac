#include "platform/x11/FrontWindowTracker.h"

#include "platform/x11/QtX11Connection.h"

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

void FrontWindowTracker::note()
{
    if (!m_isManaged)
        update();
}

void FrontWindowTracker::update()
{
    m_isManaged = m_activeWindow.isManaged();
    const xcb_window_t window = m_activeWindow.current();
    const std::optional<WindowIdentity> identity = m_activeWindow.identityOf(window);
    if (!identity)
        return;
    const QString name = m_names.identify(*identity).name;
    if (!name.isEmpty())
        m_front = {name, isQtWindow(window)};
}
