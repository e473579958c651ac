#pragma once

#include "platform/Mutex.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QThread>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>

class WaylandConnection;

/// The clipboard of a remote-control session as the portal has it. The bus is listened to on a
/// thread of its own, so that what is told arrives whatever the main thread does; it is handled on
/// the connection's thread, in the bus's order. Held together by the session's owner and whoever
/// follows the clipboard.
class PortalClipboard : public QObject, public std::enable_shared_from_this<PortalClipboard>
{
    Q_OBJECT

public:
    using TimePoint = std::chrono::steady_clock::time_point;
    using Reply = std::function<void(const QDBusMessage &reply)>;

    struct Listeners
    {
        /// Somebody owns the clipboard, us included; nobody where there are no names.
        std::function<void(const QStringList &names, bool isOurs)> changed;
        /// Somebody wants what we own. The number is to be given back with it.
        std::function<void(const QString &name, quint32 serial)> asked;
        /// The session has ended.
        std::function<void()> ended;
    };

    static std::shared_ptr<PortalClipboard> make(const QDBusConnection &bus,
                                                 std::shared_ptr<WaylandConnection> connection);
    ~PortalClipboard() override;

    /// The session whose clipboard it is from now on; empty when there is none any more. What its
    /// portal has told before is not lost. Any thread.
    void setSession(const QString &path);

    /// All else is for the connection's thread, also what is told.

    /// Empty while there is none.
    QString session() const;
    /// Tells what the clipboard is with the next events, where that is known. Null: nobody listens
    /// any more.
    void listen(std::unique_ptr<Listeners> listeners);

    /// Asks for something of the session, whose path goes before the arguments.
    void call(const QString &method, const QVariantList &arguments, Reply reply);
    /// Asks whether the portal is there.
    void ping(Reply reply);
    /// Handles what arrives until `isReached`; false at the deadline.
    [[nodiscard]] bool handleUntil(TimePoint deadline, const std::function<bool()> &isReached);

private:
    using Task = std::function<void()>;

    PortalClipboard(const QDBusConnection &bus, std::shared_ptr<WaylandConnection> connection);
    void start();

    struct Change
    {
        QString session;
        QStringList names;
        bool isOurs = false;
        quint64 number = 0; ///< 0 before the first.
    };

    void tell(const Change &change);
    void send(const QDBusMessage &message, Reply reply);
    void arrive(Task task);
    bool handleFirst();

private Q_SLOTS: // The bus knows receivers by name. On the thread that listens to it.
    void handleOwnerChanged(const QDBusMessage &message);
    void handleTransfer(const QDBusMessage &message);

private:
    const QDBusConnection m_bus;
    const std::shared_ptr<WaylandConnection> m_connection;
    QThread m_thread;
    mutable Mutex m_mutex;
    std::condition_variable_any m_arrived;
    std::deque<Task> m_arrivals QUILLMARSH_GUARDED_BY(m_mutex);
    QString m_session QUILLMARSH_GUARDED_BY(m_mutex);
    Change m_last QUILLMARSH_GUARDED_BY(m_mutex); ///< What was told last, of whatever session.
    std::shared_ptr<Listeners> m_listeners;       ///< Connection's thread only, like the next.
    quint64 m_told = 0; ///< The last change that these listeners were told.
};
