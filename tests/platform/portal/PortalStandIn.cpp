#include "platform/portal/PortalStandIn.h"

#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/pasteboard/DataControl.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QSocketNotifier>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

using namespace Qt::StringLiterals;

const QString kPortal = u"org.freedesktop.portal.Desktop"_s;
const QString kStore = u"org.freedesktop.impl.portal.PermissionStore"_s;
const QString kPath = u"/org/freedesktop/portal/desktop"_s;
const QString kRemoteDesktop = u"org.freedesktop.portal.RemoteDesktop"_s;
const QString kClipboard = u"org.freedesktop.portal.Clipboard"_s;
const QString kBus = u"portal stand-in"_s;
/// Among the names of what is owned for the session.
const QString kMark = u"application/x-stand-in"_s;

/// As the desktop wraps its lists: in a structure.
struct NamesInStructure
{
    QStringList names;
};

QDBusArgument &operator<<(QDBusArgument &argument, const NamesInStructure &wrapped)
{
    argument.beginStructure();
    argument << wrapped.names;
    argument.endStructure();
    return argument;
}
const QDBusArgument &operator>>(const QDBusArgument &argument, NamesInStructure &)
{
    return argument;
}

} // namespace

Q_DECLARE_METATYPE(NamesInStructure)

class PortalStandIn::Service : public QDBusVirtualObject
{
public:
    void begin();
    void end();
    void appear();
    void vanish();
    void endSession();

    Manners manners;
    Notes notes;

    // ^QDBusVirtualObject
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    QVariantList answer(const QDBusMessage &message);
    QVariantList handleRemoteDesktop(const QDBusMessage &message, const QVariantMap &options);
    QVariantList handleClipboard(const QDBusMessage &message);
    void handleStart(const QString &request);
    QVariant open(const QString &name);
    void respond(const QString &request, uint code, const QVariantMap &results = {});
    void tellOwner();
    void fail(const QString &error) { m_error = error; }
    void work();
    bool isOurs() const { return m_offer && m_offer->names().contains(kMark); }

    std::shared_ptr<WaylandConnection> m_connection;
    std::unique_ptr<DataControl> m_control;
    std::unique_ptr<DataSource> m_source;
    std::shared_ptr<DataOffer> m_offer;
    std::unique_ptr<QSocketNotifier> m_events;
    QString m_error; ///< The answer to the message at hand; empty for a reply.
    QString m_session;
    QString m_restoredBy;
    bool m_isClipboardWanted = false;
    bool m_isClipboardOn = false;
    uint m_serial = 0;
    QMap<uint, std::pair<int, DataSource::Given>> m_asked;
    int m_reading = -1; ///< What is being read is open there until its writer is through.
};

void PortalStandIn::Service::begin()
{
    qDBusRegisterMetaType<NamesInStructure>();
    m_connection = WaylandConnection::open();
    m_control = DataControl::make(
        *m_connection, {[this](DataControl::Selection selection, std::shared_ptr<DataOffer> offer) {
                            if (selection != DataControl::Selection::Clipboard)
                                return;
                            m_offer = std::move(offer);
                            if (m_isClipboardOn)
                                tellOwner();
                        },
                        [] {}});
    m_events = std::make_unique<QSocketNotifier>(wl_display_get_fd(m_connection->display()),
                                                 QSocketNotifier::Read);
    QObject::connect(m_events.get(), &QSocketNotifier::activated, this, [this] { work(); });
    work();
    appear();
}

void PortalStandIn::Service::end()
{
    vanish();
    m_events.reset();
    m_source.reset();
    m_offer.reset();
    m_control.reset();
    m_connection.reset();
    for (const auto &[fd, given] : std::as_const(m_asked))
        close(fd);
    if (m_reading >= 0)
        close(m_reading);
}

void PortalStandIn::Service::appear()
{
    auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, kBus);
    m_session.clear();
    m_isClipboardOn = false;
    notes.applicationIds.clear();
    bus.registerVirtualObject(u"/org/freedesktop"_s, this, QDBusConnection::SubPath);
    bus.registerService(kStore);
    bus.registerService(kPortal);
}

void PortalStandIn::Service::vanish()
{
    // By ourselves: the connection goes later, and with what was not taken from it.
    QDBusConnection(kBus).unregisterObject(u"/org/freedesktop"_s, QDBusConnection::UnregisterTree);
    QDBusConnection::disconnectFromBus(kBus);
}

void PortalStandIn::Service::work()
{
    if (!m_connection->roundTrip())
        m_events->setEnabled(false);
}

bool PortalStandIn::Service::handleMessage(const QDBusMessage &message,
                                           const QDBusConnection &connection)
{
    // One that was on its way when the portals ended.
    if (!m_events)
        return false;
    m_error.clear();
    const QVariantList results = answer(message);
    if (!message.isReplyRequired())
        return true;
    const QDBusMessage reply =
        m_error.isEmpty() ? message.createReply(results)
                          : message.createErrorReply(u"org.freedesktop.DBus.Error."_s + m_error,
                                                     u"refused by the stand-in"_s);
    return connection.send(reply);
}

QVariantList PortalStandIn::Service::answer(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    notes.calls.append(message.member());
    if (message.interface() == kRemoteDesktop && manners.hasRemoteDesktop)
        return handleRemoteDesktop(message, qdbus_cast<QVariantMap>(arguments.constLast()));
    if (message.interface() == kClipboard && manners.hasRemoteDesktop)
        return handleClipboard(message);
    if (message.member() == u"Register"_s) {
        if (!notes.applicationIds.isEmpty())
            fail(u"Failed"_s);
        notes.applicationIds.append(arguments.value(0).toString());
        return {};
    }
    if (message.member() == u"Lookup"_s) {
        if (!notes.tokens.contains(arguments.value(1).toString()))
            fail(u"NotFound"_s);
        return {QVariantMap(), QVariant::fromValue(QDBusVariant(1))};
    }
    if (message.member() == u"Close"_s) {
        if (message.path() == m_session)
            m_session.clear();
        else
            ++notes.requestsClosed;
        return {};
    }
    fail(u"UnknownMethod"_s);
    return {};
}

QVariantList PortalStandIn::Service::handleRemoteDesktop(const QDBusMessage &message,
                                                         const QVariantMap &options)
{
    const QString sender = message.service().mid(1).replace(u'.', u'_');
    const QString request =
        kPath + u"/request/%1/%2"_s.arg(sender, options.value(u"handle_token"_s).toString());
    if (message.member() == u"NotifyKeyboardKeycode"_s) {
        if (m_session.isEmpty())
            fail(u"AccessDenied"_s);
        else
            notes.keys.append(
                {message.arguments().value(2).toInt(), message.arguments().value(3).toUInt()});
        return {};
    }
    if (message.member() == u"CreateSession"_s) {
        m_session = kPath + u"/session/%1/%2"_s.arg(
                                sender, options.value(u"session_handle_token"_s).toString());
        m_isClipboardWanted = false;
        m_isClipboardOn = false;
        respond(request, 0, {{u"session_handle"_s, m_session}});
    } else if (message.member() == u"SelectDevices"_s) {
        notes.devices = options;
        m_restoredBy = options.value(u"restore_token"_s).toString();
        respond(request, 0);
    } else {
        handleStart(request);
    }
    return {QVariant::fromValue(QDBusObjectPath(request))};
}

void PortalStandIn::Service::handleStart(const QString &request)
{
    const bool isRemembered = notes.tokens.removeAll(m_restoredBy) > 0;
    using Answer = Manners::Answer;
    const Answer answered = isRemembered ? Answer::Yes : manners.answer;
    if (!isRemembered)
        ++notes.dialogs;
    if (answered == Answer::None)
        return;
    if (answered != Answer::Yes) {
        respond(request, answered == Answer::No ? 1 : 2);
        return;
    }
    QVariantMap results{{u"devices"_s, manners.devices}};
    m_isClipboardOn = m_isClipboardWanted && manners.allowsClipboard;
    results[u"clipboard_enabled"_s] = m_isClipboardOn;
    if (manners.remembers) {
        notes.tokens.append(u"token %1"_s.arg(++m_serial));
        results[u"restore_token"_s] = notes.tokens.constLast();
    }
    // What is there already is told before the session is known to have started.
    if (m_isClipboardOn && m_offer)
        tellOwner();
    respond(request, 0, results);
}

QVariantList PortalStandIn::Service::handleClipboard(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    const QString member = message.member();
    if (member == u"RequestClipboard"_s) {
        m_isClipboardWanted = true;
    } else if (!m_isClipboardOn) {
        fail(u"AccessDenied"_s);
    } else if (member == u"SelectionRead"_s) {
        return {open(arguments.value(1).toString())};
    } else if (member == u"SetSelection"_s) {
        const auto options = qdbus_cast<QVariantMap>(arguments.value(1));
        const QStringList names = options.value(u"mime_types"_s).toStringList();
        std::unique_ptr<DataSource> before = std::move(m_source);
        if (!names.isEmpty())
            m_source = m_control->own(
                DataControl::Selection::Clipboard, names + QStringList{kMark},
                {[this](const QString &name, int fd, const DataSource::Given &given) {
                     m_asked[++m_serial] = {fd, given};
                     auto asked =
                         QDBusMessage::createSignal(kPath, kClipboard, u"SelectionTransfer"_s);
                     asked << QVariant::fromValue(QDBusObjectPath(m_session)) << name << m_serial;
                     QDBusConnection(kBus).send(asked);
                 },
                 [this] { m_source.reset(); }});
        before.reset();
        work();
    } else if (member == u"SelectionWrite"_s) {
        const int fd = m_asked.take(arguments.value(1).toUInt()).first;
        const QDBusUnixFileDescriptor descriptor(fd);
        close(fd);
        return {QVariant::fromValue(descriptor)};
    } else if (member == u"SelectionWriteDone"_s) {
        notes.given.append(arguments.value(2).toBool());
    }
    return {};
}

QVariant PortalStandIn::Service::open(const QString &name)
{
    work();
    pollfd wait{m_reading, POLLIN, 0};
    const bool isRead = m_reading < 0 || (poll(&wait, 1, 0) > 0 && (wait.revents & POLLHUP));
    if (isOurs() || !m_offer || !m_offer->names().contains(name)) {
        fail(u"Failed"_s);
    } else if (!isRead) {
        fail(u"LimitsExceeded"_s);
    } else {
        if (m_reading >= 0)
            close(m_reading);
        QDBusUnixFileDescriptor descriptor;
        m_offer->open(name, [&](const ReadingEnd &end) {
            m_reading = fcntl(end.fd(), F_DUPFD_CLOEXEC, 3);
            descriptor = QDBusUnixFileDescriptor(end.fd());
        });
        work();
        return QVariant::fromValue(descriptor);
    }
    return QVariant::fromValue(QDBusUnixFileDescriptor());
}

void PortalStandIn::Service::respond(const QString &request, uint code, const QVariantMap &results)
{
    auto response =
        QDBusMessage::createSignal(request, u"org.freedesktop.portal.Request"_s, u"Response"_s);
    response << code << results;
    QDBusConnection(kBus).send(response);
}

void PortalStandIn::Service::tellOwner()
{
    QStringList names = m_offer ? m_offer->names() : QStringList();
    names.removeAll(kMark);
    const QVariantMap options{
        {u"mime_types"_s, QVariant::fromValue(NamesInStructure{names})},
        {u"session_is_owner"_s, isOurs()},
    };
    auto changed = QDBusMessage::createSignal(kPath, kClipboard, u"SelectionOwnerChanged"_s);
    changed << QVariant::fromValue(QDBusObjectPath(m_session)) << options;
    QDBusConnection(kBus).send(changed);
}

void PortalStandIn::Service::endSession()
{
    m_isClipboardOn = false;
    QDBusConnection(kBus).send(QDBusMessage::createSignal(
        std::exchange(m_session, {}), u"org.freedesktop.portal.Session"_s, u"Closed"_s));
}

PortalStandIn::PortalStandIn() : m_service(std::make_unique<Service>())
{
    m_service->moveToThread(&m_thread);
    m_thread.start();
    run([](Service &service) { service.begin(); });
}

PortalStandIn::~PortalStandIn()
{
    resume();
    run([](Service &service) { service.end(); });
    // On its own thread, where the bus may still know of it.
    m_service.release()->deleteLater();
    m_thread.quit();
    m_thread.wait();
}

template <typename Task>
void PortalStandIn::run(Task task)
{
    QMetaObject::invokeMethod(
        m_service.get(), [&] { task(*m_service); }, Qt::BlockingQueuedConnection);
}

void PortalStandIn::setManners(const Manners &manners)
{
    run([&](Service &service) { service.manners = manners; });
}

PortalStandIn::Notes PortalStandIn::notes()
{
    Notes notes;
    run([&](Service &service) { notes = service.notes; });
    return notes;
}

void PortalStandIn::forgetTokens()
{
    run([](Service &service) { service.notes.tokens.clear(); });
}

void PortalStandIn::endSession()
{
    run([](Service &service) { service.endSession(); });
}

void PortalStandIn::vanish()
{
    run([](Service &service) { service.vanish(); });
}

void PortalStandIn::appear()
{
    run([](Service &service) { service.appear(); });
}

void PortalStandIn::hang()
{
    m_isHanging = true;
    QMetaObject::invokeMethod(
        m_service.get(), [this] { m_resumed.acquire(); }, Qt::QueuedConnection);
}

void PortalStandIn::resume()
{
    if (std::exchange(m_isHanging, false))
        m_resumed.release();
}
