#pragma once

#include "platform/Mutex.h"
#include "platform/ServiceTasks.h"

#include <QByteArray>
#include <QtGlobal>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

#include <wayland-client.h>

/// Our own connection to the compositor, beside the toolkit's: one a process, on which all that
/// works without a window is bound, so that its events come in the compositor's order. Opened
/// before there is an application object, because what is offered decides how the application
/// starts; from start() on a thread of its own reads it. The adapters hold it together; what they
/// have bound and registered ends with removeListeners(), before they do.
class WaylandConnection
{
public:
    using Task = ServiceTasks::Task;
    using TimePoint = ServiceTasks::TimePoint;
    /// Does what is due, and says when it must be asked again at the latest; absent: not before
    /// there was an event or a task.
    using KeepDeadlines = std::function<std::optional<TimePoint>(TimePoint now)>;
    /// Told what poll() found.
    using Ready = std::function<void(short events)>;
    /// An interface is offered from now on, or no longer; its number among the globals.
    using GlobalListener =
        std::function<void(const QByteArray &interface, quint32 name, bool isOffered)>;

    /// Connects and learns what is offered, in two round trips. Null where no compositor answers.
    /// Whoever lets go of it last may do so on its own thread: it ends on another one then.
    static std::shared_ptr<WaylandConnection> open();
    WaylandConnection(const WaylandConnection &) = delete;
    WaylandConnection &operator=(const WaylandConnection &) = delete;
    /// Runs the tasks given before, then ends the thread.
    ~WaylandConnection();

    /// The version of the interface that the compositor offers; 0 when it offers none. Any thread.
    quint32 versionOf(const char *interface) const;

    /// Binds a global, at most at `maxVersion`. Null when it is not offered. Before start(), or on
    /// the thread; whoever binds it destroys it.
    template <typename T>
    T *bind(const wl_interface &interface, quint32 maxVersion)
    {
        return static_cast<T *>(bindAny(interface, maxVersion));
    }

    wl_display *display() const { return m_display; }
    /// The seat that was offered first; null while there is none. Before start(), or on the thread.
    wl_seat *seat() const { return m_seat; }
    /// Its number among the globals; 0 while there is none. Like seat().
    quint32 seatName() const { return m_seat ? m_seatName : 0; }

    /// The thread begins to read. Adapters have bound and set their listeners by then, or do so on
    /// the thread.
    void start();

    /// Runs `task` on the thread, later.
    void post(Task task) { m_tasks.post(std::move(task)); }

    /// Runs `task` on the thread and returns when it has run; at once on the thread itself and
    /// before start(). False when the compositor is gone; it has not run then.
    [[nodiscard]] bool run(const Task &task);

    /// Returns when the compositor has done what was asked before. What it told until then has been
    /// handled, in order. False when it is gone. Like bind().
    [[nodiscard]] bool roundTrip();

    /// Tells of a descriptor that is not the display's, until unwatch(). On the thread.
    void watch(int fd, short events, Ready ready);
    void unwatch(int fd);

    /// `owner` stands for the adapter that registers; its functions run on the thread. Before
    /// start(), or on the thread.
    void addDeadlines(const void *owner, KeepDeadlines keep);
    /// Told once that the compositor is gone; nothing runs on the thread afterwards.
    void addLossListener(const void *owner, Task lost);
    void addGlobalListener(const void *owner, GlobalListener listener);
    /// None of the owner's functions runs any more when this returns. Any thread.
    void removeListeners(const void *owner);

private:
    struct Global
    {
        quint32 name;
        QByteArray interface;
        quint32 version;
    };
    struct Watch
    {
        int fd;
        short events;
        quint64 number; ///< Tells it from a later one on a descriptor of the same value.
        Ready ready;
    };
    template <typename Function>
    struct Listener
    {
        const void *owner;
        Function function;
    };

    explicit WaylandConnection(wl_display *display);
    void *bindAny(const wl_interface &interface, quint32 maxVersion);
    void addGlobal(quint32 name, const char *interface, quint32 version);
    void removeGlobal(quint32 name);
    void chooseSeat();
    void loop();
    std::optional<TimePoint> keepDeadlines();
    bool readEvents(std::optional<TimePoint> deadline);

    wl_display *m_display;
    wl_registry *m_registry = nullptr;
    wl_seat *m_seat = nullptr;
    quint32 m_seatName = 0;
    ServiceTasks m_tasks;
    quint64 m_watchesMade = 0;
    std::vector<Watch> m_watches;
    std::vector<Listener<KeepDeadlines>> m_deadlines;
    std::vector<Listener<Task>> m_lossListeners;
    std::vector<Listener<GlobalListener>> m_globalListeners;
    mutable Mutex m_mutex;
    std::vector<Global> m_globals QUILLMARSH_GUARDED_BY(m_mutex);
    std::thread m_thread;
};
