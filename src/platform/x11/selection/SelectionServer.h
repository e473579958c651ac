#pragma once

#include "platform/x11/selection/OutgoingTransfers.h"
#include "platform/x11/selection/SelectionOffer.h"

#include <QHash>

#include <memory>
#include <vector>

#include <xcb/xcb.h>

/// Answers those who ask for the selections that we own. Contents are staged before ownership is
/// taken and served from the server's own word that it was, so that requests which came before are
/// still answered from what was there before. Owned by the pasteboard's service; service thread
/// only.
class SelectionServer
{
public:
    /// `connection` is not owned and must outlive this object.
    SelectionServer(SelectionConnection &connection, std::chrono::milliseconds requestorStall);

    void stage(xcb_atom_t selection, std::shared_ptr<const SelectionOffer> offer);
    /// Ownership was not had.
    void unstage(xcb_atom_t selection) { m_staged.remove(selection); }
    /// The server says that we own the selection since `time`.
    void confirm(xcb_atom_t selection, xcb_timestamp_t time);
    /// We own the selection no more. Transfers that run are finished.
    void release(xcb_atom_t selection);

    bool isServing(xcb_atom_t selection) const { return m_served.contains(selection); }
    /// Null when the selection is not ours.
    std::shared_ptr<const SelectionOffer> offer(xcb_atom_t selection) const;
    xcb_timestamp_t time(xcb_atom_t selection) const { return m_served.value(selection).time; }

    /// Who has asked for what is served now, if only for its formats: the latest last.
    std::vector<xcb_window_t> askers(xcb_atom_t selection) const;

    /// True when contents were given, and not only told of.
    bool handle(const xcb_selection_request_event_t &request);

    OutgoingTransfers &transfers() { return m_transfers; }

private:
    struct Served
    {
        std::shared_ptr<const SelectionOffer> offer;
        xcb_timestamp_t time = XCB_CURRENT_TIME;
        std::vector<xcb_window_t> askers;
    };

    bool put(const Served &served, xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
    bool putAll(const Served &served, xcb_window_t requestor, xcb_atom_t pairsProperty);

    SelectionConnection &m_connection;
    OutgoingTransfers m_transfers;
    QHash<xcb_atom_t, std::shared_ptr<const SelectionOffer>> m_staged;
    QHash<xcb_atom_t, Served> m_served;
};
