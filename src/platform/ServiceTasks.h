#pragma once

#include "platform/Mutex.h"

#include <chrono>
#include <deque>
#include <functional>
#include <optional>

/// What a service's thread does between the events of its connection, in the order in which it was
/// given. Owned by the one who owns the thread; any thread gives, the service's own does.
class ServiceTasks
{
public:
    using Task = std::function<void()>;
    using TimePoint = std::chrono::steady_clock::time_point;

    ServiceTasks();
    ServiceTasks(const ServiceTasks &) = delete;
    ServiceTasks &operator=(const ServiceTasks &) = delete;
    ~ServiceTasks();

    /// Has it done later; never once the tasks were dropped.
    void post(Task task);
    /// The same, and returns when it is done. False when the tasks were dropped; it is not done
    /// then. Not for the service's own thread.
    [[nodiscard]] bool run(const Task &task);
    /// Nothing more will be given.
    void end();

    /// For the service's thread alone, from here on. A descriptor that can be read when there is
    /// something to do, until noticed().
    int wakeUp() const { return m_wakeUp; }
    void noticed() const;
    /// Does what was given before. True when that was something.
    bool doAll();
    /// The end was told and everything is done.
    bool isOver() const;
    /// The connection is lost: nothing is done any more, and nobody waits for it.
    void drop();

    /// How long poll() may wait for a deadline, in milliseconds; for ever without one.
    static int patience(std::optional<TimePoint> deadline, TimePoint now);

private:
    const int m_wakeUp; ///< An eventfd.
    mutable Mutex m_mutex;
    std::deque<Task> m_tasks QUILLMARSH_GUARDED_BY(m_mutex);
    bool m_isEnding QUILLMARSH_GUARDED_BY(m_mutex) = false;
    bool m_isDropped QUILLMARSH_GUARDED_BY(m_mutex) = false;
};
