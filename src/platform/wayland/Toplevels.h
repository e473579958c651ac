#pragma once

#include "platform/Mutex.h"

#include <QList>
#include <QString>

#include <chrono>
#include <condition_variable>
#include <optional>
#include <vector>

struct WindowIdentity;

/// The windows of all programs as the compositor tells of them, which of them is in front, and
/// which one a paste goes to. Told on the connection's thread by whoever speaks the compositor's
/// protocol, in the compositor's order; asked from any thread. By itself it is what a compositor
/// tells of that tells nothing: no windows.
class Toplevels
{
public:
    using Id = quint64; ///< Never given twice; 0 is no window.
    using TimePoint = std::chrono::steady_clock::time_point;

    struct Window
    {
        Id id = 0;
        QString applicationId;
        QString title;
        quint32 processId = 0; ///< Of its program; 0 where that is not told.
        bool isActivated = false;
        bool isMinimized = false;
    };

    enum class Place { InFront, Behind, Gone };

    /// `ownApplicationId` is that of this program's windows.
    explicit Toplevels(const QString &ownApplicationId);
    Toplevels(const Toplevels &) = delete;
    Toplevels &operator=(const Toplevels &) = delete;
    virtual ~Toplevels() = default;

    /// The window that became active last, ours included; absent while none is. What has the
    /// keyboard without being a window of this kind, as our history may, is not told of.
    std::optional<Window> front() const;

    /// The window of another program that was in front last, whichever of ours have been since.
    /// None when it was closed, or is minimized: nobody wants text typed where it cannot be seen.
    Id target() const;
    /// From now on it stays the target, whatever comes to the front, until it is let go.
    void holdTarget();
    void letTargetGo();
    bool isTargetHeld() const;

    /// The window of ours with that title; of several the one that was in front last. 0 for none.
    Id ownWindow(const QString &title) const;

    /// Whether a window of ours is open behind the one in front.
    bool isOursBehind() const;

    /// Waits until the window is in front or gone.
    Place awaitFront(Id window, TimePoint deadline) const;

    /// Of every window of another program, in no order.
    QList<WindowIdentity> identities() const;

    /// Whether a program of that application id has a window.
    bool isOpen(const QString &applicationId) const;

    /// Whether every window is told of. Else front() is a guess at best, and it is nobody's to know
    /// who has the keyboard.
    virtual bool isComplete() const { return true; }

    bool isOurs(const Window &window) const;
    const QString &ownApplicationId() const { return m_ownApplicationId; }

    /// Asks the compositor to bring the window to the front. Nothing where it cannot be asked.
    virtual void activate(Id /*window*/) {}

    /// The same for the window of ours with that title, until `deadline`: as soon as the compositor
    /// tells of it, for what has just been shown is not known yet, and again when the window of
    /// another program that was in front before takes that back. Some do, late, because they ask
    /// to be in front whenever they get the keyboard.
    void activateOwn(const QString &title, TimePoint deadline);
    /// From now on windows of ours are left where they are.
    void leaveOwn();
    /// Whether that window is behind and was asked back to the front.
    bool isComingBack(const QString &title) const;

protected:
    static Id newId();
    /// A window that opened or changed, as it is now.
    void tell(const Window &window);
    void tellClosed(Id window);
    /// The compositor tells no more.
    void tellNoMore();

private:
    /// A window, and when it became active last, counted.
    struct Known
    {
        Window window;
        quint64 activation = 0;
    };

    /// A window of ours that is to come to the front.
    struct Wanted
    {
        QString title;
        TimePoint deadline;
        Id rival = 0; ///< Was in front before.
        int requests = 0;
    };

    bool isOwnTitled(const Window &window, const QString &title) const;
    const Known *own(const QString &title) const QUILLMARSH_REQUIRES(m_mutex);
    Id wantedBack(const Window &told, bool comesToFront) QUILLMARSH_REQUIRES(m_mutex);
    const Known *find(Id id) const QUILLMARSH_REQUIRES(m_mutex);
    const Known *active() const QUILLMARSH_REQUIRES(m_mutex);

    const QString m_ownApplicationId;
    mutable Mutex m_mutex;
    mutable std::condition_variable_any m_changed;
    std::vector<Known> m_windows QUILLMARSH_GUARDED_BY(m_mutex);
    quint64 m_activations QUILLMARSH_GUARDED_BY(m_mutex) = 0;
    Id m_lastForeign QUILLMARSH_GUARDED_BY(m_mutex) = 0;
    std::optional<Id> m_held QUILLMARSH_GUARDED_BY(m_mutex);
    std::optional<Wanted> m_wanted QUILLMARSH_GUARDED_BY(m_mutex);
};

/// Those of a compositor that tells of no windows.
class UntoldToplevels : public Toplevels
{
public:
    using Toplevels::Toplevels;

    // ^Toplevels
    bool isComplete() const override { return false; }
};

/// What the names of applications are found by.
WindowIdentity identityOf(const Toplevels::Window &window);
