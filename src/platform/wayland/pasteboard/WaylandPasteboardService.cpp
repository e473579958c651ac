#include "platform/wayland/pasteboard/WaylandPasteboardService.h"

#include "platform/pasteboard/SelectionText.h"

#include <QLoggingCategory>

#include <algorithm>
#include <utility>

Q_LOGGING_CATEGORY(lcWaylandPasteboard, "quillmarsh.pasteboard", QtInfoMsg)

namespace {

using namespace std::chrono_literals;

// Between two attempts at a compositor that ends what it has begun.
constexpr std::chrono::milliseconds kRenewal = 1s;

} // namespace

WaylandPasteboardService::WaylandPasteboardService(WaylandConnection &connection,
                                                   DataControl::Make makeControl,
                                                   PasteboardChanges &changes,
                                                   const PasteboardLimits &limits,
                                                   Listeners listeners)
    : m_connection(connection), m_makeControl(std::move(makeControl)), m_changes(changes),
      m_limits(limits), m_listeners(std::move(listeners)),
      m_own(connection, limits, m_listeners.pasteRead, [this] { noteGiven(); }),
      m_readings(
          connection, limits,
          [this](const FetchedCopy &fetched, const Front &front,
                 const std::shared_ptr<DataOffer> &offer) { handleRead(fetched, front, offer); }),
      m_kept(connection, limits), m_questions(connection, limits),
      m_primaryReader(connection, limits, [this] { collectPrimary(); })
{
    m_connection.addDeadlines(this, [this](TimePoint) { return keepDeadlines(); });
    m_connection.addGlobalListener(
        this, [this](const QByteArray &interface, quint32 name, bool isOffered) {
            handleGlobal(interface, name, isOffered);
        });
    renewControl();
    if (!m_control)
        qCInfo(lcWaylandPasteboard, "Nobody is let follow the clipboard yet");
}

WaylandPasteboardService::~WaylandPasteboardService()
{
    m_connection.removeListeners(this);
}

void WaylandPasteboardService::renewControl()
{
    m_renewAt.reset();
    m_control = m_makeControl({[this](Selection selection, std::shared_ptr<DataOffer> offer) {
                                   handleChange(selection, std::move(offer));
                               },
                               [this] { handleFinished(); }});
    m_controlSeat = m_connection.seatName();
}

void WaylandPasteboardService::lookAgain()
{
    if (!m_control)
        renewControl();
}

bool WaylandPasteboardService::roundTrip()
{
    return m_control ? m_control->roundTrip() : m_connection.roundTrip();
}

void WaylandPasteboardService::handleFinished()
{
    qCInfo(lcWaylandPasteboard, "Our view of the clipboard has ended; trying anew");
    // Not at once: it might go on like that.
    m_renewAt = m_limits.now() + kRenewal;
    m_control.reset();
    m_own.giveUpAll();
    m_clipboard.reset();
    m_primary.reset();
}

void WaylandPasteboardService::handleGlobal(const QByteArray &, quint32 name, bool isOffered)
{
    if (!isOffered && m_control && name == m_controlSeat)
        handleFinished();
    lookAgain();
}

std::optional<WaylandPasteboardService::TimePoint> WaylandPasteboardService::keepDeadlines()
{
    const TimePoint now = m_limits.now();
    if (m_renewAt && now >= *m_renewAt)
        renewControl();
    adoptIfWanted();
    m_primaryReader.checkClock(now);
    collectPrimary();
    std::optional<TimePoint> next = m_renewAt;
    for (const auto deadline :
         {m_readings.keepDeadlines(now), m_primaryReader.deadline(), m_questions.keepDeadlines(now),
          m_kept.keepDeadlines(now), m_own.keepDeadlines(now)}) {
        if (deadline)
            next = next ? std::min(*next, *deadline) : deadline;
    }
    // By the clock of the limits, which need not be the one that the thread sleeps by.
    return next ? std::optional(std::chrono::steady_clock::now() + (*next - now)) : std::nullopt;
}

bool WaylandPasteboardService::write(std::shared_ptr<const CopyOffer> offer,
                                     PasteboardContents contents)
{
    if (!claim(Selection::Clipboard, std::move(offer)))
        return false;
    // Those that were copied before ours are counted before it.
    m_readings.endAll();
    forgetOwner();
    const Front front = m_listeners.front();
    contents.isOwnWrite = true;
    contents.applicationName = front.applicationName;
    contents.isOursInFront = front.isOurs;
    m_changes.publish(std::move(contents));
    answerAwaiting();
    return true;
}

bool WaylandPasteboardService::claim(Selection selection, std::shared_ptr<const CopyOffer> offer)
{
    if (!m_control || !m_own.claim(*m_control, selection, std::move(offer)))
        return false;
    (selection == Selection::Clipboard ? m_clipboard : m_primary).reset();
    askAnew(selection);
    return true;
}

void WaylandPasteboardService::clear()
{
    m_isClearing = true;
    if (m_control)
        m_control->empty(Selection::Clipboard);
    // Not before: some desktops put back what its owner gives up.
    m_own.giveUp(Selection::Clipboard);
    // What was copied before is told before that it is nobody's.
    if (m_control && !roundTrip())
        qCDebug(lcWaylandPasteboard, "cleared after the compositor's end");
    // It was nobody's already, of which nobody is told.
    if (m_isClearing)
        finishClearing();
}

void WaylandPasteboardService::finishClearing()
{
    m_isClearing = false;
    m_readings.endAll();
    forgetOwner();
    m_changes.publishCleared();
    answerAwaiting();
}

/// There is nothing to adopt.
void WaylandPasteboardService::forgetOwner()
{
    m_kept.forget();
    m_ownerDied = false;
}

void WaylandPasteboardService::acknowledge(qint64 changeCount)
{
    m_kept.acknowledge(changeCount);
}

void WaylandPasteboardService::discard(qint64 changeCount)
{
    m_kept.discard(changeCount);
}

void WaylandPasteboardService::offerPrimary()
{
    std::shared_ptr<const CopyOffer> offer = m_own.offer(Selection::Clipboard);
    if (!offer)
        offer = m_kept.offer();
    if (offer)
        offer = offer->textAlone();
    if (offer)
        markText(std::move(offer));
}

void WaylandPasteboardService::markText(std::shared_ptr<const CopyOffer> offer)
{
    if (!claim(Selection::Primary, std::move(offer)))
        qCDebug(lcWaylandPasteboard, "PRIMARY is somebody else's, or cannot be had");
}

void WaylandPasteboardService::askText(Pasteboard::Selection selection, Receiver receive)
{
    const bool isClipboard = selection == Pasteboard::Selection::Clipboard;
    // Whoever owns the selection now is who is meant, although the word of it may be on its way.
    if (roundTrip())
        answer(isClipboard ? Selection::Clipboard : Selection::Primary, std::move(receive));
    else
        receive(std::nullopt);
}

void WaylandPasteboardService::answer(Selection selection, Receiver receive)
{
    const bool isClipboard = selection == Selection::Clipboard;
    std::shared_ptr<const CopyOffer> offer = m_own.offer(selection);
    if (!offer && isClipboard && !m_readings.isEmpty()) {
        m_awaitingClipboard.append(std::move(receive));
        return;
    }
    if (!offer && isClipboard)
        offer = m_kept.offer();
    if (const auto text = offer ? offer->text() : std::nullopt)
        receive(SelectionText::fromUtf8(*text));
    else
        m_questions.ask(selection, isClipboard ? m_clipboard : m_primary, std::move(receive));
}

/// To those who asked while it was being read; what the history has no use for is asked again.
void WaylandPasteboardService::answerAwaiting()
{
    m_changes.setReading(false);
    const auto awaiting = std::exchange(m_awaitingClipboard, {});
    for (const Receiver &receive : awaiting)
        answer(Selection::Clipboard, receive);
}

/// Whoever asked for what was there before means what is there now.
void WaylandPasteboardService::askAnew(Selection selection)
{
    const auto unanswered = m_questions.takeUnanswered(selection);
    for (const Receiver &receive : unanswered)
        answer(selection, receive);
}

void WaylandPasteboardService::publishPrimary(quint64 window)
{
    // Nobody is told whose it is: it is the window's if it was marked with the window in front.
    if (!m_primary || (window != 0 && m_primaryFront.window != window))
        return;
    m_primaryReader.abandon();
    m_readPrimaryFront = m_listeners.front();
    m_primaryReader.begin(m_primary, {useful().text});
    collectPrimary();
}

void WaylandPasteboardService::collectPrimary()
{
    const auto fetched = m_primaryReader.takeFinished();
    // A terminal in which nothing is marked has copied nothing.
    if (fetched && (fetched->copy.text || fetched->isTextTooLarge || fetched->isConcealed))
        publish(*fetched, m_readPrimaryFront);
}

void WaylandPasteboardService::handleChange(Selection selection, std::shared_ptr<DataOffer> offer)
{
    const bool isOurs = m_own.confirm(selection, offer);
    if (selection == Selection::Clipboard)
        handleClipboard(isOurs, std::move(offer));
    else if (!isOurs)
        handlePrimary(std::move(offer));
    if (!isOurs)
        askAnew(selection);
}

void WaylandPasteboardService::handlePrimary(std::shared_ptr<DataOffer> offer)
{
    m_own.release(Selection::Primary);
    m_primary = std::move(offer);
    m_primaryFront = m_listeners.front();
}

void WaylandPasteboardService::handleClipboard(bool isOurs, std::shared_ptr<DataOffer> offer)
{
    m_readings.outdate();
    m_clipboard = isOurs ? nullptr : std::move(offer);
    if (isOurs) {
        m_ownerDied = false;
    } else if (!m_clipboard) {
        handleNobodys();
    } else {
        m_own.release(Selection::Clipboard);
        forgetOwner();
        m_changes.setReading(true);
        m_readings.begin(m_clipboard, m_listeners.front(), useful());
    }
}

/// Whether its owner has ended or has emptied it is not told, but whether it was ours is known.
void WaylandPasteboardService::handleNobodys()
{
    const bool wasOurs = m_own.release(Selection::Clipboard);
    if (m_isClearing) {
        finishClearing();
    } else if (wasOurs) {
        // Somebody emptied it on purpose.
        m_readings.endAll();
        forgetOwner();
        m_listeners.changed(m_changes.publishCleared());
    } else {
        m_kept.handleDeath();
        m_ownerDied = true;
    }
}

void WaylandPasteboardService::handleRead(const FetchedCopy &fetched, const Front &front,
                                          const std::shared_ptr<DataOffer> &offer)
{
    const qint64 changeCount = publish(fetched, front);
    // Those before the latest, and before ours, are nobody's to keep.
    if (!m_readings.isEmpty())
        return;
    if (!m_own.offer(Selection::Clipboard))
        m_kept.begin(changeCount, fetched, offer == m_clipboard ? offer : nullptr);
    answerAwaiting();
}

qint64 WaylandPasteboardService::publish(const FetchedCopy &fetched, const Front &front)
{
    PasteboardContents contents = fetched.contents(m_changes.maxUsefulText());
    contents.applicationName = front.applicationName;
    contents.isOursInFront = front.isOurs;
    const qint64 changeCount = m_changes.publish(std::move(contents));
    m_listeners.changed(changeCount);
    return changeCount;
}

/// Nobody is told who asks. With a window of ours in front it is no application that is pasted
/// into.
void WaylandPasteboardService::noteGiven()
{
    if (m_areFetchesTold && !m_listeners.front().isOurs)
        m_listeners.fetched();
}

void WaylandPasteboardService::adoptIfWanted()
{
    const auto isDue = [this] { return m_ownerDied && m_kept.isWanted() && m_kept.offer(); };
    // Nothing refuses us if somebody has copied since: what has happened by now is looked at first.
    if (!isDue() || !roundTrip() || !isDue())
        return;
    m_ownerDied = false;
    if (!claim(Selection::Clipboard, m_kept.offer()))
        qCDebug(lcWaylandPasteboard, "Somebody else has the clipboard that was to be kept");
}

CopyQuestions::Useful WaylandPasteboardService::useful() const
{
    return {std::max(m_changes.maxUsefulText(), PasteboardLimits::kMaxIdleText),
            m_changes.maxUsefulPicture()};
}
