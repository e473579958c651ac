#pragma once

#include <QTimer>

#include <functional>

struct Platform;

/// Tells, once in a user's life, how to open the history on a desktop that shows no status item:
/// there, nothing on the screen says that the program runs. Owned by AppDelegate.
class TraylessHint
{
public:
    /// `platform` must outlive the hint. `isAllowed` tells, when it is due, whether notifications
    /// are enabled; while they are not, the hint is kept for another start.
    TraylessHint(Platform &platform, std::function<bool()> isAllowed);

private:
    void tell();

    Platform &m_platform;
    std::function<bool()> m_isAllowed;
    QTimer m_timer;
};
