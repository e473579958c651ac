#include "platform/x11/selection/PasteboardService.h"

#include "platform/pasteboard/SelectionText.h"

#include <algorithm>
#include <utility>

namespace {

template <typename Event>
const Event &as(const xcb_generic_event_t &event)
{
    return reinterpret_cast<const Event &>(event);
}

} // namespace

PasteboardService::PasteboardService(SelectionConnection &connection, PasteboardChanges &changes,
                                     const ApplicationNames &names, const PasteboardLimits &limits,
                                     Listeners listeners)
    : m_connection(connection), m_changes(changes), m_limits(limits),
      m_listeners(std::move(listeners)), m_pool(connection),
      m_clipboardReader(connection, m_pool, m_limits),
      m_primaryReader(connection, m_pool, m_limits), m_questions(connection, m_pool, m_limits),
      m_server(connection, m_limits.requestorStall,
               {[this](const xcb_generic_event_t &event) { handle(event); }, m_listeners.pasteRead,
                [this](xcb_atom_t selection, xcb_window_t requestor) {
                    noteGiven(selection, requestor);
                }}),
      m_managerRole(connection, m_limits.keep,
                    [this](xcb_window_t requestor) { return secure(requestor); }),
      m_front(connection.server(), names), m_kept(connection, m_pool, m_limits),
      m_leaving(connection, m_limits.keep)
{
}

void PasteboardService::start()
{
    const xcb_atom_t clipboard = m_connection.atoms().clipboard;
    // Watched before it is asked for, so that no copy falls between the two.
    m_connection.watchOwner(clipboard, true);
    const xcb_window_t owner = m_connection.owner(clipboard);
    m_front.start();
    if (owner != XCB_WINDOW_NONE) {
        m_leaving.begin(owner);
        // No event tells when it was copied; whatever is there now is meant.
        beginReading(owner, XCB_CURRENT_TIME);
    }
    m_managerRole.start();
}

void PasteboardService::handle(const xcb_generic_event_t &event)
{
    const int type = typeOf(event);
    if (type == m_connection.ownerChangeEvent() && type != 0)
        handleOwnerChange(as<xcb_xfixes_selection_notify_event_t>(event));
    else if (type == XCB_SELECTION_NOTIFY)
        handleAnswer(event);
    else if (type == XCB_PROPERTY_NOTIFY)
        handleProperty(event);
    else if (type == XCB_DESTROY_NOTIFY)
        handleEnd(as<xcb_destroy_notify_event_t>(event).window);
    else if (type == XCB_SELECTION_REQUEST) {
        const auto &request = as<xcb_selection_request_event_t>(event);
        if (request.selection == m_connection.atoms().clipboardManager)
            m_managerRole.handle(request);
        else
            m_server.handle(request);
    } else if (type == 0 && as<xcb_generic_error_t>(event).error_code == XCB_WINDOW)
        // A requestor that died before it got its answer, or an owner before it was watched.
        handleEnd(as<xcb_generic_error_t>(event).resource_id);
    collectFinished();
}

std::optional<PasteboardService::TimePoint> PasteboardService::keepDeadlines(TimePoint now)
{
    m_clipboardReader.checkClock(now);
    m_primaryReader.checkClock(now);
    collectFinished();
    if (m_leaving.isAwaited() && *m_leaving.deadline() <= now)
        publishEmptied();
    std::optional<TimePoint> next = m_server.transfers().keepDeadlines(now);
    for (const std::optional<TimePoint> deadline :
         {m_clipboardReader.deadline(), m_primaryReader.deadline(), m_questions.keepDeadlines(now),
          m_kept.keepDeadlines(now), m_managerRole.keepDeadlines(now), m_leaving.deadline()}) {
        if (deadline)
            next = next ? std::min(*next, *deadline) : deadline;
    }
    // One who waits for what was given up just now.
    m_managerRole.answerWaiting();
    return next;
}

bool PasteboardService::write(std::shared_ptr<const SelectionOffer> offer,
                              PasteboardContents contents)
{
    contents.isOwnWrite = true;
    // "Now" instead of a time: the server's own event tells the time that it took.
    if (!m_server.claim(m_connection.atoms().clipboard, std::move(offer), XCB_CURRENT_TIME))
        return false;
    // Only now is every window known that came to the front before.
    const auto front = m_front.answer(m_front.askAtCopy(m_connection.window()));
    contents.applicationName = front.applicationName;
    contents.isOursInFront = front.isOurs;
    m_changes.publish(std::move(contents));
    return true;
}

void PasteboardService::clear()
{
    m_isClearing = true;
    m_server.empty(m_connection.atoms().clipboard, [this] { return !m_isClearing; });
    if (std::exchange(m_isClearing, false))
        m_changes.publishCleared();
}

void PasteboardService::acknowledge(qint64 changeCount)
{
    m_kept.acknowledge(changeCount);
    adoptIfWanted();
    m_managerRole.answerWaiting();
}

void PasteboardService::discard(qint64 changeCount)
{
    m_kept.discard(changeCount);
    m_managerRole.answerWaiting();
}

void PasteboardService::offerPrimary()
{
    std::shared_ptr<const SelectionOffer> offer = m_server.offer(m_connection.atoms().clipboard);
    if (!offer)
        offer = m_kept.offer();
    if (offer)
        offer = offer->textAlone(m_connection.atoms());
    if (!offer)
        return;
    markText(std::move(offer));
}

void PasteboardService::markText(std::shared_ptr<const SelectionOffer> offer)
{
    m_connection.watchOwner(XCB_ATOM_PRIMARY, true);
    m_server.claim(XCB_ATOM_PRIMARY, std::move(offer), XCB_CURRENT_TIME);
}

void PasteboardService::askText(Pasteboard::Selection selection,
                                SelectionQuestions::Receiver receive)
{
    const bool isClipboard = selection == Pasteboard::Selection::Clipboard;
    const xcb_atom_t atom =
        isClipboard ? m_connection.atoms().clipboard : xcb_atom_t(XCB_ATOM_PRIMARY);
    std::shared_ptr<const SelectionOffer> offer = m_server.offer(atom);
    if (!offer && isClipboard && m_clipboardReader.isReading()) {
        m_awaitingClipboard.append(std::move(receive));
        return;
    }
    if (!offer && isClipboard)
        offer = m_kept.offer();
    if (const auto text = offer ? offer->text() : std::nullopt)
        receive(SelectionText::fromUtf8(*text));
    else
        m_questions.ask(atom, std::move(receive));
}

/// To those who asked while it was being read; what the history has no use for is asked again.
void PasteboardService::answerFromClipboard()
{
    m_changes.setReading(false);
    const auto awaiting = std::exchange(m_awaitingClipboard, {});
    for (const SelectionQuestions::Receiver &receive : awaiting)
        askText(Pasteboard::Selection::Clipboard, receive);
}

void PasteboardService::publishPrimary(xcb_window_t target)
{
    const xcb_window_t owner = m_connection.owner(XCB_ATOM_PRIMARY);
    if (owner == XCB_WINDOW_NONE || !m_connection.isSameClient(owner, target))
        return;
    if (m_primaryReader.isReading())
        m_primaryReader.abandon();
    m_primaryReader.begin(XCB_ATOM_PRIMARY, XCB_CURRENT_TIME, {useful().text});
    m_primaryFront = m_front.askAtCopy(owner);
}

std::vector<xcb_window_t> PasteboardService::askers() const
{
    return m_server.askers(m_connection.atoms().clipboard);
}

void PasteboardService::handOver(std::function<void()> done)
{
    const xcb_atom_t clipboard = m_connection.atoms().clipboard;
    const std::shared_ptr<const SelectionOffer> offer = m_server.offer(clipboard);
    if (offer && !offer->isEmpty() &&
        m_managerRole.requestSave(offer->targets(), m_server.time(clipboard)))
        m_handedOver = std::move(done);
    else
        done();
}

void PasteboardService::handleOwnerChange(const xcb_xfixes_selection_notify_event_t &event)
{
    if (event.selection == m_connection.atoms().clipboard)
        handleClipboardOwner(event);
    else if (event.selection == m_connection.atoms().clipboardManager)
        m_managerRole.handle(event);
    else if (event.selection == XCB_ATOM_PRIMARY)
        handlePrimaryOwner(event);
}

void PasteboardService::handleClipboardOwner(const xcb_xfixes_selection_notify_event_t &event)
{
    // Whatever the owner answered before this came before it; nothing more is to be had.
    if (m_clipboardReader.isReading())
        publishClipboard(m_clipboardReader.abandon());
    // XFixes tells the end of an owner's window or client from an owner that gives the selection
    // up. Only the end leaves something to adopt.
    if (event.subtype != XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER) {
        m_server.release(event.selection);
        m_kept.handleDeath();
        m_ownerDied = event.timestamp;
        adoptIfWanted();
        return;
    }
    // What empties it twice, or fills it, is not the end of its owner.
    if (m_leaving.isAwaited())
        publishEmptied();
    m_ownerDied.reset();
    if (event.owner == XCB_WINDOW_NONE) {
        m_server.release(event.selection);
        if (m_isClearing || !m_leaving.letGo(event.timestamp))
            publishEmptied();
        return;
    }
    m_kept.forget();
    m_leaving.begin(event.owner);
    if (event.owner == m_connection.window()) {
        m_server.confirm(event.selection, event.selection_timestamp);
        return;
    }
    m_server.release(event.selection);
    // ICCCM 2.4 wants a time instead of CurrentTime: with that of this change an owner that has
    // copied again by then refuses, and that copy is counted as a change of its own.
    beginReading(event.owner, event.selection_timestamp);
}

/// Somebody emptied it on purpose: no contents, and nothing to adopt.
void PasteboardService::publishEmptied()
{
    m_kept.forget();
    m_leaving.begin(XCB_WINDOW_NONE);
    const qint64 changeCount = m_changes.publishCleared();
    if (!std::exchange(m_isClearing, false))
        m_listeners.changed(changeCount);
}

void PasteboardService::handleEnd(xcb_window_t window)
{
    m_server.transfers().drop(window);
    if (const std::optional<xcb_timestamp_t> time = m_leaving.takeEnd(window)) {
        m_kept.handleDeath();
        m_ownerDied = time;
        adoptIfWanted();
    }
}

void PasteboardService::handlePrimaryOwner(const xcb_xfixes_selection_notify_event_t &event)
{
    if (event.owner == m_connection.window()) {
        m_server.confirm(event.selection, event.selection_timestamp);
        return;
    }
    m_server.release(event.selection);
    // Every text that is marked with the mouse changes PRIMARY: not watched longer than needed.
    m_connection.watchOwner(XCB_ATOM_PRIMARY, false);
}

void PasteboardService::handleProperty(const xcb_generic_event_t &event)
{
    const auto &property = as<xcb_property_notify_event_t>(event);
    if (property.window == m_connection.window())
        handleReading(event);
    else if (property.window == m_connection.server().root())
        m_front.handle(property);
    else
        m_server.transfers().handle(property);
}

void PasteboardService::handleAnswer(const xcb_generic_event_t &event)
{
    const auto &answer = as<xcb_selection_notify_event_t>(event);
    if (!m_managerRole.isSaveAnswer(answer)) {
        if (!handleReading(event))
            m_pool.handleLate(answer);
    } else if (m_handedOver) {
        std::exchange(m_handedOver, nullptr)();
    }
}

/// True when somebody waited for it.
bool PasteboardService::handleReading(const xcb_generic_event_t &event)
{
    return m_clipboardReader.handle(event) || m_primaryReader.handle(event) ||
           m_kept.handle(event) || m_questions.handle(event);
}

void PasteboardService::beginReading(xcb_window_t owner, xcb_timestamp_t time)
{
    m_clipboardTime = time;
    m_changes.setReading(true);
    m_clipboardReader.begin(m_connection.atoms().clipboard, time, useful());
    m_clipboardFront = m_front.askAtCopy(owner);
}

void PasteboardService::collectFinished()
{
    if (const auto fetched = m_clipboardReader.takeFinished())
        publishClipboard(*fetched);
    const auto primary = m_primaryReader.takeFinished();
    // A terminal in which nothing is marked has copied nothing.
    if (primary && (primary->copy.text || primary->isTextTooLarge || primary->isConcealed))
        publish(*primary, std::move(m_primaryFront));
    m_managerRole.answerWaiting();
}

qint64 PasteboardService::publish(const FetchedSelection &fetched,
                                  FrontWindowTracker::Question question)
{
    const FrontWindowTracker::Front front = m_front.answer(std::move(question));
    PasteboardContents contents = fetched.contents(m_changes.maxUsefulText());
    contents.applicationName = front.applicationName;
    contents.isOursInFront = front.isOurs;
    const qint64 changeCount = m_changes.publish(std::move(contents));
    m_listeners.changed(changeCount);
    return changeCount;
}

void PasteboardService::publishClipboard(const FetchedSelection &fetched)
{
    const qint64 changeCount = publish(fetched, std::move(m_clipboardFront));
    m_kept.begin(changeCount, fetched, m_clipboardTime);
    answerFromClipboard();
}

void PasteboardService::adoptIfWanted()
{
    if (!m_ownerDied || !m_kept.isWanted() || !m_kept.offer())
        return;
    // With the time of the death, so that the server refuses when somebody has copied since.
    m_server.claim(m_connection.atoms().clipboard, m_kept.offer(),
                   *std::exchange(m_ownerDied, std::nullopt));
}

/// Whoever asks without being in front does so on its own account, as other clipboard managers do.
void PasteboardService::noteGiven(xcb_atom_t selection, xcb_window_t requestor)
{
    const xcb_window_t front = m_front.window();
    if (m_areFetchesTold && selection == m_connection.atoms().clipboard && front != XCB_NONE &&
        m_connection.isSameClient(requestor, front))
        m_listeners.fetched();
}

ClipboardManagerRole::Safety PasteboardService::secure(xcb_window_t requestor)
{
    using Safety = ClipboardManagerRole::Safety;
    if (m_clipboardReader.isReading())
        return Safety::BeingRead;
    if (m_server.isServing(m_connection.atoms().clipboard))
        return Safety::Saved;
    const Safety safety = m_kept.secure();
    if (safety == Safety::Saved)
        m_leaving.save(requestor);
    return safety;
}

CopyQuestions::Useful PasteboardService::useful() const
{
    return {std::max(m_changes.maxUsefulText(), PasteboardLimits::kMaxIdleText),
            m_changes.maxUsefulPicture()};
}
