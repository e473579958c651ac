#pragma once

#include "platform/Pasteboard.h"
#include "platform/pasteboard/CopyOffer.h"
#include "platform/pasteboard/PasteboardChanges.h"
#include "platform/wayland/pasteboard/CopyReadings.h"
#include "platform/wayland/pasteboard/DataControl.h"
#include "platform/wayland/pasteboard/KeptOffer.h"
#include "platform/wayland/pasteboard/OfferReader.h"
#include "platform/wayland/pasteboard/OwnSelections.h"
#include "platform/wayland/pasteboard/TextQuestions.h"

#include <functional>
#include <memory>
#include <optional>

/// The pasteboard server that Wayland lacks: follows the selections by data-control, reads what
/// others copy, publishes it in its order, keeps it alive after its owner's death, and serves what
/// we write. Owned by WaylandPasteboard; on the connection's thread once that is started. It waits
/// for the compositor, never for another client.
class WaylandPasteboardService
{
public:
    using TimePoint = WaylandConnection::TimePoint;
    using Selection = DataControl::Selection;
    using Receiver = TextQuestions::Receiver;
    using Front = CopyFront;

    struct Listeners
    {
        /// Told each published change of another client.
        std::function<void(qint64 changeCount)> changed;
        /// Told once for each expectPaste(), when what was pasted has been asked for.
        std::function<void()> pasteRead;
        /// Told when the application in front has asked for what we serve, while that is wanted.
        std::function<void()> fetched;
        /// Asked when the compositor has told of a copy.
        std::function<Front()> front;
    };

    /// Nothing is owned; everything must outlive this object. `makeControl` is tried at once, when
    /// the compositor offers something else, and again by lookAgain().
    WaylandPasteboardService(WaylandConnection &connection, DataControl::Make makeControl,
                             PasteboardChanges &changes, const PasteboardLimits &limits,
                             Listeners listeners);
    WaylandPasteboardService(const WaylandPasteboardService &) = delete;
    WaylandPasteboardService &operator=(const WaylandPasteboardService &) = delete;
    ~WaylandPasteboardService();

    /// The clipboard may be followed by now.
    void lookAgain();

    /// Becomes the owner and publishes `contents`. False when the compositor did not confirm it.
    [[nodiscard]] bool write(std::shared_ptr<const CopyOffer> offer, PasteboardContents contents);
    void clear();
    void acknowledge(qint64 changeCount);
    void discard(qint64 changeCount);
    /// Owns PRIMARY too, with the text of the pasteboard; nothing when there is none.
    void offerPrimary();
    /// Owns PRIMARY with what was marked in our own fields.
    void markText(std::shared_ptr<const CopyOffer> offer);
    /// Gives the selection's text, at once or when its owner has given it.
    void askText(Pasteboard::Selection selection, Receiver receive);
    /// Reads PRIMARY and publishes it if it was marked while `window` was in front.
    void publishPrimary(quint64 window);
    /// From now on it is looked out for somebody to ask for what we serve.
    void expectPaste() { m_own.expectPaste(); }
    void setFetchesTold(bool areTold) { m_areFetchesTold = areTold; }

private:
    void renewControl();
    bool roundTrip();
    void handleFinished();
    void handleGlobal(const QByteArray &interface, quint32 name, bool isOffered);
    void handleChange(Selection selection, std::shared_ptr<DataOffer> offer);
    void handlePrimary(std::shared_ptr<DataOffer> offer);
    void handleClipboard(bool isOurs, std::shared_ptr<DataOffer> offer);
    void handleNobodys();
    [[nodiscard]] bool claim(Selection selection, std::shared_ptr<const CopyOffer> offer);
    void handleRead(const FetchedCopy &fetched, const Front &front,
                    const std::shared_ptr<DataOffer> &offer);
    qint64 publish(const FetchedCopy &fetched, const Front &front);
    void forgetOwner();
    void finishClearing();
    void collectPrimary();
    void adoptIfWanted();
    void answer(Selection selection, Receiver receive);
    void answerAwaiting();
    void askAnew(Selection selection);
    std::optional<TimePoint> keepDeadlines();
    void noteGiven();
    CopyQuestions::Useful useful() const;

    WaylandConnection &m_connection;
    const DataControl::Make m_makeControl;
    PasteboardChanges &m_changes;
    const PasteboardLimits &m_limits;
    Listeners m_listeners;
    std::unique_ptr<DataControl> m_control; ///< Null while none is offered.
    quint32 m_controlSeat = 0;
    std::optional<TimePoint> m_renewAt; ///< After the compositor has ended it.
    OwnSelections m_own;
    CopyReadings m_readings;
    KeptOffer m_kept;
    TextQuestions m_questions;
    OfferReader m_primaryReader;
    Front m_readPrimaryFront;               ///< When it began to read.
    std::shared_ptr<DataOffer> m_clipboard; ///< Another client's; null when it is ours or nobody's.
    std::shared_ptr<DataOffer> m_primary;
    Front m_primaryFront;
    QList<Receiver> m_awaitingClipboard; ///< Until it has been read.
    bool m_ownerDied = false;            ///< Until its contents are adopted or forgotten.
    bool m_isClearing = false;
    bool m_areFetchesTold = false;
};
