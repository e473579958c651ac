#pragma once

#include <QString>

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
    virtual void deliver(const QString &title, const QString &subtitle) = 0;
};
