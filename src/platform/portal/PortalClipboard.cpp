#include "platform/portal/PortalClipboard.h"

#include "platform/portal/PortalBus.h"
#include "platform/wayland/WaylandConnection.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QVariantMap>

#include <utility>

namespace {

const auto kInterface = QStringLiteral("org.freedesktop.portal.Clipboard");
const auto kOwnerChanged = QStringLiteral("SelectionOwnerChanged");
const auto kTransfer = QStringLiteral("SelectionTransfer");
/// A portal that takes longer has no part in anything any more.
constexpr int kAnswerLimitMs = 5000;

/// The names may come by themselves or, as some portals send them, in a structure.
QStringList namesIn(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<QStringList>())
        return value.toStringList();
    if (value.metaType() != QMetaType::fromType<QDBusArgument>())
        return {};
    const auto argument = value.value<QDBusArgument>();
    const bool isWrapped = argument.currentType() == QDBusArgument::StructureType;
    if (isWrapped)
        argument.beginStructure();
    QStringList names;
    if (argument.currentSignature() == u"as")
        argument >> names;
    // Else what holds the message would never let go of it.
    if (isWrapped)
        argument.endStructure();
    return names;
}

QString pathIn(const QDBusMessage &message)
{
    return message.arguments().value(0).value<QDBusObjectPath>().path();
}

} // namespace

std::shared_ptr<PortalClipboard>
PortalClipboard::make(const QDBusConnection &bus, std::shared_ptr<WaylandConnection> connection)
{
    std::shared_ptr<PortalClipboard> made(new PortalClipboard(bus, std::move(connection)));
    made->start();
    return made;
}

PortalClipboard::PortalClipboard(const QDBusConnection &bus,
                                 std::shared_ptr<WaylandConnection> connection)
    : m_bus(bus), m_connection(std::move(connection))
{
}

void PortalClipboard::start()
{
    m_thread.setObjectName(QStringLiteral("portal"));
    moveToThread(&m_thread);
    m_thread.start();
    QDBusConnection listening = m_bus;
    listening.connect(PortalBus::kService, PortalBus::kPath, kInterface, kOwnerChanged, this,
                      SLOT(handleOwnerChanged(QDBusMessage)));
    listening.connect(PortalBus::kService, PortalBus::kPath, kInterface, kTransfer, this,
                      SLOT(handleTransfer(QDBusMessage)));
}

PortalClipboard::~PortalClipboard()
{
    // Whoever listens to a connection goes before it: it ends on a thread of its own.
    QDBusConnection listened = m_bus;
    listened.disconnect(PortalBus::kService, PortalBus::kPath, kInterface, kOwnerChanged, this,
                        SLOT(handleOwnerChanged(QDBusMessage)));
    listened.disconnect(PortalBus::kService, PortalBus::kPath, kInterface, kTransfer, this,
                        SLOT(handleTransfer(QDBusMessage)));
    m_thread.quit();
    m_thread.wait();
}

void PortalClipboard::setSession(const QString &path)
{
    QString former;
    {
        const MutexLock lock(m_mutex);
        former = std::exchange(m_session, path);
    }
    if (former.isEmpty() || former == path)
        return;
    arrive([this] {
        const auto listeners = m_listeners;
        if (listeners)
            listeners->ended();
    });
}

QString PortalClipboard::session() const
{
    const MutexLock lock(m_mutex);
    return m_session;
}

void PortalClipboard::listen(std::unique_ptr<Listeners> listeners)
{
    m_listeners = std::move(listeners);
    m_told = 0;
    if (!m_listeners)
        return;
    arrive([this] {
        Change last;
        {
            const MutexLock lock(m_mutex);
            last = m_last;
        }
        tell(last);
    });
}

void PortalClipboard::tell(const Change &change)
{
    const auto listeners = m_listeners;
    if (!listeners || change.number <= m_told || change.session != session())
        return;
    m_told = change.number;
    listeners->changed(change.names, change.isOurs);
}

void PortalClipboard::call(const QString &method, const QVariantList &arguments, Reply reply)
{
    const QString path = session();
    if (path.isEmpty()) {
        arrive([reply = std::move(reply)] {
            reply(QDBusMessage::createError(QDBusError::Disconnected,
                                            QStringLiteral("the session has ended")));
        });
        return;
    }
    const QVariantList session{QVariant::fromValue(QDBusObjectPath(path))};
    send(PortalBus::message(kInterface, method, session + arguments), std::move(reply));
}

void PortalClipboard::ping(Reply reply)
{
    send(PortalBus::message(QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping")),
         std::move(reply));
}

/// From the thread that hears the signals, so that the answer comes in its place among them.
void PortalClipboard::send(const QDBusMessage &message, Reply reply)
{
    QMetaObject::invokeMethod(this, [this, message, reply = std::move(reply)] {
        auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, kAnswerLimitMs), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, reply] {
            watcher->deleteLater();
            arrive([answer = watcher->reply(), reply] { reply(answer); });
        });
    });
}

void PortalClipboard::arrive(Task task)
{
    {
        const MutexLock lock(m_mutex);
        m_arrivals.push_back(std::move(task));
    }
    m_arrived.notify_all();
    // One each: somebody who waits may have handled it by then.
    m_connection->post([clipboard = weak_from_this()] {
        if (const auto self = clipboard.lock())
            self->handleFirst();
    });
}

bool PortalClipboard::handleFirst()
{
    Task task;
    {
        const MutexLock lock(m_mutex);
        if (m_arrivals.empty())
            return false;
        task = std::move(m_arrivals.front());
        m_arrivals.pop_front();
    }
    task();
    return true;
}

bool PortalClipboard::handleUntil(TimePoint deadline, const std::function<bool()> &isReached)
{
    for (;;) {
        while (!isReached() && handleFirst()) {
        }
        if (isReached())
            return true;
        const MutexLock lock(m_mutex);
        if (m_arrivals.empty() && std::chrono::steady_clock::now() >= deadline)
            return false;
        if (m_arrivals.empty())
            m_arrived.wait_until(m_mutex, deadline);
    }
}

void PortalClipboard::handleOwnerChanged(const QDBusMessage &message)
{
    const auto options = qdbus_cast<QVariantMap>(message.arguments().value(1));
    Change change{pathIn(message), namesIn(options.value(QStringLiteral("mime_types"))),
                  options.value(QStringLiteral("session_is_owner")).toBool()};
    {
        const MutexLock lock(m_mutex);
        change.number = m_last.number + 1;
        m_last = change;
    }
    arrive([this, change] { tell(change); });
}

void PortalClipboard::handleTransfer(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    arrive([this, path = pathIn(message), name = arguments.value(1).toString(),
            serial = arguments.value(2).toUInt()] {
        const auto listeners = m_listeners;
        if (listeners && path == session())
            listeners->asked(name, serial);
    });
}
