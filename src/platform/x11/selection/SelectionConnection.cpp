#include "platform/x11/selection/SelectionConnection.h"

#include <utility>
#include <vector>

namespace {

constexpr qsizetype kMaxNames = 4096;

} // namespace

SelectionConnection::SelectionConnection(Clock clock) : m_clock(std::move(clock))
{
    if (m_server.isBroken())
        return;
    m_resourceMask = xcb_get_setup(xcb())->resource_id_mask;
    m_window = xcb_generate_id(xcb());
    // Owners and requestors are windows (ICCCM 2.1, 2.4). This one is never shown; its properties'
    // changes are what an INCR is read by.
    const quint32 events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(xcb(), 0, m_window, m_server.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    m_atoms = SelectionAtoms(m_server);
}

bool SelectionConnection::isSameClient(xcb_window_t one, xcb_window_t other) const
{
    // Each client makes its ids within a range that the server gave it.
    return (one & ~m_resourceMask) == (other & ~m_resourceMask);
}

void SelectionConnection::watchOwner(xcb_atom_t selection, bool isWatched)
{
    m_ownerChangeEvent = watchSelectionOwner(xcb(), m_window, selection, isWatched);
}

QStringList SelectionConnection::namesOf(const QList<xcb_atom_t> &atoms)
{
    if (m_names.size() > kMaxNames)
        m_names.clear();
    std::vector<std::pair<xcb_atom_t, xcb_get_atom_name_cookie_t>> asked;
    for (const xcb_atom_t atom : atoms) {
        if (!m_names.contains(atom))
            asked.emplace_back(atom, xcb_get_atom_name(xcb(), atom));
    }
    for (const auto &[atom, cookie] : asked) {
        const XcbPointer<xcb_get_atom_name_reply_t> reply(
            xcb_get_atom_name_reply(xcb(), cookie, nullptr));
        if (reply)
            m_names[atom] = QString::fromUtf8(xcb_get_atom_name_name(reply.get()),
                                              xcb_get_atom_name_name_length(reply.get()));
    }
    QStringList names;
    for (const xcb_atom_t atom : atoms)
        names.append(m_names.value(atom));
    return names;
}

std::optional<SelectionConnection::Value> SelectionConnection::read(xcb_window_t window,
                                                                    xcb_atom_t property,
                                                                    qint64 offset,
                                                                    qint64 most) const
{
    // Read without deleting: a deletion has a meaning of its own (ICCCM 2.4, 2.7.2), and is left to
    // who knows whether all was read.
    const XcbPointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        xcb(),
        xcb_get_property(xcb(), 0, window, property, XCB_GET_PROPERTY_TYPE_ANY,
                         static_cast<quint32>(offset / 4), static_cast<quint32>(most / 4)),
        nullptr));
    if (!reply)
        return std::nullopt;
    Value value;
    value.type = reply->type;
    value.format = reply->format;
    value.bytes = QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                             xcb_get_property_value_length(reply.get()));
    value.bytesLeft = reply->bytes_after;
    return value;
}

void SelectionConnection::replace(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                                  const QByteArray &bytes, int format)
{
    xcb_change_property(xcb(), XCB_PROP_MODE_REPLACE, window, property, type,
                        static_cast<quint8>(format),
                        static_cast<quint32>(bytes.size() / (format / 8)), bytes.constData());
}

void SelectionConnection::replace(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                                  const QList<quint32> &numbers)
{
    xcb_change_property(xcb(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<quint32>(numbers.size()), numbers.constData());
}

void SelectionConnection::remove(xcb_window_t window, xcb_atom_t property)
{
    xcb_delete_property(xcb(), window, property);
}

void SelectionConnection::answer(const xcb_selection_request_event_t &request, xcb_atom_t property)
{
    // The protocol sends events of 32 bytes, which xcb's structure for this one falls short of.
    union {
        xcb_selection_notify_event_t notify;
        char bytes[32];
    } event = {};
    event.notify.response_type = XCB_SELECTION_NOTIFY;
    // All but the property is repeated: requestors tell by it which question was answered.
    event.notify.time = request.time;
    event.notify.requestor = request.requestor;
    event.notify.selection = request.selection;
    event.notify.target = request.target;
    event.notify.property = property;
    // ICCCM 2.2: with no event mask, which sends it to the client that made the window, whatever
    // that has selected.
    xcb_send_event(xcb(), 0, request.requestor, 0, event.bytes);
}
