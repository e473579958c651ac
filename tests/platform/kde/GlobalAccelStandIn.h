#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QMap>
#include <QObject>
#include <QStringList>

/// A line of a component's list of shortcuts.
struct ListedShortcut
{
    QStringList texts; ///< Six.
    QList<int> keys;
    QList<int> defaults;
};

inline QDBusArgument &operator<<(QDBusArgument &argument, const ListedShortcut &shortcut)
{
    argument.beginStructure();
    for (int i = 0; i < 6; ++i)
        argument << shortcut.texts.value(i);
    argument << shortcut.keys << shortcut.defaults;
    argument.endStructure();
    return argument;
}
inline const QDBusArgument &operator>>(const QDBusArgument &argument, ListedShortcut &)
{
    return argument;
}
Q_DECLARE_METATYPE(ListedShortcut)

/// The keys of one shortcut, in the form of which a signal has a list.
struct KeySequence
{
    QList<int> keys; ///< Four.
};

inline QDBusArgument &operator<<(QDBusArgument &argument, const KeySequence &sequence)
{
    argument.beginStructure();
    argument << sequence.keys;
    argument.endStructure();
    return argument;
}
inline const QDBusArgument &operator>>(const QDBusArgument &argument, KeySequence &)
{
    return argument;
}
Q_DECLARE_METATYPE(KeySequence)

/// Plasma's service of shortcuts, answering as the real one was seen to: whose keys are another's
/// gets 0, and an action that is known already keeps its keys unless they are to be replaced. What
/// it stores outlives it.
class GlobalAccelStandIn : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.KGlobalAccel")

public:
    static constexpr const char *kOwnPath = "/component/org_quillmarsh_Quillmarsh";

    void reset() { active.clear(); }

    QMap<QString, QList<int>> stored; ///< By the action's name.
    QMap<QString, QString> titles;
    QStringList active;
    QList<int> foreign; ///< What another program has.

public Q_SLOTS: // The service's own names.
    void doRegister(const QStringList &id) { titles[id.value(1)] = id.value(3); }
    QList<int> setShortcut(const QStringList &id, const QList<int> &keys, uint flags)
    {
        const QString name = id.value(1);
        if ((flags & 2) != 0 && !active.contains(name))
            active.append(name);
        if (stored.contains(name) && (flags & 4) == 0)
            return stored.value(name);
        const bool isRefused = !keys.isEmpty() && foreign.contains(keys.first());
        stored[name] = isRefused ? QList<int>() : keys;
        return isRefused ? QList<int>{0} : keys;
    }
    void setInactive(const QStringList &id) { active.removeAll(id.value(1)); }
    bool unregister(const QString &, const QString &name)
    {
        active.removeAll(name);
        return stored.remove(name) > 0;
    }
    bool isGlobalShortcutAvailable(int key, const QString &) { return !foreign.contains(key); }
    QList<QDBusObjectPath> allComponents()
    {
        return {QDBusObjectPath(QLatin1String(kOwnPath)),
                QDBusObjectPath(QStringLiteral("/component/other"))};
    }
};

/// Another program's part of it.
class ForeignComponent : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.kglobalaccel.Component")

public:
    QList<int> keys;

public Q_SLOTS:
    QList<ListedShortcut> allShortcutInfos() { return {{{QStringLiteral("x")}, keys, {}}}; }
};
