#include "platform/x11/selection/X11Pasteboard.h"

#include "platform/pasteboard/CopyBytes.h"
#include "platform/x11/X11EventThread.h"
#include "platform/x11/selection/PasteboardService.h"
#include "platform/x11/selection/SelectionConnection.h"

#include <QLoggingCategory>

#include <future>
#include <utility>

Q_LOGGING_CATEGORY(lcPasteboard, "quillmarsh.pasteboard")

X11Pasteboard::X11Pasteboard(const ApplicationNames &names, const PasteboardLimits &limits)
    : m_limits(limits), m_connection(std::make_unique<SelectionConnection>(limits.now))
{
    PasteboardService::Listeners listeners;
    listeners.changed = [this](qint64 changeCount) { announce(changeCount); };
    listeners.pasteRead = [this] { announcePasteRead(); };
    listeners.fetched = [this] { announceFetched(); };
    m_service = std::make_unique<PasteboardService>(*m_connection, changes(), names, m_limits,
                                                    std::move(listeners));
    X11EventThread::Hooks hooks;
    hooks.now = m_limits.now;
    hooks.keepDeadlines = [this](X11EventThread::TimePoint now) {
        return m_service->keepDeadlines(now);
    };
    hooks.handleLoss = [] {
        qCWarning(lcPasteboard, "No connection to the X server: the pasteboard is not served");
    };
    m_thread = std::make_unique<X11EventThread>(
        m_connection->server(),
        [this](const xcb_generic_event_t &event) { m_service->handle(event); }, std::move(hooks));
    m_thread->post([this] { m_service->start(); });
}

X11Pasteboard::~X11Pasteboard() = default;

void X11Pasteboard::offerPrimary()
{
    if (m_thread && !m_thread->run([this] { m_service->offerPrimary(); }))
        qCDebug(lcPasteboard, "PRIMARY is not offered: the connection is lost");
}

void X11Pasteboard::publishPrimary(xcb_window_t target)
{
    if (m_thread)
        m_thread->post([this, target] { m_service->publishPrimary(target); });
}

void X11Pasteboard::expectPaste(xcb_window_t target)
{
    // Done when it returns, because the keystroke may be answered at once.
    const auto expect = [this, target] {
        changes().expectPaste();
        m_service->expectPaste(target);
    };
    if (m_thread && !m_thread->run(expect))
        qCDebug(lcPasteboard, "Nobody will read the paste: the connection is lost");
}

std::vector<xcb_window_t> X11Pasteboard::askers() const
{
    std::vector<xcb_window_t> askers;
    if (m_thread && !m_thread->run([&] { askers = m_service->askers(); }))
        return {};
    return askers;
}

void X11Pasteboard::acknowledge(qint64 changeCount)
{
    changes().acknowledge(changeCount);
    if (m_thread)
        m_thread->post([this, changeCount] { m_service->acknowledge(changeCount); });
}

void X11Pasteboard::discard(qint64 changeCount)
{
    changes().discard(changeCount);
    if (m_thread)
        m_thread->post([this, changeCount] { m_service->discard(changeCount); });
}

void X11Pasteboard::setFetchesTold(bool areTold)
{
    if (m_thread)
        m_thread->post([this, areTold] { m_service->setFetchesTold(areTold); });
}

bool X11Pasteboard::write(const Copy &copy)
{
    if (!m_thread)
        return false;
    PasteboardContents contents{copy.withText()};
    const auto offer = SelectionOffer::of(CopyBytes::of(contents), m_connection->atoms());
    bool isWritten = false;
    const bool hasRun =
        m_thread->run([&] { isWritten = m_service->write(offer, std::move(contents)); });
    return hasRun && isWritten;
}

void X11Pasteboard::clear()
{
    if (!m_thread || !m_thread->run([this] { m_service->clear(); }))
        changes().publishCleared();
}

bool X11Pasteboard::ask(Selection selection, Receiver receive)
{
    if (!m_thread)
        return false;
    m_thread->post([this, selection, receive = std::move(receive)] {
        m_service->askText(selection, receive);
    });
    return true;
}

void X11Pasteboard::markText(const QString &text)
{
    if (!m_thread)
        return;
    const auto offer = SelectionOffer::of(CopyBytes::of({text}), m_connection->atoms());
    m_thread->post([this, offer] { m_service->markText(offer); });
}

void X11Pasteboard::shutDown()
{
    if (!m_thread)
        return;
    // A selection is nobody's once its connection has gone: whoever is to keep it must have it by
    // then.
    // The task's alone: it is dropped when the connection is lost, which ends the wait, and the
    // answer may come when nobody waits any more.
    auto handedOver = std::make_shared<std::promise<void>>();
    const std::future<void> isHandedOver = handedOver->get_future();
    m_thread->post([this, handedOver = std::move(handedOver)] {
        m_service->handOver([handedOver] { handedOver->set_value(); });
    });
    isHandedOver.wait_for(m_limits.handover);
    m_thread.reset();
    m_service.reset();
    m_connection.reset();
}
