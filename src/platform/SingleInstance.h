#pragma once

#include <QObject>
#include <QString>

#include <functional>

class SharedClips;

/// The way in for other programs and for a second start: there is never a second instance of one
/// store. Owned by main, made before anything else of the application.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    enum class Entry {
        First,      ///< We are the instance.
        Forwarded,  ///< Another instance runs and has taken the action; leave quietly.
        Refused,    ///< Another instance runs and does not know the action, as an older one would.
        Unable,     ///< Another instance runs and cannot do it now, as its check told.
        Unreachable ///< Another instance holds the lock but did not answer; leave with a message.
    };

    using QObject::QObject;

    /// Becomes the instance, or hands `action` (empty: activate) to the one that runs, waiting at
    /// most a second for its answer, or a few for its end when it is on its way out. Needs no
    /// application object: entered before there is one, a second start is gone before it ever talks
    /// to the display. `action` is one of those of actionRequested; the first instance is left to
    /// perform its own.
    virtual Entry enter(const QString &action) = 0;

    /// What the desktop gave this process at its start; empty when it gave nothing.
    virtual QString activationToken() const = 0;

    /// From now on calls from outside are delivered; those that came earlier follow first.
    virtual void open() = 0;

    /// Whether an action can be done now: whoever asks for one that cannot is told so. It is asked
    /// once calls are delivered; without a check all can.
    using ActionCheck = std::function<bool(const QString &action)>;
    virtual void setActionCheck(ActionCheck check) = 0;

    /// Lets other programs use `clips`, which must outlive this object or be taken back by null;
    /// close() does that, too.
    virtual void share(SharedClips *clips) = 0;

    /// Takes nothing more, because this process ends: who comes now becomes the next instance.
    virtual void close() = 0;

Q_SIGNALS:
    void activated(const QString &activationToken);
    /// One of "launch", "swop", "preferences", "check-for-updates", "feedback", "help",
    /// "welcome", "clear-all", "quit".
    void actionRequested(const QString &action, const QString &activationToken);
};
