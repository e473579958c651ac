#include "platform/freedesktop/instance/DBusSingleInstance.h"

#include "platform/Info.h"
#include "platform/freedesktop/instance/ApplicationAdaptor.h"
#include "platform/freedesktop/instance/ClipListing.h"
#include "platform/freedesktop/instance/ClipsAdaptor.h"
#include "platform/freedesktop/instance/SessionBus.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDebug>
#include <QLoggingCategory>
#include <QSocketNotifier>

#include <algorithm>
#include <thread>
#include <utility>

namespace {

const auto kPath = QStringLiteral("/org/quillmarsh/Quillmarsh");
const auto kInterface = QStringLiteral("org.freedesktop.Application");

using Clock = std::chrono::steady_clock;

bool isKnown(const QString &action)
{
    // Without a name it is to activate.
    return action.isEmpty() || InstanceCall::isAction(action.toUtf8().constData());
}

/// What a caller wrote, fit for one line of the log.
QString quoted(const QString &text)
{
    constexpr qsizetype kMaxCharacters = 64;
    QString line;
    QDebug(&line).nospace() << text.left(kMaxCharacters);
    return text.size() > kMaxCharacters ? line + QStringLiteral("…") : line;
}

QString usable(const QString &activationToken)
{
    const bool isTooLong = activationToken.size() > DBusSingleInstance::kMaxTokenLength ||
                           activationToken.toUtf8().size() > DBusSingleInstance::kMaxTokenLength;
    if (isTooLong)
        qCWarning(lcInstance, "an activation token of %lld characters is ignored",
                  static_cast<long long>(activationToken.size()));
    return isTooLong ? QString() : activationToken;
}

/// What the launcher gave this process, so that the running instance may come to the front in the
/// name of the user's click.
QString ownActivationToken()
{
    const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    return usable(token.isEmpty() ? qEnvironmentVariable("DESKTOP_STARTUP_ID") : token);
}

QDBusMessage callFor(const InstanceMessage &message)
{
    const bool isAction = !message.action.isEmpty();
    auto call = QDBusMessage::createMethodCall(Info::main().bundleIdentifier, kPath, kInterface,
                                               isAction ? QStringLiteral("ActivateAction")
                                                        : QStringLiteral("Activate"));
    // The bus may know how to start us; what it started would wait for this very process.
    call.setAutoStartService(false);
    if (isAction)
        call << message.action << QVariantList();
    call << ApplicationAdaptor::platformData(message.activationToken);
    return call;
}

} // namespace

DBusSingleInstance::DBusSingleInstance(const QString &storeFolder,
                                       std::chrono::milliseconds answerLimit)
    : m_socket(storeFolder), m_answerLimit(answerLimit)
{
    new ApplicationAdaptor(this,
                           [this](const InstanceMessage &message) { return receive(message); });
    m_clips = new ClipsAdaptor(this);
}

void DBusSingleInstance::share(SharedClips *clips)
{
    m_clips->share(clips);
    // What is under way knows the clips that were shared before.
    qDeleteAll(findChildren<ClipListing *>());
    m_socket.setLister(
        clips ? [this, clips](const QString &term,
                              const InstanceSocket::Reply
                                  &reply) { new ClipListing(*clips, term, reply, this); }
              : InstanceSocket::Lister());
}

SingleInstance::Entry DBusSingleInstance::enter(const QString &action)
{
    m_activationToken = ownActivationToken();
    const InstanceMessage message{action, m_activationToken};
    const Entry entry = enterBySocket(message);
    if (entry != Entry::First)
        return entry;
    const Entry onBus = enterByBus(message);
    if (onBus != Entry::First)
        m_socket.release();
    return onBus;
}

SingleInstance::Entry DBusSingleInstance::enterBySocket(const InstanceMessage &message)
{
    const auto deadline = Clock::now() + kLeaveLimit;
    for (;;) {
        // Asked anew each time round, because the holder may be on its way out.
        if (m_socket.claim() != InstanceSocket::Claim::Held)
            return Entry::First;
        switch (m_socket.forward(message, m_answerLimit)) {
        case InstanceSocket::Answer::Taken:
            return Entry::Forwarded;
        case InstanceSocket::Answer::Refused:
            return Entry::Refused;
        case InstanceSocket::Answer::Unable:
            return Entry::Unable;
        case InstanceSocket::Answer::None:
            return Entry::Unreachable;
        case InstanceSocket::Answer::Nobody:
            break;
        }
        if (Clock::now() >= deadline)
            return Entry::Unreachable;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

SingleInstance::Entry DBusSingleInstance::enterByBus(const InstanceMessage &message)
{
    QDBusConnection bus = SessionBus::find();
    if (!bus.isConnected())
        return Entry::First;
    const auto deadline = Clock::now() + m_answerLimit;
    for (;;) {
        if (ownsNameOn(bus))
            return Entry::First;
        // An instance with another store: the bus is all that it shares with us. Or one that has
        // just died, whose name the bus is about to take back.
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        const QDBusMessage answer =
            bus.call(callFor(message), QDBus::Block, std::max(static_cast<int>(left.count()), 1));
        if (answer.type() == QDBusMessage::ReplyMessage)
            return Entry::Forwarded;
        if (QDBusError(answer).type() == QDBusError::InvalidArgs)
            return Entry::Refused;
        if (answer.errorName() == QLatin1String(ApplicationAdaptor::kUnable))
            return Entry::Unable;
        if (Clock::now() >= deadline) {
            qCWarning(lcInstance, "the running instance did not take the action: %s",
                      qUtf8Printable(answer.errorMessage()));
            return Entry::Unreachable;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

bool DBusSingleInstance::ownsNameOn(QDBusConnection &bus)
{
    // First the object, then the name: whoever sees the name may call at once.
    bus.registerObject(kPath, this, QDBusConnection::ExportAdaptors);
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> name =
        bus.interface()->registerService(Info::main().bundleIdentifier,
                                         QDBusConnectionInterface::DontQueueService,
                                         QDBusConnectionInterface::DontAllowReplacement);
    m_ownsName = name.isValid() && name.value() == QDBusConnectionInterface::ServiceRegistered;
    // A bus that cannot answer the question hands nobody a name; the lock alone decides then.
    if (m_ownsName || !name.isValid())
        return true;
    bus.unregisterObject(kPath);
    return false;
}

void DBusSingleInstance::open()
{
    m_isOpen = true;
    if (!QDBusConnection::sessionBus().isConnected())
        qCInfo(lcInstance, "no session bus: only starting quillmarsh again reaches this instance");
    for (const InstanceMessage &message : std::exchange(m_waiting, {}))
        deliver(message);
    if (m_socket.descriptor() < 0)
        return;
    auto *notifier = new QSocketNotifier(m_socket.descriptor(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        m_socket.receive([this](const InstanceMessage &message) { return receive(message); });
    });
}

void DBusSingleInstance::close()
{
    // Readable for ever once it is closed, or another file's by then.
    delete findChild<QSocketNotifier *>();
    share(nullptr);
    m_socket.stopListening();
    if (std::exchange(m_ownsName, false))
        QDBusConnection::sessionBus().unregisterService(Info::main().bundleIdentifier);
}

InstanceSocket::Answer DBusSingleInstance::receive(InstanceMessage message)
{
    if (!isKnown(message.action)) {
        qCWarning(lcInstance, "there is no action %s", qUtf8Printable(quoted(message.action)));
        return InstanceSocket::Answer::Refused;
    }
    if (m_isOpen && m_canDo && !m_canDo(message.action))
        return InstanceSocket::Answer::Unable;
    message.activationToken = usable(message.activationToken);
    if (m_isOpen)
        deliver(message);
    else
        m_waiting.append(message);
    return InstanceSocket::Answer::Taken;
}

void DBusSingleInstance::deliver(const InstanceMessage &message)
{
    // Later, so that the caller has its answer before a window, a swop or the quit takes its time.
    QMetaObject::invokeMethod(
        this,
        [this, message] {
            // Whatever comes after this would be taken and not be done.
            if (message.action == u"quit")
                close();
            if (message.action.isEmpty())
                Q_EMIT activated(message.activationToken);
            else
                Q_EMIT actionRequested(message.action, message.activationToken);
        },
        Qt::QueuedConnection);
}
