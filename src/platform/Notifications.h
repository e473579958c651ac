#pragma once

#include <QString>

#include <functional>

/// Short messages to the user outside our windows. Owned by Platform; used from the main thread.
class Notifications
{
public:
    Notifications() = default;
    Notifications(const Notifications &) = delete;
    Notifications &operator=(const Notifications &) = delete;
    virtual ~Notifications() = default;

    /// Delivers a notification without waiting for it; where there is no notification server it
    /// is dropped with a log line. Never put a clip's text into one: notifications are kept and
    /// shown on lock screens.
    void deliver(const QString &title, const QString &subtitle) { deliver(title, subtitle, {}); }
    /// As above; `activated` runs when the user clicks the notification, if the server tells of
    /// clicks. It may be called as long as this object lives.
    virtual void deliver(const QString &title, const QString &subtitle,
                         const std::function<void()> &activated) = 0;
};
