#include "platform/x11/selection/LeavingOwner.h"

#include "platform/x11/selection/SelectionConnection.h"

LeavingOwner::LeavingOwner(SelectionConnection &connection, std::chrono::milliseconds patience)
    : m_connection(connection), m_patience(patience)
{
}

void LeavingOwner::begin(xcb_window_t owner)
{
    m_owner = owner;
    m_isSaved = false;
    m_letGo.reset();
}

void LeavingOwner::save(xcb_window_t requestor)
{
    // The window that asks need not be the one that owns the selection: what ends is the client.
    if (m_owner != XCB_WINDOW_NONE && m_connection.isSameClient(requestor, m_owner))
        m_isSaved = true;
}

bool LeavingOwner::letGo(xcb_timestamp_t time)
{
    if (!m_isSaved)
        return false;
    m_letGo = LetGo{time, m_connection.now() + m_patience};
    // As for one that is being sent to, which it may be as well. A window that is gone already
    // gives an error, which tells the same.
    const quint32 events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.xcb(), m_owner, XCB_CW_EVENT_MASK, &events);
    xcb_flush(m_connection.xcb());
    return true;
}

std::optional<xcb_timestamp_t> LeavingOwner::takeEnd(xcb_window_t window)
{
    if (!m_letGo || window != m_owner)
        return std::nullopt;
    const xcb_timestamp_t time = m_letGo->time;
    begin(XCB_WINDOW_NONE);
    return time;
}

std::optional<LeavingOwner::TimePoint> LeavingOwner::deadline() const
{
    return m_letGo ? std::optional(m_letGo->until) : std::nullopt;
}
