#include "platform/wayland/pasteboard/WaylandPasteboardService.h"

#include "platform/pasteboard/SelectionText.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <unistd.h>

#include <algorithm>
#include <utility>

Q_LOGGING_CATEGORY(lcWaylandPasteboard, "quillmarsh.pasteboard", QtInfoMsg)

namespace {

using namespace std::chrono_literals;

// As many copies as may wait for their owners; more would take too many descriptors.
constexpr std::size_t kMaxReadings = 16;
// Other clipboard managers have read by then what they will read.
constexpr std::chrono::milliseconds kManagersRead = 100ms;
// Between two attempts at a compositor that ends what it has begun.
constexpr std::chrono::milliseconds kRenewal = 1s;
// Few, because each becomes an atom of the X server where there is one beside.
constexpr int kMarks = 4;

} // namespace

WaylandPasteboardService::WaylandPasteboardService(WaylandConnection &connection,
                                                   PasteboardChanges &changes,
                                                   const PasteboardLimits &limits,
                                                   Listeners listeners)
    : m_connection(connection), m_changes(changes), m_limits(limits),
      m_listeners(std::move(listeners)), m_writers(connection, limits.now, limits.requestorStall),
      m_kept(connection, limits), m_primaryReader(connection, limits, [this] { collectPrimary(); })
{
    m_connection.addDeadlines(this, [this](TimePoint) { return keepDeadlines(); });
    m_connection.addGlobalListener(
        this, [this](const QByteArray &interface, quint32 name, bool isOffered) {
            handleGlobal(interface, name, isOffered);
        });
    renewControl();
    if (!m_control)
        qCInfo(lcWaylandPasteboard, "The compositor lets nobody follow the clipboard yet");
}

WaylandPasteboardService::~WaylandPasteboardService()
{
    m_connection.removeListeners(this);
}

void WaylandPasteboardService::renewControl()
{
    m_renewAt.reset();
    m_control = DataControl::make(m_connection,
                                  {[this](Selection selection, std::shared_ptr<DataOffer> offer) {
                                       handleChange(selection, std::move(offer));
                                   },
                                   [this] { handleFinished(); }});
    m_controlSeat = m_connection.seatName();
}

void WaylandPasteboardService::handleFinished()
{
    qCInfo(lcWaylandPasteboard, "The compositor has ended our view of the clipboard; trying anew");
    // Not at once: it might go on like that.
    m_renewAt = m_limits.now() + kRenewal;
    m_control.reset();
    m_own.clear();
    m_clipboard.reset();
    m_primary.reset();
}

void WaylandPasteboardService::handleGlobal(const QByteArray &, quint32 name, bool isOffered)
{
    if (!isOffered && m_control && name == m_controlSeat) {
        handleFinished();
    }
    if (!m_control)
        renewControl();
}

std::optional<WaylandPasteboardService::TimePoint> WaylandPasteboardService::keepDeadlines()
{
    const TimePoint now = m_limits.now();
    if (m_renewAt && now >= *m_renewAt)
        renewControl();
    adoptIfWanted();
    for (const Reading &reading : m_readings)
        reading.reader->checkClock(now);
    publishFinished();
    m_primaryReader.checkClock(now);
    collectPrimary();
    for (const Selection selection : {Selection::Clipboard, Selection::Primary}) {
        if (const auto question = m_questions.find(selection); question != m_questions.end())
            question->second.reader->checkClock(now);
        answerFinished(selection);
    }
    std::optional<TimePoint> next = m_renewAt;
    const auto include = [&next](std::optional<TimePoint> deadline) {
        if (deadline)
            next = next ? std::min(*next, *deadline) : deadline;
    };
    for (const Reading &reading : m_readings)
        include(reading.reader->deadline());
    for (const auto &[selection, question] : m_questions)
        include(question.reader->deadline());
    include(m_primaryReader.deadline());
    include(m_kept.keepDeadlines(now));
    include(m_writers.keepDeadlines(now));
    // By the clock of the limits, which need not be the one that the thread sleeps by.
    return next ? std::optional(std::chrono::steady_clock::now() + (*next - now)) : std::nullopt;
}

bool WaylandPasteboardService::write(std::shared_ptr<const CopyOffer> offer,
                                     PasteboardContents contents)
{
    if (!claim(Selection::Clipboard, std::move(offer)))
        return false;
    // Those that were copied before ours are counted before it.
    publishAllNow();
    m_kept.forget();
    m_ownerDied = false;
    const Front front = m_listeners.front();
    contents.isOwnWrite = true;
    contents.applicationName = front.applicationName;
    contents.isOursInFront = front.isOurs;
    m_changes.publish(std::move(contents));
    answerAwaiting();
    return true;
}

void WaylandPasteboardService::clear()
{
    m_own.erase(Selection::Clipboard);
    m_isClearing = true;
    if (m_control) {
        m_control->empty(Selection::Clipboard);
        // What was copied before is told before that it is nobody's.
        if (!m_connection.roundTrip())
            qCDebug(lcWaylandPasteboard, "cleared after the compositor's end");
    }
    // It was nobody's already, of which nobody is told.
    if (m_isClearing)
        finishClearing();
}

void WaylandPasteboardService::finishClearing()
{
    m_isClearing = false;
    publishAllNow();
    m_kept.forget();
    m_ownerDied = false;
    m_changes.publishCleared();
    answerAwaiting();
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
    std::shared_ptr<const CopyOffer> offer = ownOffer(Selection::Clipboard);
    if (!offer)
        offer = m_kept.offer();
    if (offer)
        offer = offer->textAlone();
    if (offer)
        markText(std::move(offer));
}

void WaylandPasteboardService::markText(std::shared_ptr<const CopyOffer> offer)
{
    claim(Selection::Primary, std::move(offer));
}

void WaylandPasteboardService::askText(Pasteboard::Selection selection, Receiver receive)
{
    // Whoever owns the selection now is who is meant, although the word of it may be on its way.
    if (m_connection.roundTrip())
        answerText(selection, std::move(receive));
    else
        receive(std::nullopt);
}

void WaylandPasteboardService::answerText(Pasteboard::Selection selection, Receiver receive)
{
    const bool isClipboard = selection == Pasteboard::Selection::Clipboard;
    const Selection asked = isClipboard ? Selection::Clipboard : Selection::Primary;
    std::shared_ptr<const CopyOffer> offer = ownOffer(asked);
    if (!offer && isClipboard && !m_readings.empty()) {
        m_awaitingClipboard.append(std::move(receive));
        return;
    }
    if (!offer && isClipboard)
        offer = m_kept.offer();
    if (const auto text = offer ? offer->text() : std::nullopt)
        receive(SelectionText::fromUtf8(*text));
    else
        ask(asked, std::move(receive));
}

/// To those who asked while it was being read; what the history has no use for is asked again.
void WaylandPasteboardService::answerAwaiting()
{
    m_changes.setReading(false);
    const auto awaiting = std::exchange(m_awaitingClipboard, {});
    for (const Receiver &receive : awaiting)
        answerText(Pasteboard::Selection::Clipboard, receive);
}

void WaylandPasteboardService::ask(Selection selection, Receiver receive)
{
    const std::shared_ptr<DataOffer> &offer =
        selection == Selection::Clipboard ? m_clipboard : m_primary;
    if (!offer) {
        receive(std::nullopt);
        return;
    }
    Question &question = m_questions[selection];
    // One question for all who ask meanwhile, so that a hung owner costs its time once.
    question.receivers.append(std::move(receive));
    if (!question.reader)
        question.reader = std::make_unique<OfferReader>(
            m_connection, m_limits, [this, selection] { answerFinished(selection); });
    if (question.reader->isReading())
        return;
    question.reader->begin(offer, PasteboardLimits::kMaxIdleText, OfferReader::Wish::Text);
    answerFinished(selection);
}

void WaylandPasteboardService::answerFinished(Selection selection)
{
    const auto question = m_questions.find(selection);
    const auto fetched =
        question == m_questions.end() ? std::nullopt : question->second.reader->takeFinished();
    if (!fetched)
        return;
    const std::optional<QString> text = fetched->copy.copy().text;
    // Taken first: who receives may ask again.
    const auto receivers = std::exchange(question->second.receivers, {});
    for (const Receiver &receive : receivers)
        receive(text);
}

/// Whoever asked for what was there before means what is there now.
void WaylandPasteboardService::askAnew(Selection selection)
{
    const auto question = m_questions.find(selection);
    if (question == m_questions.end() || !question->second.reader->isReading())
        return;
    question->second.reader->abandon();
    const auto receivers = std::exchange(question->second.receivers, {});
    for (const Receiver &receive : receivers)
        answerText(selection == Selection::Clipboard ? Pasteboard::Selection::Clipboard
                                                     : Pasteboard::Selection::Primary,
                   receive);
}

void WaylandPasteboardService::publishPrimary(quint64 window)
{
    // Nobody is told whose it is: it is the window's if it was marked with the window in front.
    if (!m_primary || (window != 0 && m_primaryFront.window != window))
        return;
    m_primaryReader.abandon();
    m_readPrimaryFront = m_listeners.front();
    m_primaryReader.begin(m_primary, maxRead());
    collectPrimary();
}

void WaylandPasteboardService::collectPrimary()
{
    const auto fetched = m_primaryReader.takeFinished();
    // A terminal in which nothing is marked has copied nothing.
    if (fetched && (fetched->copy.text || fetched->isTextTooLarge || fetched->isConcealed))
        publish(*fetched, m_readPrimaryFront);
}

void WaylandPasteboardService::expectPaste()
{
    m_isPasteAwaited = true;
    Own *own = m_own.contains(Selection::Clipboard) ? &m_own[Selection::Clipboard] : nullptr;
    if (own)
        own->isPasted = true;
    m_readsOfPaste = std::max(own ? own->timesRead : 0, m_readsWithoutPaste) + 1;
}

void WaylandPasteboardService::handleChange(Selection selection, std::shared_ptr<DataOffer> offer)
{
    const auto own = m_own.find(selection);
    const bool isOurs = offer && own != m_own.end() && offer->names().contains(own->second.mark);
    if (isOurs) {
        // What took its place says so first: what is told before this came before ours.
        if (selection == Selection::Clipboard)
            handleOurs();
        return;
    }
    if (selection == Selection::Clipboard) {
        handleClipboard(std::move(offer));
    } else {
        m_primary = std::move(offer);
        m_primaryFront = m_listeners.front();
    }
    askAnew(selection);
}

void WaylandPasteboardService::handleOurs()
{
    for (const Reading &reading : m_readings)
        reading.reader->outdate();
    publishFinished();
    m_clipboard.reset();
    m_ownerDied = false;
}

void WaylandPasteboardService::handleClipboard(std::shared_ptr<DataOffer> offer)
{
    for (const Reading &reading : m_readings)
        reading.reader->outdate();
    publishFinished();
    m_clipboard = std::move(offer);
    if (!m_clipboard) {
        handleNobodys();
        return;
    }
    m_wasOurs = false;
    m_kept.forget();
    m_ownerDied = false;
    beginReading(m_clipboard);
}

/// Whether its owner has ended or has emptied it is not told, but whose it was is known.
void WaylandPasteboardService::handleNobodys()
{
    const bool wasOurs = std::exchange(m_wasOurs, false);
    if (m_isClearing) {
        finishClearing();
        return;
    }
    if (wasOurs) {
        publishEmptied();
        return;
    }
    m_kept.handleDeath();
    m_ownerDied = true;
}

void WaylandPasteboardService::handleReplaced(Selection selection, const QString &mark)
{
    const auto own = m_own.find(selection);
    if (own == m_own.end() || own->second.mark != mark)
        return;
    m_wasOurs |= selection == Selection::Clipboard;
    takeOwn(selection);
}

WaylandPasteboardService::Own WaylandPasteboardService::takeOwn(Selection selection)
{
    const auto own = m_own.find(selection);
    if (own == m_own.end())
        return {};
    Own taken = std::move(own->second);
    m_own.erase(own);
    if (selection == Selection::Clipboard && !taken.isPasted &&
        m_limits.now() - taken.since >= kManagersRead)
        m_readsWithoutPaste = taken.timesRead;
    return taken;
}

void WaylandPasteboardService::handleReadOf(Selection selection, const QString &mark)
{
    const auto own = m_own.find(selection);
    if (selection != Selection::Clipboard || own == m_own.end() || own->second.mark != mark)
        return;
    ++own->second.timesRead;
    if (!m_isPasteAwaited || own->second.timesRead < m_readsOfPaste)
        return;
    m_isPasteAwaited = false;
    m_listeners.pasteRead();
}

bool WaylandPasteboardService::claim(Selection selection, std::shared_ptr<const CopyOffer> offer)
{
    if (!m_control)
        return false;
    const QString mark = QStringLiteral("application/x-quillmarsh-copy;process=%1;number=%2")
                             .arg(QCoreApplication::applicationPid())
                             .arg(++m_marksMade % kMarks);
    DataSource::Listeners listeners;
    listeners.asked = [this, selection, mark, offer](const QString &name, int fd) {
        const auto bytes = offer->convert(name);
        if (!bytes) {
            close(fd);
            return;
        }
        m_writers.send(fd, *bytes);
        handleReadOf(selection, mark);
    };
    listeners.replaced = [this, selection, mark] { handleReplaced(selection, mark); };
    auto source =
        m_control->own(selection, offer->names() + QStringList{mark}, std::move(listeners));
    if (!source)
        return false;
    // Until the compositor has read it, requests that come are meant for what was ours before.
    const Own former = takeOwn(selection);
    m_own[selection] = {std::move(source), std::move(offer), mark, m_limits.now()};
    // What came before the confirmation is handled before it, in order.
    const bool isDone = m_connection.roundTrip();
    const auto current = m_own.find(selection);
    if (!isDone || current == m_own.end() || current->second.mark != mark)
        return false;
    (selection == Selection::Clipboard ? m_clipboard : m_primary).reset();
    askAnew(selection);
    return true;
}

std::shared_ptr<const CopyOffer> WaylandPasteboardService::ownOffer(Selection selection) const
{
    const auto own = m_own.find(selection);
    return own == m_own.end() ? nullptr : own->second.offer;
}

void WaylandPasteboardService::beginReading(std::shared_ptr<DataOffer> offer)
{
    if (m_readings.size() == kMaxReadings)
        publishReading(m_readings.front().reader->abandon());
    m_changes.setReading(true);
    auto reader =
        std::make_unique<OfferReader>(m_connection, m_limits, [this] { publishFinished(); });
    m_readings.push_back({std::move(reader), m_listeners.front(), offer});
    m_readings.back().reader->begin(std::move(offer), maxRead());
    publishFinished();
}

/// One that is read before an earlier one waits for it.
void WaylandPasteboardService::publishFinished()
{
    while (!m_readings.empty()) {
        const auto fetched = m_readings.front().reader->takeFinished();
        if (!fetched)
            return;
        publishReading(*fetched);
    }
}

void WaylandPasteboardService::publishAllNow()
{
    while (!m_readings.empty())
        publishReading(m_readings.front().reader->abandon());
}

/// Of the first one that is being read.
void WaylandPasteboardService::publishReading(const OfferReader::Result &fetched)
{
    const Front front = m_readings.front().front;
    const std::shared_ptr<DataOffer> offer = m_readings.front().offer;
    const bool isLatest = m_readings.size() == 1 && !ownOffer(Selection::Clipboard);
    // To the end of this: it may be the one who calls.
    const std::unique_ptr<OfferReader> reader = std::move(m_readings.front().reader);
    m_readings.pop_front();
    const qint64 changeCount = publish(fetched, front);
    if (isLatest)
        m_kept.begin(changeCount, fetched, offer == m_clipboard ? offer : nullptr);
    if (m_readings.empty())
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

/// Somebody emptied it on purpose: no contents, and nothing to adopt.
void WaylandPasteboardService::publishEmptied()
{
    publishAllNow();
    m_kept.forget();
    m_ownerDied = false;
    m_listeners.changed(m_changes.publishCleared());
}

void WaylandPasteboardService::adoptIfWanted()
{
    const auto isDue = [this] { return m_ownerDied && m_kept.isWanted() && m_kept.offer(); };
    // Nothing refuses us if somebody has copied since: what has happened by now is looked at first.
    if (!isDue() || !m_connection.roundTrip() || !isDue())
        return;
    m_ownerDied = false;
    claim(Selection::Clipboard, m_kept.offer());
}

qint64 WaylandPasteboardService::maxRead() const
{
    return std::max(m_changes.maxUsefulText(), PasteboardLimits::kMaxIdleText);
}
