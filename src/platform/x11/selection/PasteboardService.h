#pragma once

#include "platform/Pasteboard.h"
#include "platform/pasteboard/PasteboardChanges.h"
#include "platform/x11/selection/ClipboardManagerRole.h"
#include "platform/x11/selection/KeptCopy.h"
#include "platform/x11/selection/LeavingOwner.h"
#include "platform/x11/selection/PropertyPool.h"
#include "platform/x11/selection/SelectionConnection.h"
#include "platform/x11/selection/SelectionQuestions.h"
#include "platform/x11/selection/SelectionReader.h"
#include "platform/x11/selection/SelectionServer.h"
#include "platform/x11/windows/FrontWindowTracker.h"

#include <functional>
#include <memory>
#include <optional>

#include <xcb/xfixes.h>

/// The pasteboard server that X lacks: follows the CLIPBOARD selection, reads what others copy,
/// publishes it, keeps it alive after its owner's death, and serves what we write. Owned by
/// X11Pasteboard, which makes it on the main thread; every operation after that runs on the
/// service thread. It waits for the X server, never for another client.
class PasteboardService
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    struct Listeners
    {
        /// Told each published change of another client.
        std::function<void(qint64 changeCount)> changed;
        /// Told once for each expectPaste(), when what was pasted has been asked for.
        std::function<void()> pasteRead;
        /// Told when the application in front has asked for what we serve, while that is wanted.
        std::function<void()> fetched;
    };

    /// Nothing is owned; everything must outlive this object.
    PasteboardService(SelectionConnection &connection, PasteboardChanges &changes,
                      const ApplicationNames &names, const PasteboardLimits &limits,
                      Listeners listeners);

    /// Begins to follow the pasteboard, and reads what is there already.
    void start();

    void handle(const xcb_generic_event_t &event);
    std::optional<TimePoint> keepDeadlines(TimePoint now);

    /// Becomes the owner and publishes `contents`. False when the server did not confirm it.
    [[nodiscard]] bool write(std::shared_ptr<const SelectionOffer> offer,
                             PasteboardContents contents);
    void clear();
    void acknowledge(qint64 changeCount);
    void discard(qint64 changeCount);
    /// Owns PRIMARY too, with the text of the pasteboard; nothing when there is none.
    void offerPrimary();
    /// Owns PRIMARY with what was marked in our own fields.
    void markText(std::shared_ptr<const SelectionOffer> offer);
    /// Gives the selection's text, at once or when its owner has given it.
    void askText(Pasteboard::Selection selection, SelectionQuestions::Receiver receive);
    /// Reads PRIMARY and publishes it if its owner and `target` belong to the same client.
    void publishPrimary(xcb_window_t target);
    /// From now on it is looked out for the client of `target` to ask for what we serve.
    void expectPaste(xcb_window_t target) { m_server.expectPaste(target); }
    void setFetchesTold(bool areTold) { m_areFetchesTold = areTold; }

    /// Who has asked for what we serve on the pasteboard, the latest last.
    std::vector<xcb_window_t> askers() const;

    /// Has another manager save what we own and calls `done` when it has, or at once when there is
    /// none to ask or nothing to save.
    void handOver(std::function<void()> done);

private:
    void handleOwnerChange(const xcb_xfixes_selection_notify_event_t &event);
    void handleClipboardOwner(const xcb_xfixes_selection_notify_event_t &event);
    void publishEmptied();
    void handleEnd(xcb_window_t window);
    void handlePrimaryOwner(const xcb_xfixes_selection_notify_event_t &event);
    void handleProperty(const xcb_generic_event_t &event);
    void handleAnswer(const xcb_generic_event_t &event);
    bool handleReading(const xcb_generic_event_t &event);
    void beginReading(xcb_window_t owner, xcb_timestamp_t time);
    void answerFromClipboard();
    void collectFinished();
    qint64 publish(const FetchedSelection &fetched, FrontWindowTracker::Question question);
    void publishClipboard(const FetchedSelection &fetched);
    void adoptIfWanted();
    void noteGiven(xcb_atom_t selection, xcb_window_t requestor);
    ClipboardManagerRole::Safety secure(xcb_window_t requestor);
    CopyQuestions::Useful useful() const;

    SelectionConnection &m_connection;
    PasteboardChanges &m_changes;
    PasteboardLimits m_limits;
    Listeners m_listeners;
    PropertyPool m_pool;
    SelectionReader m_clipboardReader;
    SelectionReader m_primaryReader;
    SelectionQuestions m_questions;
    SelectionServer m_server;
    ClipboardManagerRole m_managerRole;
    FrontWindowTracker m_front;
    FrontWindowTracker::Question m_clipboardFront; ///< At the change that is being read.
    FrontWindowTracker::Question m_primaryFront;
    QList<SelectionQuestions::Receiver> m_awaitingClipboard; ///< Until it has been read.
    KeptCopy m_kept;
    LeavingOwner m_leaving;
    xcb_timestamp_t m_clipboardTime = XCB_CURRENT_TIME; ///< Of what is being read.
    std::optional<xcb_timestamp_t> m_ownerDied; ///< Until its contents are adopted or forgotten.
    bool m_isClearing = false;
    bool m_areFetchesTold = false;
    std::function<void()> m_handedOver;
};
