#pragma once

#include "platform/x11/selection/SelectionOffer.h"

#include <chrono>
#include <optional>
#include <vector>

#include <xcb/xcb.h>

class SelectionConnection;

/// Hands contents to those who asked for them: small ones at once, large ones piece after piece as
/// the requestor takes them (INCR). Each transfer keeps its own share of the bytes, so a new write
/// does not disturb it, and one that stalls or whose requestor dies is dropped alone. Owned by
/// SelectionServer; service thread only.
class OutgoingTransfers
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// `connection` is not owned and must outlive this object.
    OutgoingTransfers(SelectionConnection &connection, std::chrono::milliseconds stallLimit);

    /// Puts `data`, or the announcement of it, into the requestor's property.
    void send(xcb_window_t requestor, xcb_atom_t property, const SelectionOffer::Data &data);

    /// The requestor took a piece.
    void handle(const xcb_property_notify_event_t &event);

    /// The window is gone.
    void drop(xcb_window_t requestor);

    /// Drops the stalled ones and says when the next will be.
    std::optional<TimePoint> keepDeadlines(TimePoint now);

private:
    struct Transfer
    {
        xcb_window_t requestor;
        xcb_atom_t property;
        SelectionOffer::Data data;
        qsizetype sent;
        TimePoint lastProgress;
    };

    void begin(xcb_window_t requestor, xcb_atom_t property, const SelectionOffer::Data &data);
    void watch(xcb_window_t requestor, bool isWatched);
    void end(std::vector<Transfer>::iterator transfer);

    SelectionConnection &m_connection;
    std::chrono::milliseconds m_stallLimit;
    std::vector<Transfer> m_transfers;
};
