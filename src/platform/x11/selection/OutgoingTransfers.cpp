#include "platform/x11/selection/OutgoingTransfers.h"

#include "platform/x11/selection/SelectionConnection.h"

#include <algorithm>
#include <limits>

namespace {

// Below the 256 KiB that every server takes in one request.
constexpr qsizetype kPieceBytes = 192 * 1024;

} // namespace

OutgoingTransfers::OutgoingTransfers(SelectionConnection &connection,
                                     std::chrono::milliseconds stallLimit)
    : m_connection(connection), m_stallLimit(stallLimit)
{
}

void OutgoingTransfers::send(xcb_window_t requestor, xcb_atom_t property,
                             const SelectionOffer::Data &data)
{
    // A requestor that asks anew for the same property has given up the earlier transfer.
    const auto earlier =
        std::find_if(m_transfers.begin(), m_transfers.end(), [&](const Transfer &transfer) {
            return transfer.requestor == requestor && transfer.property == property;
        });
    if (earlier != m_transfers.end())
        end(earlier);
    // In one piece where one request holds it: INCR takes a round trip a piece, and not every
    // requestor knows it.
    if (data.bytes.size() <= kPieceBytes)
        m_connection.replace(requestor, property, data.type, data.bytes, data.format);
    else
        begin(requestor, property, data);
}

void OutgoingTransfers::handle(const xcb_property_notify_event_t &event)
{
    // ICCCM 2.7.2: the requestor asks for the next piece by deleting the last one.
    if (event.state != XCB_PROPERTY_DELETE)
        return;
    const auto transfer =
        std::find_if(m_transfers.begin(), m_transfers.end(), [&](const Transfer &candidate) {
            return candidate.requestor == event.window && candidate.property == event.atom;
        });
    if (transfer == m_transfers.end())
        return;
    const SelectionOffer::Data &data = transfer->data;
    const qsizetype size = std::min(kPieceBytes, data.bytes.size() - transfer->sent);
    // The piece of no bytes after the last one is what says that all were sent.
    m_connection.replace(event.window, event.atom, data.type,
                         QByteArray::fromRawData(data.bytes.constData() + transfer->sent, size),
                         data.format);
    transfer->sent += size;
    transfer->lastProgress = m_connection.now();
    if (size == 0)
        end(transfer);
}

void OutgoingTransfers::drop(xcb_window_t requestor)
{
    std::erase_if(m_transfers, [requestor](const Transfer &transfer) {
        return transfer.requestor == requestor;
    });
}

std::optional<OutgoingTransfers::TimePoint> OutgoingTransfers::keepDeadlines(TimePoint now)
{
    std::optional<TimePoint> next;
    for (auto transfer = m_transfers.begin(); transfer != m_transfers.end();) {
        const TimePoint deadline = transfer->lastProgress + m_stallLimit;
        // Nothing tells that a requestor hangs. It would keep the clip in our memory for ever.
        if (now >= deadline) {
            const auto index = transfer - m_transfers.begin();
            end(transfer);
            transfer = m_transfers.begin() + index;
            continue;
        }
        next = next ? std::min(*next, deadline) : deadline;
        ++transfer;
    }
    return next;
}

void OutgoingTransfers::begin(xcb_window_t requestor, xcb_atom_t property,
                              const SelectionOffer::Data &data)
{
    // Watched before the announcement is there to be taken.
    watch(requestor, true);
    // A lower bound is enough (ICCCM 2.7.2), and nobody who reads it as signed must find a negative
    // one.
    const auto minBytes = static_cast<quint32>(
        std::min<qint64>(data.bytes.size(), std::numeric_limits<qint32>::max()));
    m_connection.replace(requestor, property, m_connection.atoms().incr, QList<quint32>{minBytes});
    m_transfers.push_back({requestor, property, data, 0, m_connection.now()});
}

void OutgoingTransfers::watch(xcb_window_t requestor, bool isWatched)
{
    // ICCCM 2.7.2 has the owner watch the requestor's window: the deletions of the property drive
    // the transfer. A window that ends deletes nothing more, so its end is watched as well.
    const quint32 events =
        isWatched ? XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY : 0;
    xcb_change_window_attributes(m_connection.xcb(), requestor, XCB_CW_EVENT_MASK, &events);
}

void OutgoingTransfers::end(std::vector<Transfer>::iterator transfer)
{
    const xcb_window_t requestor = transfer->requestor;
    m_transfers.erase(transfer);
    const auto isSameWindow = [requestor](const Transfer &other) {
        return other.requestor == requestor;
    };
    // We have one event mask on a window, which a second transfer to it may still need: MULTIPLE
    // begins several.
    if (std::none_of(m_transfers.begin(), m_transfers.end(), isSameWindow))
        watch(requestor, false);
}
