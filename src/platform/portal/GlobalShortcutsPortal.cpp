#include "platform/portal/GlobalShortcutsPortal.h"

#include "platform/portal/PortalBus.h"
#include "platform/portal/PortalRequest.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>

#include <utility>

/// A shortcut on the bus: its name and what there is to say of it.
struct PortalShortcut
{
    QString name;
    QVariantMap about;
};
Q_DECLARE_METATYPE(PortalShortcut)

static QDBusArgument &operator<<(QDBusArgument &argument, const PortalShortcut &shortcut)
{
    argument.beginStructure();
    argument << shortcut.name << shortcut.about;
    argument.endStructure();
    return argument;
}

static const QDBusArgument &operator>>(const QDBusArgument &argument, PortalShortcut &shortcut)
{
    argument.beginStructure();
    argument >> shortcut.name >> shortcut.about;
    argument.endStructure();
    return argument;
}

namespace {

const auto kInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const auto kSession = QStringLiteral("org.freedesktop.portal.Session");
const auto kShortcuts = QStringLiteral("shortcuts");

GlobalShortcutsPortal::Keys keysIn(const QVariant &list)
{
    GlobalShortcutsPortal::Keys keys;
    for (const auto &shortcut : qdbus_cast<QList<PortalShortcut>>(list))
        keys.insert(shortcut.name,
                    shortcut.about.value(QStringLiteral("trigger_description")).toString());
    return keys;
}

} // namespace

GlobalShortcutsPortal::GlobalShortcutsPortal(std::shared_ptr<PortalBus> bus, QObject *parent)
    : QObject(parent), m_bus(std::move(bus))
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
    const auto listen = [this](const char *signal, const char *slot) {
        QDBusConnection connection = m_bus->bus();
        connection.connect(PortalBus::kService, PortalBus::kPath, kInterface, QLatin1String(signal),
                           this, slot);
    };
    listen("Activated", SLOT(handleActivated(QDBusMessage)));
    listen("Deactivated", SLOT(handleDeactivated(QDBusMessage)));
    listen("ShortcutsChanged", SLOT(handleChanged(QDBusMessage)));
    connect(m_bus.get(), &PortalBus::vanished, this, [this] {
        m_request.reset();
        m_session.clear();
    });
    connect(m_bus.get(), &PortalBus::appeared, this, &GlobalShortcutsPortal::askForVersion);
}

GlobalShortcutsPortal::~GlobalShortcutsPortal()
{
    closeSession();
}

void GlobalShortcutsPortal::start()
{
    askForVersion();
}

void GlobalShortcutsPortal::askForVersion()
{
    m_bus->askVersion(kInterface, this, [this](uint version) {
        m_version = version;
        if (m_version > 0)
            Q_EMIT appeared();
        else
            Q_EMIT missing();
    });
}

void GlobalShortcutsPortal::bind(const QList<Shortcut> &shortcuts)
{
    closeSession();
    ask(QStringLiteral("CreateSession"), {},
        {{QStringLiteral("session_handle_token"), PortalBus::newToken()}},
        [this, shortcuts](const QVariantMap &results) {
            const QString session = results.value(QStringLiteral("session_handle")).toString();
            if (session.isEmpty())
                Q_EMIT refused();
            else
                bindIn(session, shortcuts);
        });
}

void GlobalShortcutsPortal::bindIn(const QString &session, const QList<Shortcut> &shortcuts)
{
    m_session = session;
    QList<PortalShortcut> wanted;
    for (const Shortcut &shortcut : shortcuts) {
        wanted.append({shortcut.name, {{QStringLiteral("description"), shortcut.title}}});
        if (!shortcut.trigger.isEmpty())
            wanted.last().about.insert(QStringLiteral("preferred_trigger"), shortcut.trigger);
    }
    const QVariantList arguments{QVariant::fromValue(QDBusObjectPath(m_session)),
                                 QVariant::fromValue(wanted), QString()};
    ask(QStringLiteral("BindShortcuts"), arguments, {}, [this](const QVariantMap &results) {
        if (results.contains(kShortcuts))
            Q_EMIT bound(keysIn(results.value(kShortcuts)));
        else
            Q_EMIT refused();
    });
}

void GlobalShortcutsPortal::configure()
{
    m_bus->bus().send(PortalBus::message(
        kInterface, QStringLiteral("ConfigureShortcuts"),
        {QVariant::fromValue(QDBusObjectPath(m_session)), QString(), QVariantMap()}));
}

/// What was given counts and not the answer's code, which GNOME 48 leaves to chance.
void GlobalShortcutsPortal::ask(const QString &method, const QVariantList &arguments,
                                const QVariantMap &options,
                                std::function<void(const QVariantMap &)> receive)
{
    m_request = std::make_unique<PortalRequest>(
        *m_bus, PortalRequest::Question{kInterface, method, arguments, options}, std::nullopt,
        [receive = std::move(receive)](const PortalRequest::Answer &answer) {
            receive(answer.results);
        },
        this);
}

void GlobalShortcutsPortal::closeSession()
{
    m_request.reset();
    if (!m_session.isEmpty())
        m_bus->bus().send(PortalBus::message(kSession, QStringLiteral("Close"), {}, m_session));
    m_session.clear();
}

void GlobalShortcutsPortal::handleActivated(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    const auto options = qdbus_cast<QVariantMap>(arguments.value(3));
    if (arguments.value(0).value<QDBusObjectPath>().path() == m_session)
        Q_EMIT pressed(arguments.value(1).toString(), arguments.value(2).toULongLong(),
                       options.value(QStringLiteral("activation_token")).toString());
}

void GlobalShortcutsPortal::handleDeactivated(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    if (arguments.value(0).value<QDBusObjectPath>().path() == m_session)
        Q_EMIT released(arguments.value(1).toString(), arguments.value(2).toULongLong());
}

void GlobalShortcutsPortal::handleChanged(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    if (arguments.value(0).value<QDBusObjectPath>().path() == m_session)
        Q_EMIT keysChanged(keysIn(arguments.value(1)));
}
