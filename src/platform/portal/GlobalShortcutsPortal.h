#pragma once

#include <QDBusMessage>
#include <QList>
#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>

class PortalBus;
class PortalRequest;

/// The desktop's portal of shortcuts, as its bus interface has it. Programs ask for shortcuts once
/// a session; which keys those have, if any, is the user's to say, in a dialog of the desktop's and
/// later in its settings. Nothing waits for the portal. Main thread only.
class GlobalShortcutsPortal : public QObject
{
    Q_OBJECT

public:
    struct Shortcut
    {
        QString name;    ///< For programs: the same for ever.
        QString title;   ///< For people.
        QString trigger; ///< The keys that we would like; empty for none.
    };
    /// The keys of each shortcut by its name, as the desktop writes them for people. Empty for one
    /// that has none.
    using Keys = QMap<QString, QString>;

    explicit GlobalShortcutsPortal(std::shared_ptr<PortalBus> bus, QObject *parent = nullptr);
    ~GlobalShortcutsPortal() override;

    /// Looks whether there is one. appeared() or missing() follows.
    void start();
    /// Asks for shortcuts, in place of all that were asked for before. bound() or refused() follows
    /// as soon as the user has decided; nothing before that.
    void bind(const QList<Shortcut> &shortcuts);
    /// Whether the desktop shows its settings of our shortcuts when it is asked to.
    bool canConfigure() const { return m_version >= 2 && !m_session.isEmpty(); }
    void configure();

Q_SIGNALS:
    /// At the start, and when it was started anew and knows nothing of us.
    void appeared();
    void missing();
    void bound(const GlobalShortcutsPortal::Keys &keys);
    void refused();
    /// By the user, in the desktop's settings.
    void keysChanged(const GlobalShortcutsPortal::Keys &keys);
    /// Time in milliseconds. The token is for the window that the press is to open; empty where the
    /// desktop gives none.
    void pressed(const QString &name, qulonglong time, const QString &activationToken);
    void released(const QString &name, qulonglong time);

private:
    void askForVersion();
    void bindIn(const QString &session, const QList<Shortcut> &shortcuts);
    void ask(const QString &method, const QVariantList &arguments, const QVariantMap &options,
             std::function<void(const QVariantMap &results)> receive);
    void closeSession();

private Q_SLOTS: // The bus knows receivers by name.
    void handleActivated(const QDBusMessage &message);
    void handleDeactivated(const QDBusMessage &message);
    void handleChanged(const QDBusMessage &message);

private:
    const std::shared_ptr<PortalBus> m_bus;
    uint m_version = 0;
    QString m_session; ///< Path; empty for none.
    std::unique_ptr<PortalRequest> m_request;
};
