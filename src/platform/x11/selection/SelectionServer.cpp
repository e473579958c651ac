#include "platform/x11/selection/SelectionServer.h"

#include "platform/x11/selection/SelectionConnection.h"

#include <cstring>
#include <utility>

namespace {

constexpr qint64 kMaxPairBytes = 4096;
constexpr std::size_t kMaxAskers = 64;

} // namespace

SelectionServer::SelectionServer(SelectionConnection &connection,
                                 std::chrono::milliseconds requestorStall, Listeners listeners)
    : m_connection(connection), m_transfers(connection, requestorStall),
      m_listeners(std::move(listeners))
{
}

// By value: an event that is handled meanwhile may drop the kept offer that was passed.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
bool SelectionServer::claim(xcb_atom_t selection, std::shared_ptr<const SelectionOffer> offer,
                            xcb_timestamp_t time)
{
    m_staged[selection] = offer;
    xcb_set_selection_owner(m_connection.xcb(), m_connection.window(), selection, time);
    // ICCCM 2.1: SetSelectionOwner has no answer, and the server drops one whose time is before the
    // last change. Only the question who owns it tells.
    const bool isOurs = m_connection.owner(selection) == m_connection.window();
    // What came before the confirmation is handled before it, in order: a change by another
    // client is counted before ours.
    const auto isServed = [&] { return m_served.value(selection).offer == offer; };
    handleArrived(isServed);
    if (!isServed())
        m_staged.remove(selection);
    return isOurs;
}

void SelectionServer::empty(xcb_atom_t selection, const std::function<bool()> &isTold)
{
    // To nobody instead of to us with nothing: whoever asks next learns at once that there is
    // nothing.
    xcb_set_selection_owner(m_connection.xcb(), XCB_WINDOW_NONE, selection, XCB_CURRENT_TIME);
    // The event that we are waiting for comes before the answer to the question after it.
    m_connection.owner(selection);
    handleArrived(isTold);
}

void SelectionServer::handleArrived(const std::function<bool()> &isEnough)
{
    while (!isEnough()) {
        // Of what has come along with the answer: no other client can keep us here.
        const XcbPointer<xcb_generic_event_t> event(xcb_poll_for_queued_event(m_connection.xcb()));
        if (!event)
            return;
        m_listeners.arrived(*event);
    }
}

void SelectionServer::confirm(xcb_atom_t selection, xcb_timestamp_t time)
{
    // What was served before is served until the server says that the selection changed hands:
    // requests that come until then are meant for it.
    Served &served = m_served[selection];
    if (auto staged = m_staged.take(selection)) {
        served.offer = std::move(staged);
        served.askers.clear();
    }
    served.time = time;
}

std::shared_ptr<const SelectionOffer> SelectionServer::offer(xcb_atom_t selection) const
{
    return m_served.value(selection).offer;
}

std::vector<xcb_window_t> SelectionServer::askers(xcb_atom_t selection) const
{
    return m_served.value(selection).askers;
}

void SelectionServer::handle(const xcb_selection_request_event_t &request)
{
    // The request's time is not held against it: toolkits send the time of the last event they
    // saw, which may lie before our write, and a refusal would be a paste that fails.
    // ICCCM 2.2: a client of old names no property and means the one called like the target.
    const xcb_atom_t property =
        request.property != XCB_ATOM_NONE ? request.property : request.target;
    if (const auto asked = m_served.find(request.selection); asked != m_served.end()) {
        std::vector<xcb_window_t> &askers = asked->askers;
        std::erase(askers, request.requestor);
        askers.push_back(request.requestor);
        if (askers.size() > kMaxAskers)
            askers.erase(askers.begin());
    }
    const Served served = m_served.value(request.selection);
    // Watching the root window for a transfer would disturb our own watch on it.
    const bool isStranger = request.requestor != m_connection.window() &&
                            request.requestor != m_connection.server().root();
    bool isDone = false;
    if (served.offer && isStranger) {
        if (request.target == m_connection.atoms().multiple)
            // ICCCM 2.6.2: its property holds the list of what is asked for, so it cannot do
            // without.
            isDone = request.property != XCB_ATOM_NONE &&
                     putAll(served, request.requestor, request.property);
        else
            isDone = put(served, request.requestor, request.target, property);
    }
    m_connection.answer(request, isDone ? property : xcb_atom_t(XCB_ATOM_NONE));
    // What was only told of is not pasted yet.
    if (isDone && request.target != m_connection.atoms().targets &&
        request.target != m_connection.atoms().timestamp) {
        notePaste(request.requestor);
        m_listeners.given(request.selection, request.requestor);
    }
}

void SelectionServer::notePaste(xcb_window_t requestor)
{
    if (!m_pasteTarget || !m_connection.isSameClient(requestor, *m_pasteTarget))
        return;
    m_pasteTarget.reset();
    // What is typed behind the paste now must not overtake the answer.
    m_connection.server().roundTrip();
    m_listeners.pasteRead();
}

bool SelectionServer::put(const Served &served, xcb_window_t requestor, xcb_atom_t target,
                          xcb_atom_t property)
{
    const SelectionAtoms &atoms = m_connection.atoms();
    if (target == atoms.targets) {
        // ICCCM 2.6.2 requires the first three of every owner.
        const QList<quint32> targets =
            QList<quint32>{atoms.targets, atoms.timestamp, atoms.multiple} +
            served.offer->targets();
        m_connection.replace(requestor, property, XCB_ATOM_ATOM, targets);
        return true;
    }
    // When we became the owner, by which other managers tell this copy from the last (ICCCM 2.6.2).
    if (target == atoms.timestamp) {
        m_connection.replace(requestor, property, XCB_ATOM_INTEGER, QList<quint32>{served.time});
        return true;
    }
    const auto data = served.offer->convert(target);
    if (data)
        m_transfers.send(requestor, property, *data);
    return data.has_value();
}

bool SelectionServer::putAll(const Served &served, xcb_window_t requestor, xcb_atom_t pairsProperty)
{
    const auto value = m_connection.read(requestor, pairsProperty, 0, kMaxPairBytes);
    if (!value || value->format != 32 || value->bytesLeft > 0)
        return false;
    QList<quint32> pairs(value->bytes.size() / qsizetype(sizeof(quint32)));
    std::memcpy(pairs.data(), value->bytes.constData(), pairs.size() * sizeof(quint32));
    for (qsizetype i = 0; i + 1 < pairs.size(); i += 2) {
        // In their order and each by itself: one that fails does not stop the others (ICCCM 2.6.2).
        if (pairs[i + 1] == XCB_ATOM_NONE || !put(served, requestor, pairs[i], pairs[i + 1]))
            pairs[i + 1] = XCB_ATOM_NONE;
    }
    // The list goes back with a None for each format that could not be had.
    m_connection.replace(requestor, pairsProperty, m_connection.atoms().atomPair, pairs);
    return true;
}
