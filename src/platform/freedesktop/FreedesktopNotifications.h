#pragma once

#include "platform/Notifications.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QList>
#include <QObject>

#include <chrono>
#include <optional>
#include <utility>

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
    void deliver(const QString &title, const QString &subtitle) override;

private:
    void askCapabilities();
    void send(const QString &title, const QString &subtitle);
    void drop(const QDBusError &error);

    QDBusConnection m_bus;
    int m_answerLimitMs;
    QDBusServiceWatcher m_serverWatcher;
    /// Absent until the server that runs now has answered.
    std::optional<bool> m_hasBodyMarkup;
    bool m_isAsking = false;
    QList<std::pair<QString, QString>> m_waiting;
};
