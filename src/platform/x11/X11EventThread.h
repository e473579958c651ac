#pragma once

#include "platform/ServiceTasks.h"
#include "platform/x11/X11Connection.h"

#include <chrono>
#include <functional>
#include <optional>
#include <thread>
#include <utility>

/// A thread that reads one connection. It handles an event at a time, runs tasks given to it
/// between two events, keeps its adapter's deadlines, and sleeps otherwise. Owned by an adapter,
/// declared after everything that its handler and tasks use, so that it ends first.
class X11EventThread
{
public:
    using Handler = std::function<void(const xcb_generic_event_t &event)>;
    using Task = ServiceTasks::Task;
    using TimePoint = ServiceTasks::TimePoint;

    /// What an adapter wants besides its events. All run on the thread and may be left out.
    struct Hooks
    {
        /// Does what is due, and says when it must be asked again at the latest; absent: not
        /// before there was an event or a task.
        std::function<std::optional<TimePoint>(TimePoint now)> keepDeadlines;
        /// The connection is lost. Told once; nothing runs on the thread afterwards.
        Task handleLoss;
        /// By what deadlines are kept; the steady clock when left out.
        std::function<TimePoint()> now;
    };

    /// `connection` must outlive the thread, and be used by nobody else while it runs.
    X11EventThread(const X11Connection &connection, Handler handler, Hooks hooks = {});
    X11EventThread(const X11EventThread &) = delete;
    X11EventThread &operator=(const X11EventThread &) = delete;
    /// Runs the tasks given before, then ends the thread.
    ~X11EventThread();

    /// Runs `task` on the thread, later.
    void post(Task task) { m_tasks.post(std::move(task)); }

    /// Runs `task` on the thread and returns when it has run. False when the connection is lost;
    /// it has not run then.
    [[nodiscard]] bool run(const Task &task) { return m_tasks.run(task); }

private:
    void loop();
    bool handleEvents();
    void sleep(std::optional<TimePoint> deadline) const;

    const X11Connection &m_connection;
    const Handler m_handler;
    const Hooks m_hooks;
    const std::function<TimePoint()> m_now;
    ServiceTasks m_tasks;
    std::thread m_thread;
};
