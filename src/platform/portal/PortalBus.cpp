#include "platform/portal/PortalBus.h"

#include "platform/Info.h"

#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QDBusVariant>
#include <QLoggingCategory>
#include <QUuid>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcPortal, "quillmarsh.portal", QtInfoMsg)

const auto kRegistry = QStringLiteral("org.freedesktop.host.portal.Registry");
const auto kProperties = QStringLiteral("org.freedesktop.DBus.Properties");

} // namespace

const QString PortalBus::kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString PortalBus::kPath = QStringLiteral("/org/freedesktop/portal/desktop");

PortalBus::PortalBus(QObject *parent)
    : QObject(parent), m_name(QStringLiteral("quillmarsh portals ") + newToken()),
      m_bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, m_name))
{
    m_watcher = std::make_unique<QDBusServiceWatcher>(
        kService, m_bus,
        QDBusServiceWatcher::WatchForRegistration | QDBusServiceWatcher::WatchForUnregistration);
    const QDBusServiceWatcher *watcher = m_watcher.get();
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        // The first introduction has started them itself.
        if (!m_isIntroducing && !m_isReady)
            introduce();
    });
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        m_isReady = false;
        m_isIntroducing = false;
        m_wasLost = true;
        Q_EMIT vanished();
    });
    introduce();
}

PortalBus::~PortalBus()
{
    // Whoever listens to a connection goes before it: it ends on a thread of its own.
    m_watcher.reset();
    QDBusConnection::disconnectFromBus(m_name);
}

QDBusMessage PortalBus::message(const QString &interface, const QString &method,
                                const QVariantList &arguments, const QString &path)
{
    QDBusMessage message = QDBusMessage::createMethodCall(kService, path, interface, method);
    message.setArguments(arguments);
    return message;
}

void PortalBus::introduce()
{
    m_isIntroducing = true;
    const QString applicationId = Info::main().bundleIdentifier;
    call(message(kRegistry, QStringLiteral("Register"), {applicationId, QVariantMap()}), this,
         [this](const QDBusMessage &reply) {
             // Older portals have no such register and find out who we are by themselves.
             if (reply.type() == QDBusMessage::ErrorMessage)
                 qCInfo(lcPortal).noquote()
                     << "The portals do not take our name:" << reply.errorMessage();
             if (std::exchange(m_isIntroducing, false))
                 handleIntroduced();
         });
}

void PortalBus::handleIntroduced()
{
    m_isReady = true;
    const auto waiting = std::exchange(m_waiting, {});
    for (const Waiting &one : waiting) {
        if (one.context)
            one.ready();
    }
    if (std::exchange(m_wasLost, false))
        Q_EMIT appeared();
}

void PortalBus::whenReady(QObject *context, std::function<void()> ready)
{
    if (m_isReady)
        ready();
    else
        m_waiting.append({context, std::move(ready)});
}

void PortalBus::askVersion(const QString &interface, QObject *context,
                           std::function<void(uint)> receive)
{
    whenReady(context, [this, interface, context, receive = std::move(receive)] {
        call(message(kProperties, QStringLiteral("Get"), {interface, QStringLiteral("version")}),
             context, [receive](const QDBusMessage &reply) {
                 const auto version = reply.arguments().value(0).value<QDBusVariant>();
                 const bool isThere = reply.type() == QDBusMessage::ReplyMessage;
                 receive(isThere ? version.variant().toUInt() : 0);
             });
    });
}

void PortalBus::call(const QDBusMessage &message, QObject *context, const Receiver &receive,
                     int limitMs)
{
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, limitMs), context);
    connect(watcher, &QDBusPendingCallWatcher::finished, context, [watcher, receive] {
        watcher->deleteLater();
        receive(watcher->reply());
    });
}

QString PortalBus::senderName() const
{
    return m_bus.baseService().mid(1).replace(u'.', u'_');
}

QString PortalBus::newToken()
{
    return QStringLiteral("quillmarsh_") + QUuid::createUuid().toString(QUuid::Id128);
}
