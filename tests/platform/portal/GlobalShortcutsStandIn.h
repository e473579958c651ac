#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QMap>
#include <QObject>
#include <QStringList>

/// A shortcut on the portals' bus.
struct PortalShortcutStandIn
{
    QString name;
    QVariantMap about;
};

inline QDBusArgument &operator<<(QDBusArgument &argument, const PortalShortcutStandIn &shortcut)
{
    argument.beginStructure();
    argument << shortcut.name << shortcut.about;
    argument.endStructure();
    return argument;
}
inline const QDBusArgument &operator>>(const QDBusArgument &argument,
                                       PortalShortcutStandIn &shortcut)
{
    argument.beginStructure();
    argument >> shortcut.name >> shortcut.about;
    argument.endStructure();
    return argument;
}
Q_DECLARE_METATYPE(PortalShortcutStandIn)

/// The portal of shortcuts, answering as GNOME 48 was seen to: it gives the keys that are wished
/// for and says so with a code that means nothing, and tells them once more as a change. `given` is
/// what the user has chosen instead.
class GlobalShortcutsStandIn : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.GlobalShortcuts")
    Q_PROPERTY(uint version MEMBER version)

public:
    static QString serviceName() { return QStringLiteral("org.freedesktop.portal.Desktop"); }
    static QString path() { return QStringLiteral("/org/freedesktop/portal/desktop"); }

    uint version = 1;
    bool refuses = false;
    QMap<QString, QString> given; ///< By name, as written for people.
    QStringList asked;            ///< Names and keys of every question, such as "open=LOGO+v".
    int configurations = 0;

    void reset() { m_session.clear(); }
    bool hasSession() const { return !m_session.isEmpty(); }

    /// A signal about the shortcut of that name, with what comes behind the name.
    void sendOf(const QString &signal, const QString &name, const QVariantMap &options)
    {
        send(signal,
             {QVariant::fromValue(QDBusObjectPath(m_session)), name, qulonglong(42), options});
    }
    void sendChange()
    {
        send(QStringLiteral("ShortcutsChanged"),
             {QVariant::fromValue(QDBusObjectPath(m_session)), QVariant::fromValue(shortcuts())});
    }

public Q_SLOTS:
    QDBusObjectPath CreateSession(const QVariantMap &options, const QDBusMessage &message)
    {
        m_session = path() + QStringLiteral("/session/") +
                    options.value(QStringLiteral("session_handle_token")).toString();
        return respond(options, message, {{QStringLiteral("session_handle"), m_session}});
    }
    QDBusObjectPath BindShortcuts(const QDBusObjectPath &,
                                  const QList<PortalShortcutStandIn> &wanted, const QString &,
                                  const QVariantMap &options, const QDBusMessage &message)
    {
        for (const PortalShortcutStandIn &shortcut : wanted) {
            const QString trigger =
                shortcut.about.value(QStringLiteral("preferred_trigger")).toString();
            asked.append(shortcut.name + u'=' + trigger);
            if (!refuses && !given.contains(shortcut.name))
                given.insert(shortcut.name, QStringLiteral("Press <super><shift>v"));
        }
        if (refuses)
            return respond(options, message, {});
        sendChange();
        return respond(options, message,
                       {{QStringLiteral("shortcuts"), QVariant::fromValue(shortcuts())}});
    }
    void ConfigureShortcuts(const QDBusObjectPath &, const QString &, const QVariantMap &)
    {
        ++configurations;
    }

private:
    static QDBusConnection bus()
    {
        return QDBusConnection(QStringLiteral("test service ") + serviceName());
    }
    QList<PortalShortcutStandIn> shortcuts() const
    {
        QList<PortalShortcutStandIn> all;
        for (auto one = given.begin(); one != given.end(); ++one)
            all.append({one.key(), {{QStringLiteral("trigger_description"), one.value()}}});
        return all;
    }
    static void send(const QString &name, const QVariantList &arguments)
    {
        auto signal = QDBusMessage::createSignal(
            path(), QStringLiteral("org.freedesktop.portal.GlobalShortcuts"), name);
        signal.setArguments(arguments);
        bus().send(signal);
    }
    static QDBusObjectPath respond(const QVariantMap &options, const QDBusMessage &message,
                                   const QVariantMap &results)
    {
        const QString request =
            path() + QStringLiteral("/request/%1/%2")
                         .arg(message.service().mid(1).replace(u'.', u'_'),
                              options.value(QStringLiteral("handle_token")).toString());
        auto response = QDBusMessage::createSignal(
            request, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        response.setArguments({2U, results});
        bus().send(response);
        return QDBusObjectPath(request);
    }

    QString m_session;
};
