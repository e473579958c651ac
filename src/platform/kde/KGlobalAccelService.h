#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

/// Plasma's service of shortcuts as its bus interfaces have it: org.kde.KGlobalAccel at
/// /kglobalaccel, and an org.kde.kglobalaccel.Component for each program. Keys are Qt's codes, a
/// key and its modifiers in one number. Nothing waits for the service: receivers get its answer
/// later, and nothing when it gives none. Main thread only.
class KGlobalAccelService : public QObject
{
    Q_OBJECT

public:
    using Keys = QList<int>;

    /// A shortcut of ours: its name for programs and for people.
    struct Action
    {
        QString name;
        QString title;
    };

    /// How setShortcut() is meant, in bits.
    enum Wish : uint {
        Present = 2,  ///< Presses are wanted from now on.
        Replacing = 4 ///< What the service remembers is to be replaced by what it is told.
    };

    explicit KGlobalAccelService(const QDBusConnection &bus, QObject *parent = nullptr);

    /// Asks the bus to start it. appeared() or missing() follows.
    void start();

    /// Makes the action known and gives it keys, or none. `receive` gets those that it has then:
    /// others, or none, where the keys are somebody else's or the service remembers a choice.
    void setShortcut(const Action &action, const Keys &keys, uint wish,
                     std::function<void(const Keys &)> receive);
    /// Takes no presses of it for now, and keeps what is known of it.
    void setInactive(const Action &action);
    void forget(const QString &name);

    void askWhetherFree(int key, std::function<void(bool)> receive);
    /// The keys of all other programs, a part at a time.
    void askForeignKeys(std::function<void(const Keys &)> receive);

Q_SIGNALS:
    /// At the start, and when it was started anew and knows nothing of us.
    void appeared();
    /// There is none, and nothing can start it.
    void missing();
    /// Held keys repeat by further presses. The time is the display server's, in milliseconds.
    void pressed(const QString &name, qlonglong timestamp);
    void released(const QString &name, qlonglong timestamp);
    /// By its user, in the system's settings.
    void keysChosen(const QString &name, const KGlobalAccelService::Keys &keys);

private:
    void lookWhetherItRuns();
    void tellFirst();
    template <typename Receiver>
    void ask(const QDBusMessage &message, Receiver receive);

private Q_SLOTS: // The bus knows receivers by name.
    void handlePressed(const QString &component, const QString &name, qlonglong timestamp);
    void handleReleased(const QString &component, const QString &name, qlonglong timestamp);
    void handleShortcutsChanged(const QDBusMessage &message);

private:
    QDBusConnection m_bus;
    bool m_hasAppeared = false;
};
