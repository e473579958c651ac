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
    connect(&m_serverWatcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this] { m_hasBodyMarkup.reset(); });
}

void FreedesktopNotifications::deliver(const QString &title, const QString &subtitle)
{
    // Without a bus a pending call would never finish, so nothing would be said about it.
    if (!m_bus.isConnected()) {
        qCWarning(lcNotifications, "notification dropped, there is no session bus: %s",
                  qUtf8Printable(title));
        return;
    }
    if (m_hasBodyMarkup) {
        send(title, subtitle);
        return;
    }
    m_waiting.append({title, subtitle});
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
        if (reply.isError() && reply.error().type() != QDBusError::UnknownMethod) {
            drop(reply.error());
            return;
        }
        m_hasBodyMarkup = !reply.isError() && reply.value().contains(QStringLiteral("body-markup"));
        for (const auto &[title, subtitle] : waiting)
            send(title, subtitle);
    });
}

void FreedesktopNotifications::send(const QString &title, const QString &subtitle)
{
    const QVariantMap hints{
        {QStringLiteral("desktop-entry"), Info::main().bundleIdentifier},
        {QStringLiteral("transient"), true},
    };
    auto call = QDBusMessage::createMethodCall(kService, kPath, kService, QStringLiteral("Notify"));
    call << QStringLiteral("Quillmarsh") << uint(0) << Info::main().bundleIdentifier << title
         << (m_hasBodyMarkup.value_or(false) ? subtitle.toHtmlEscaped() : subtitle) << QStringList()
         << hints << kServersOwnTimeout;
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, m_answerLimitMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        if (watcher->isError())
            drop(watcher->error());
    });
}

void FreedesktopNotifications::drop(const QDBusError &error)
{
    qCWarning(lcNotifications, "notification dropped: %s", qUtf8Printable(error.message()));
}
