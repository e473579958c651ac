#pragma once

#include <QTimer>

#include <functional>

class Notifications;
class SettingsStore;
class StatusBar;

/// Tells, once in a user's life, how to open the history on a desktop that shows no status item:
/// there, nothing on the screen says that the program runs. Owned by AppDelegate.
class TraylessHint
{
public:
    /// The ports must outlive the hint. `isAllowed` tells, when it is due, whether notifications
    /// are enabled; while they are not, the hint is kept for another start.
    TraylessHint(SettingsStore &settings, const StatusBar &statusBar, Notifications &notifications,
                 std::function<bool()> isAllowed);

private:
    void tell();

    SettingsStore &m_settings;
    const StatusBar &m_statusBar;
    Notifications &m_notifications;
    std::function<bool()> m_isAllowed;
    QTimer m_timer;
};
