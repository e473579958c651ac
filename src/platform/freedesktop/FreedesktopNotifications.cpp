#include "platform/freedesktop/FreedesktopNotifications.h"

#include "platform/Info.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(lcNotifications, "quillmarsh.platform.notifications", QtInfoMsg)

const auto kService = QStringLiteral("org.freedesktop.Notifications");
const auto kPath = QStringLiteral("/org/freedesktop/Notifications");
const auto kClick = QStringLiteral("default");
/// The server chooses how long a notification stays.
constexpr int kServersOwnTimeout = -1;

} // namespace

FreedesktopNotifications::FreedesktopNotifications(QDBusConnection bus,
                                                   std::chrono::milliseconds answerLimit)
    : m_bus(std::move(bus)), m_answerLimitMs(static_cast<int>(answerLimit.count()))
{
    if (!m_bus.isConnected())
        return;
    m_serverWatcher.setConnection(m_bus);
    m_serverWatcher.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    m_serverWatcher.addWatchedService(kService);
    connect(&m_serverWatcher, &QDBusServiceWatcher::serviceOwnerChanged, this, [this] {
        m_abilities.reset();
        // Another server gives the same numbers to other notifications.
        m_activations.clear();
    });
    // Servers may send these to everybody, about the notifications of all programs: the numbers
    // tell ours.
    m_bus.connect(kService, kPath, kService, QStringLiteral("ActionInvoked"), this,
                  SLOT(actionInvoked(uint, QString)));
    m_bus.connect(kService, kPath, kService, QStringLiteral("NotificationClosed"), this,
                  SLOT(notificationClosed(uint, uint)));
}

void FreedesktopNotifications::deliver(const QString &title, const QString &subtitle,
                                       const std::function<void()> &activated)
{
    // Without a bus a pending call would never finish, so nothing would be said about it.
    if (!m_bus.isConnected()) {
        qCWarning(lcNotifications, "notification dropped, there is no session bus: %s",
                  qUtf8Printable(title));
        return;
    }
    if (m_abilities) {
        send({title, subtitle, activated});
        return;
    }
    m_waiting.append({title, subtitle, activated});
    if (!m_isAsking)
        askCapabilities();
}

void FreedesktopNotifications::askCapabilities()
{
    m_isAsking = true;
    const auto call = QDBusMessage::createMethodCall(kService, kPath, kService,
                                                     QStringLiteral("GetCapabilities"));
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, m_answerLimitMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        m_isAsking = false;
        const auto waiting = std::exchange(m_waiting, {});
        const QDBusPendingReply<QStringList> reply = *watcher;
        // A server without GetCapabilities is a simple one, which still shows what it is sent.
        if (reply.isError() && reply.error().type() != QDBusError::UnknownMethod) {
            drop(reply.error());
            return;
        }
        const QStringList capabilities = reply.isError() ? QStringList() : reply.value();
        m_abilities = Abilities{capabilities.contains(QStringLiteral("body-markup")),
                                capabilities.contains(QStringLiteral("actions"))};
        for (const Message &message : waiting)
            send(message);
    });
}

void FreedesktopNotifications::send(const Message &message)
{
    // By "desktop-entry" the desktop finds our icon and the user's wishes for us. "transient" keeps
    // it out of the list of those that wait to be read: it is out of date in a minute.
    const QVariantMap hints{
        {QStringLiteral("desktop-entry"), Info::main().bundleIdentifier},
        {QStringLiteral("transient"), true},
    };
    const Abilities abilities = m_abilities.value_or(Abilities());
    QStringList actions;
    // The action of this name is the click on the notification itself.
    if (message.activated && abilities.hasActions)
        actions << kClick << tr("Open");
    auto call = QDBusMessage::createMethodCall(kService, kPath, kService, QStringLiteral("Notify"));
    // 0: none that is shown already is replaced.
    call << QStringLiteral("Quillmarsh") << uint(0) << Info::main().bundleIdentifier
         << message.title
         // Where the body is markup, a "<" of the text would swallow what follows; where it is not,
         // the escape would be seen.
         << (abilities.hasBodyMarkup ? message.subtitle.toHtmlEscaped() : message.subtitle)
         << actions << hints << kServersOwnTimeout;
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, m_answerLimitMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher, activated = message.activated] {
                watcher->deleteLater();
                const QDBusPendingReply<uint> reply = *watcher;
                if (reply.isError())
                    drop(reply.error());
                else if (activated)
                    m_activations.insert(reply.value(), activated);
            });
}

void FreedesktopNotifications::actionInvoked(uint id, const QString &action)
{
    const auto activated = m_activations.value(id);
    if (activated && action == kClick)
        activated();
}

void FreedesktopNotifications::notificationClosed(uint id, uint)
{
    m_activations.remove(id);
}

void FreedesktopNotifications::drop(const QDBusError &error)
{
    qCWarning(lcNotifications, "notification dropped: %s", qUtf8Printable(error.message()));
}
