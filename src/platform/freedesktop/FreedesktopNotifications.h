#pragma once

#include "platform/Notifications.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QHash>
#include <QList>
#include <QObject>

#include <chrono>
#include <functional>
#include <optional>

class QDBusError;

/// Sends notifications to the desktop's notification server (org.freedesktop.Notifications). Owned
/// by Platform. Nothing here waits: a notification stands in a queue until the server has said
/// whether its bodies are markup, and one that cannot be delivered leaves a log line.
class FreedesktopNotifications : public QObject, public Notifications
{
    Q_OBJECT

public:
    /// After this a server counts as hung. Only a log line depends on it.
    static constexpr std::chrono::milliseconds kAnswerLimit{5000};

    explicit FreedesktopNotifications(QDBusConnection bus = QDBusConnection::sessionBus(),
                                      std::chrono::milliseconds answerLimit = kAnswerLimit);

    // ^Notifications
    using Notifications::deliver;
    void deliver(const QString &title, const QString &subtitle,
                 const std::function<void()> &activated) override;

private Q_SLOTS:
    // The server's signals.
    void actionInvoked(uint id, const QString &action);
    void notificationClosed(uint id, uint reason);

private:
    struct Message
    {
        QString title;
        QString subtitle;
        std::function<void()> activated; ///< Empty: a click means nothing.
    };
    /// What the server that runs now can do.
    struct Abilities
    {
        bool hasBodyMarkup = false;
        bool hasActions = false;
    };

    void askCapabilities();
    void send(const Message &message);
    void drop(const QDBusError &error);

    QDBusConnection m_bus;
    int m_answerLimitMs;
    QDBusServiceWatcher m_serverWatcher;
    /// Absent until the server that runs now has answered.
    std::optional<Abilities> m_abilities;
    bool m_isAsking = false;
    QList<Message> m_waiting;
    /// What a click does, by the server's numbers of the notifications that it still shows.
    QHash<uint, std::function<void()>> m_activations;
};
