#include "platform/kde/KGlobalAccelService.h"

#include "platform/Info.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcHotKeys, "quillmarsh.platform.kde.hotkeys", QtInfoMsg)

const auto kService = QStringLiteral("org.kde.kglobalaccel");
const auto kPath = QStringLiteral("/kglobalaccel");
const auto kInterface = QStringLiteral("org.kde.KGlobalAccel");
const auto kComponentInterface = QStringLiteral("org.kde.kglobalaccel.Component");
constexpr int kStartLimitMs = 5000;

QString component()
{
    return Info::main().bundleIdentifier;
}

/// The path of a component's object: its name with everything but letters and digits replaced.
QString pathOf(QString name)
{
    for (QChar &sign : name) {
        const bool isKept = sign.unicode() < 0x80 && sign.isLetterOrNumber();
        sign = isKept ? sign : QChar(u'_');
    }
    return QStringLiteral("/component/") + name;
}

QStringList idOf(const KGlobalAccelService::Action &action)
{
    return {component(), action.name, QStringLiteral("Quillmarsh"), action.title};
}

QDBusMessage call(const QString &method, const QVariantList &arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(kService, kPath, kInterface, method);
    message.setArguments(arguments);
    return message;
}

QDBusMessage askBus(const QString &method, const QVariantList &arguments)
{
    auto message = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                                  QStringLiteral("/org/freedesktop/DBus"),
                                                  QStringLiteral("org.freedesktop.DBus"), method);
    message.setArguments(arguments);
    return message;
}

KGlobalAccelService::Keys nonZero(KGlobalAccelService::Keys keys)
{
    keys.removeAll(0);
    return keys;
}

/// The keys of all shortcuts in a component's list: structures of six texts, the keys in force and
/// the keys by default.
KGlobalAccelService::Keys keysIn(const QDBusArgument &list)
{
    KGlobalAccelService::Keys all;
    list.beginArray();
    while (!list.atEnd()) {
        list.beginStructure();
        QString text;
        for (int i = 0; i < 6; ++i)
            list >> text;
        KGlobalAccelService::Keys inForce;
        KGlobalAccelService::Keys byDefault;
        list >> inForce >> byDefault;
        list.endStructure();
        all += nonZero(inForce);
    }
    list.endArray();
    return all;
}

/// The first keys of each sequence: structures of an array of four.
KGlobalAccelService::Keys keysOfSequences(const QDBusArgument &list)
{
    KGlobalAccelService::Keys all;
    list.beginArray();
    while (!list.atEnd()) {
        KGlobalAccelService::Keys sequence;
        list.beginStructure();
        list >> sequence;
        list.endStructure();
        all += sequence.value(0);
    }
    list.endArray();
    return nonZero(all);
}

} // namespace

KGlobalAccelService::KGlobalAccelService(const QDBusConnection &bus, QObject *parent)
    : QObject(parent), m_bus(bus)
{
    qDBusRegisterMetaType<Keys>();
    m_bus.connect(kService, pathOf(component()), kComponentInterface,
                  QStringLiteral("globalShortcutPressed"), this,
                  SLOT(handlePressed(QString, QString, qlonglong)));
    m_bus.connect(kService, pathOf(component()), kComponentInterface,
                  QStringLiteral("globalShortcutReleased"), this,
                  SLOT(handleReleased(QString, QString, qlonglong)));
    m_bus.connect(kService, kPath, kInterface, QStringLiteral("yourShortcutsChanged"), this,
                  SLOT(handleShortcutsChanged(QDBusMessage)));
    auto *watcher =
        new QDBusServiceWatcher(kService, m_bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        m_hasAppeared = true;
        Q_EMIT appeared();
    });
}

void KGlobalAccelService::start()
{
    if (!m_bus.isConnected()) {
        // Later, as an answer would come, so that everybody listens.
        QMetaObject::invokeMethod(this, &KGlobalAccelService::missing, Qt::QueuedConnection);
        return;
    }
    const QDBusMessage order = askBus(QStringLiteral("StartServiceByName"), {kService, 0U});
    auto *started = new QDBusPendingCallWatcher(m_bus.asyncCall(order, kStartLimitMs), this);
    connect(started, &QDBusPendingCallWatcher::finished, this, [this, started] {
        started->deleteLater();
        if (started->isError())
            lookWhetherItRuns();
        else
            tellFirst();
    });
}

/// A service that nothing can start may run all the same: the newer KWin is it itself.
void KGlobalAccelService::lookWhetherItRuns()
{
    const QDBusMessage question = askBus(QStringLiteral("NameHasOwner"), {kService});
    auto *asked = new QDBusPendingCallWatcher(m_bus.asyncCall(question, kStartLimitMs), this);
    connect(asked, &QDBusPendingCallWatcher::finished, this, [this, asked] {
        asked->deleteLater();
        const QDBusPendingReply<bool> answer = *asked;
        if (answer.isError() || !answer.value())
            Q_EMIT missing();
        else
            tellFirst();
    });
}

void KGlobalAccelService::tellFirst()
{
    if (!std::exchange(m_hasAppeared, true))
        Q_EMIT appeared();
}

void KGlobalAccelService::setShortcut(const Action &action, const Keys &keys, uint wish,
                                      std::function<void(const Keys &)> receive)
{
    m_bus.send(call(QStringLiteral("doRegister"), {idOf(action)}));
    ask(call(QStringLiteral("setShortcut"), {idOf(action), QVariant::fromValue(keys), wish}),
        [receive = std::move(receive)](const QDBusMessage &answer) {
            receive(nonZero(qdbus_cast<Keys>(answer.arguments().value(0))));
        });
}

void KGlobalAccelService::setInactive(const Action &action)
{
    m_bus.send(call(QStringLiteral("setInactive"), {idOf(action)}));
}

void KGlobalAccelService::forget(const QString &name)
{
    m_bus.send(call(QStringLiteral("unregister"), {component(), name}));
}

void KGlobalAccelService::askWhetherFree(int key, std::function<void(bool)> receive)
{
    ask(call(QStringLiteral("isGlobalShortcutAvailable"), {key, component()}),
        [receive = std::move(receive)](const QDBusMessage &answer) {
            receive(answer.arguments().value(0).toBool());
        });
}

void KGlobalAccelService::askForeignKeys(std::function<void(const Keys &)> receive)
{
    ask(call(QStringLiteral("allComponents")), [this, receive](const QDBusMessage &answer) {
        const auto paths = qdbus_cast<QList<QDBusObjectPath>>(answer.arguments().value(0));
        for (const QDBusObjectPath &path : paths) {
            if (path.path() == pathOf(component()))
                continue;
            ask(QDBusMessage::createMethodCall(kService, path.path(), kComponentInterface,
                                               QStringLiteral("allShortcutInfos")),
                [receive](const QDBusMessage &list) {
                    receive(keysIn(list.arguments().value(0).value<QDBusArgument>()));
                });
        }
    });
}

template <typename Receiver>
void KGlobalAccelService::ask(const QDBusMessage &message, Receiver receive)
{
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, receive] {
        watcher->deleteLater();
        const QDBusMessage answer = watcher->reply();
        if (answer.type() == QDBusMessage::ReplyMessage)
            receive(answer);
        else
            qCWarning(lcHotKeys).noquote()
                << "Plasma's service of shortcuts answers with an error:" << answer.errorMessage();
    });
}

void KGlobalAccelService::handlePressed(const QString &, const QString &name, qlonglong timestamp)
{
    Q_EMIT pressed(name, timestamp);
}

void KGlobalAccelService::handleReleased(const QString &, const QString &name, qlonglong timestamp)
{
    Q_EMIT released(name, timestamp);
}

void KGlobalAccelService::handleShortcutsChanged(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    const QStringList id = arguments.value(0).toStringList();
    if (id.value(0) == component())
        Q_EMIT keysChosen(id.value(1), keysOfSequences(arguments.value(1).value<QDBusArgument>()));
}
