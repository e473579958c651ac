#pragma once

#include <QObject>
#include <QString>

#include <chrono>

class QWindow;

/// The application in front, and the way back to it. Owned by Platform; used from the main
/// thread.
class FrontApplication : public QObject
{
    Q_OBJECT

public:
    /// After this the target is given up: nobody keeps a person waiting longer for a paste.
    static constexpr std::chrono::milliseconds kReturnLimit{500};

    using QObject::QObject;

    /// Name of the application in front (ApplicationNames), our own included, a dialog's being
    /// that of the window it is for. While none is, the last known name of another application
    /// that still runs, else the empty text.
    virtual QString applicationName() const = 0;

    /// Makes `window`, one of our own, the target of the next paste, for as long as it is visible.
    /// Null gives that place back to the last window of another program that was in front, which
    /// is followed all the time.
    virtual void setOwnTarget(QWindow *window) = 0;

    /// Waits until the target is active and has the keyboard again, asking the window manager for
    /// it if it does not come back by itself. Call after our windows were hidden. True when it is
    /// back (or when nothing had ever taken its place), false when it is gone, there is none, or
    /// `limit` has passed. The main thread stands still meanwhile.
    [[nodiscard]] virtual bool returnToTarget(std::chrono::milliseconds limit = kReturnLimit) = 0;

    /// Makes one of our own windows the active one although another application is in front, in
    /// the name of the user's last key press. `window` must be visible.
    virtual void activate(QWindow *window) = 0;

    /// Whether `window`, one of our own, is the one in front. It stays so while some program holds
    /// the keyboard for a hot key or a menu, although no key reaches the window then.
    virtual bool isInFront(const QWindow &window) const = 0;

    /// Ends the sign that something is starting (a busy pointer), which the desktop shows for
    /// whoever was given `activationToken`. Nothing for an empty one.
    virtual void endStartup(const QString &activationToken) = 0;
};
