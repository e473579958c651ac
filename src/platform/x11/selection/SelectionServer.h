#pragma once

#include "platform/x11/selection/OutgoingTransfers.h"
#include "platform/x11/selection/SelectionOffer.h"

#include <QHash>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include <xcb/xcb.h>

/// Takes selections, answers those who ask for what we own, and gives selections up. Contents are
/// staged before ownership is taken and served from the server's own word that it was, so that
/// requests which came before are still answered from what was there before. Owned by the
/// pasteboard's service; service thread only.
class SelectionServer
{
public:
    struct Listeners
    {
        /// Told each event that came along with the server's answer to a claim, in order.
        std::function<void(const xcb_generic_event_t &event)> arrived;
        /// Told once for each expectPaste(), when what was pasted has been asked for.
        std::function<void()> pasteRead;
        /// Told whose window has got contents of the selection.
        std::function<void(xcb_atom_t selection, xcb_window_t requestor)> given;
    };

    /// `connection` is not owned and must outlive this object.
    SelectionServer(SelectionConnection &connection, std::chrono::milliseconds requestorStall,
                    Listeners listeners);

    /// Becomes the owner, and serves `offer` from now on. False when the server did not confirm it.
    bool claim(xcb_atom_t selection, std::shared_ptr<const SelectionOffer> offer,
               xcb_timestamp_t time);
    /// Takes the selection from whoever has it. Returns when `isTold`, or when the server has told
    /// of it in vain.
    void empty(xcb_atom_t selection, const std::function<bool()> &isTold);
    /// The server says that we own the selection since `time`.
    void confirm(xcb_atom_t selection, xcb_timestamp_t time);
    /// We own the selection no more. Transfers that run are finished.
    void release(xcb_atom_t selection) { m_served.remove(selection); }

    bool isServing(xcb_atom_t selection) const { return m_served.contains(selection); }
    /// Null when the selection is not ours.
    std::shared_ptr<const SelectionOffer> offer(xcb_atom_t selection) const;
    xcb_timestamp_t time(xcb_atom_t selection) const { return m_served.value(selection).time; }

    /// Who has asked for what is served now, if only for its formats: the latest last.
    std::vector<xcb_window_t> askers(xcb_atom_t selection) const;

    /// From now on it is looked out for the client of `target` to ask for what we serve.
    void expectPaste(xcb_window_t target) { m_pasteTarget = target; }

    void handle(const xcb_selection_request_event_t &request);

    OutgoingTransfers &transfers() { return m_transfers; }

private:
    struct Served
    {
        std::shared_ptr<const SelectionOffer> offer;
        xcb_timestamp_t time = XCB_CURRENT_TIME;
        std::vector<xcb_window_t> askers;
    };

    void handleArrived(const std::function<bool()> &isEnough);
    void notePaste(xcb_window_t requestor);
    bool put(const Served &served, xcb_window_t requestor, xcb_atom_t target, xcb_atom_t property);
    bool putAll(const Served &served, xcb_window_t requestor, xcb_atom_t pairsProperty);

    SelectionConnection &m_connection;
    OutgoingTransfers m_transfers;
    Listeners m_listeners;
    std::optional<xcb_window_t> m_pasteTarget; ///< Until it has asked for what was pasted.
    QHash<xcb_atom_t, std::shared_ptr<const SelectionOffer>> m_staged;
    QHash<xcb_atom_t, Served> m_served;
};
