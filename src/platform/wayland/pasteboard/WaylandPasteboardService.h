#pragma once

#include "platform/Pasteboard.h"
#include "platform/pasteboard/CopyOffer.h"
#include "platform/pasteboard/PasteboardChanges.h"
#include "platform/wayland/pasteboard/DataControl.h"
#include "platform/wayland/pasteboard/KeptOffer.h"
#include "platform/wayland/pasteboard/OfferReader.h"
#include "platform/wayland/pasteboard/PipeWriters.h"

#include <functional>
#include <list>
#include <map>
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
    using Receiver = std::function<void(const std::optional<QString> &text)>;

    /// What was in front when something was copied.
    struct Front
    {
        QString applicationName; ///< Empty when there is none to name.
        bool isOurs = false;
        quint64 window = 0; ///< Any number that tells it from others; 0 when it is not known.
    };
    struct Listeners
    {
        /// Told each published change of another client.
        std::function<void(qint64 changeCount)> changed;
        /// Told once for each expectPaste(), when what was pasted has been asked for.
        std::function<void()> pasteRead;
        /// Asked when the compositor has told of a copy.
        std::function<Front()> front;
    };

    /// Nothing is owned; everything must outlive this object.
    WaylandPasteboardService(WaylandConnection &connection, PasteboardChanges &changes,
                             const PasteboardLimits &limits, Listeners listeners);
    WaylandPasteboardService(const WaylandPasteboardService &) = delete;
    WaylandPasteboardService &operator=(const WaylandPasteboardService &) = delete;
    ~WaylandPasteboardService();

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
    void expectPaste();

private:
    /// A selection that is ours.
    struct Own
    {
        std::unique_ptr<DataSource> source;
        std::shared_ptr<const CopyOffer> offer;
        QString mark; ///< Among its formats, so that it is known when it comes back.
        TimePoint since;
        int timesRead = 0;
        bool isPasted = false; ///< While it was ours a paste was expected.
    };
    /// A copy that is being read, until it is published.
    struct Reading
    {
        std::unique_ptr<OfferReader> reader;
        Front front;
        std::shared_ptr<DataOffer> offer;
    };
    struct Question
    {
        std::unique_ptr<OfferReader> reader;
        QList<Receiver> receivers;
    };

    void renewControl();
    void handleFinished();
    void handleGlobal(const QByteArray &interface, quint32 name, bool isOffered);
    void handleChange(Selection selection, std::shared_ptr<DataOffer> offer);
    void handleClipboard(std::shared_ptr<DataOffer> offer);
    void handleOurs();
    void handleNobodys();
    void handleReplaced(Selection selection, const QString &mark);
    void handleReadOf(Selection selection, const QString &mark);
    bool claim(Selection selection, std::shared_ptr<const CopyOffer> offer);
    Own takeOwn(Selection selection);
    std::shared_ptr<const CopyOffer> ownOffer(Selection selection) const;
    void beginReading(std::shared_ptr<DataOffer> offer);
    void publishFinished();
    void publishAllNow();
    void publishReading(const OfferReader::Result &fetched);
    qint64 publish(const FetchedCopy &fetched, const Front &front);
    void publishEmptied();
    void collectPrimary();
    void finishClearing();
    void adoptIfWanted();
    void answerText(Pasteboard::Selection selection, Receiver receive);
    void ask(Selection selection, Receiver receive);
    void answerFinished(Selection selection);
    void answerAwaiting();
    void askAnew(Selection selection);
    std::optional<TimePoint> keepDeadlines();
    qint64 maxRead() const;

    WaylandConnection &m_connection;
    PasteboardChanges &m_changes;
    const PasteboardLimits &m_limits;
    Listeners m_listeners;
    std::unique_ptr<DataControl> m_control; ///< Null while the compositor offers none.
    quint32 m_controlSeat = 0;
    std::optional<TimePoint> m_renewAt; ///< After the compositor has ended it.
    PipeWriters m_writers;
    KeptOffer m_kept;
    std::map<Selection, Own> m_own;
    int m_marksMade = 0;
    std::shared_ptr<DataOffer> m_clipboard; ///< Another client's; null when it is ours or nobody's.
    std::shared_ptr<DataOffer> m_primary;
    Front m_primaryFront;
    std::list<Reading> m_readings; ///< In the order of the copies.
    OfferReader m_primaryReader;
    Front m_readPrimaryFront;
    std::map<Selection, Question> m_questions;
    QList<Receiver> m_awaitingClipboard; ///< Until it has been read.
    bool m_ownerDied = false;            ///< Until its contents are adopted or forgotten.
    bool m_wasOurs = false;              ///< Until it is known what took the place of ours.
    bool m_isClearing = false;
    bool m_isPasteAwaited = false;
    int m_readsOfPaste = 0;      ///< As many as one of them must be the paste.
    int m_readsWithoutPaste = 0; ///< Of what we wrote last that was not pasted: by managers.
};
