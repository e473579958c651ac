#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>

class QDBusServiceWatcher;

/// Our connection to the desktop's portals: one a process, because they know a program by its
/// connection and let nobody else use what it was granted. They are told our application id before
/// anything is asked. Main thread; bus() may be used on any.
class PortalBus : public QObject
{
    Q_OBJECT

public:
    static const QString kService;
    static const QString kPath;

    using Receiver = std::function<void(const QDBusMessage &reply)>;

    explicit PortalBus(QObject *parent = nullptr);
    ~PortalBus() override;

    const QDBusConnection &bus() const { return m_bus; }

    /// What a portal is asked, at its one path unless another is given.
    static QDBusMessage message(const QString &interface, const QString &method,
                                const QVariantList &arguments = {}, const QString &path = kPath);

    /// Calls `ready`, now or later, when the portals know us; not once `context` is gone. They may
    /// be missing all the same, of which the answers tell.
    void whenReady(QObject *context, std::function<void()> ready);

    /// The version of a portal's interface; 0 where it is not offered. Like whenReady().
    void askVersion(const QString &interface, QObject *context,
                    std::function<void(uint version)> receive);

    /// Sends a message; `receive` gets the reply or the error, not once `context` is gone.
    void call(const QDBusMessage &message, QObject *context, const Receiver &receive,
              int limitMs = kAnswerLimitMs);

    /// What we are called in the paths of requests and sessions.
    QString senderName() const;
    /// A name for a request or a session that no other one has.
    static QString newToken();

Q_SIGNALS:
    /// The portals have ended, and every session with them.
    void vanished();
    /// They were started again, and know us.
    void appeared();

private:
    /// The first answer may have to wait for the portals to be started.
    static constexpr int kAnswerLimitMs = 25'000;

    struct Waiting
    {
        QPointer<QObject> context;
        std::function<void()> ready;
    };

    void introduce();
    void handleIntroduced();

    const QString m_name; ///< Of the connection.
    QDBusConnection m_bus;
    std::unique_ptr<QDBusServiceWatcher> m_watcher;
    bool m_isIntroducing = false;
    bool m_isReady = false;
    bool m_wasLost = false;
    QList<Waiting> m_waiting;
};
