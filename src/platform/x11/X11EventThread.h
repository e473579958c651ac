#pragma once

#include "platform/x11/X11Connection.h"

#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// A thread that reads one connection. It handles an event at a time, runs tasks given to it
/// between two events, and sleeps otherwise. Owned by an adapter, declared after everything that
/// its handler and tasks use, so that it ends first.
class X11EventThread
{
public:
    using Handler = std::function<void(const xcb_generic_event_t &event)>;
    using Task = std::function<void()>;

    /// `connection` must outlive the thread, and be used by nobody else while it runs.
    X11EventThread(const X11Connection &connection, Handler handler);
    X11EventThread(const X11EventThread &) = delete;
    X11EventThread &operator=(const X11EventThread &) = delete;
    /// Runs the tasks given before, then ends the thread.
    ~X11EventThread();

    /// Runs `task` on the thread, later.
    void post(Task task);

    /// Runs `task` on the thread and returns when it has run. False when the connection is lost;
    /// it has not run then.
    [[nodiscard]] bool run(const Task &task);

private:
    void loop();
    bool runTasks();
    bool handleEvents();

    const X11Connection &m_connection;
    const Handler m_handler;
    const int m_wakeUp; ///< An eventfd.
    std::mutex m_mutex;
    std::deque<Task> m_tasks; ///< Guarded by m_mutex, as the two below.
    bool m_isEnding = false;
    bool m_isLost = false;
    std::thread m_thread;
};
