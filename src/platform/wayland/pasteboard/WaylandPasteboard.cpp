#include "platform/wayland/pasteboard/WaylandPasteboard.h"

#include "platform/wayland/WaylandConnection.h"

#include <QLoggingCategory>

#include <utility>

Q_LOGGING_CATEGORY(lcPasteboardCalls, "quillmarsh.pasteboard")

WaylandPasteboard::WaylandPasteboard(std::shared_ptr<WaylandConnection> connection, AskFront front,
                                     const PasteboardLimits &limits, DataControl::Make makeControl)
    : m_limits(limits), m_connection(std::move(connection))
{
    WaylandPasteboardService::Listeners listeners;
    listeners.changed = [this](qint64 changeCount) { announce(changeCount); };
    listeners.pasteRead = [this] { announcePasteRead(); };
    listeners.fetched = [this] { announceFetched(); };
    listeners.front = std::move(front);
    if (!makeControl)
        makeControl = [connection = m_connection](DataControl::Listeners told) {
            return DataControl::make(*connection, std::move(told));
        };
    const auto make = [&] {
        m_service = std::make_unique<WaylandPasteboardService>(
            *m_connection, std::move(makeControl), changes(), m_limits, std::move(listeners));
    };
    if (!m_connection->run(make))
        qCDebug(lcPasteboardCalls, "The compositor is gone already");
}

WaylandPasteboard::~WaylandPasteboard()
{
    WaylandPasteboard::shutDown();
}

void WaylandPasteboard::post(std::function<void()> task)
{
    // In the order of the calls, and not once the service has gone: that ends on the thread, too.
    if (m_connection && m_service)
        m_connection->post(std::move(task));
}

void WaylandPasteboard::lookAgain()
{
    post([this] { m_service->lookAgain(); });
}

void WaylandPasteboard::offerPrimary()
{
    if (m_service && !m_connection->run([this] { m_service->offerPrimary(); }))
        qCDebug(lcPasteboardCalls, "PRIMARY is not offered: the connection is lost");
}

void WaylandPasteboard::publishPrimary(quint64 window)
{
    post([this, window] { m_service->publishPrimary(window); });
}

void WaylandPasteboard::expectPaste()
{
    // Done when it returns, because the keystroke may be answered at once.
    const auto expect = [this] {
        changes().expectPaste();
        m_service->expectPaste();
    };
    if (m_service && !m_connection->run(expect))
        qCDebug(lcPasteboardCalls, "Nobody will read the paste: the connection is lost");
}

void WaylandPasteboard::acknowledge(qint64 changeCount)
{
    changes().acknowledge(changeCount);
    post([this, changeCount] { m_service->acknowledge(changeCount); });
}

void WaylandPasteboard::discard(qint64 changeCount)
{
    changes().discard(changeCount);
    post([this, changeCount] { m_service->discard(changeCount); });
}

void WaylandPasteboard::setFetchesTold(bool areTold)
{
    post([this, areTold] { m_service->setFetchesTold(areTold); });
}

bool WaylandPasteboard::write(const Copy &copy)
{
    if (!m_service)
        return false;
    PasteboardContents contents{copy.withText()};
    const auto offer = CopyOffer::of(CopyBytes::of(contents));
    bool isWritten = false;
    const bool hasRun =
        m_connection->run([&] { isWritten = m_service->write(offer, std::move(contents)); });
    return hasRun && isWritten;
}

void WaylandPasteboard::clear()
{
    if (!m_service || !m_connection->run([this] { m_service->clear(); }))
        changes().publishCleared();
}

bool WaylandPasteboard::ask(Selection selection, Receiver receive)
{
    if (!m_service)
        return false;
    post([this, selection, receive = std::move(receive)] {
        m_service->askText(selection, receive);
    });
    return true;
}

void WaylandPasteboard::markText(const QString &text)
{
    const auto offer = CopyOffer::of(CopyBytes::of(Copy{text}));
    post([this, offer] { m_service->markText(offer); });
}

void WaylandPasteboard::shutDown()
{
    if (!m_connection)
        return;
    // Other clipboard managers keep by themselves what nobody owns any more.
    const auto end = [this] { m_service.reset(); };
    if (!m_connection->run(end))
        end();
    m_connection.reset();
}
