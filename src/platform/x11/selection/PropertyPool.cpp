#include "platform/x11/selection/PropertyPool.h"

#include "platform/x11/selection/SelectionConnection.h"

namespace {

constexpr int kPropertiesAtStart = 4;

} // namespace

PropertyPool::PropertyPool(SelectionConnection &connection) : m_connection(connection)
{
    for (int i = 0; i < kPropertiesAtStart; ++i)
        m_free.append(makeProperty());
}

xcb_atom_t PropertyPool::take()
{
    // Used again instead of made anew: the server forgets no atom until its last client has gone.
    return m_free.isEmpty() ? makeProperty() : m_free.takeFirst();
}

void PropertyPool::abandon(xcb_atom_t property)
{
    // Emptied, so that the server does not keep the piece that arrived. Removing it instead would
    // ask the owner for the next piece.
    m_connection.replace(m_connection.window(), property, m_connection.atoms().null, QByteArray());
    m_abandoned.append(property);
}

void PropertyPool::handleLate(const xcb_selection_notify_event_t &event)
{
    if (!m_abandoned.contains(event.property))
        return;
    const auto value = m_connection.read(m_connection.window(), event.property, 0, 0);
    // Removing the announcement of an INCR would begin the transfer (ICCCM 2.7.2). Left there, its
    // owner gives up after a while.
    if (value && value->type == m_connection.atoms().incr)
        return;
    m_connection.remove(m_connection.window(), event.property);
    m_abandoned.removeOne(event.property);
    m_free.append(event.property);
}

xcb_atom_t PropertyPool::makeProperty()
{
    const QByteArray name = "QUILLMARSH_SELECTION_" + QByteArray::number(m_propertiesMade++);
    const XcbPointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        m_connection.xcb(),
        xcb_intern_atom(m_connection.xcb(), 0, static_cast<quint16>(name.size()), name.constData()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}
