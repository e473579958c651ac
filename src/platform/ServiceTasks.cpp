#include "platform/ServiceTasks.h"

#include <QtGlobal>

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <future>
#include <memory>
#include <utility>

ServiceTasks::ServiceTasks() : m_wakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

ServiceTasks::~ServiceTasks()
{
    close(m_wakeUp);
}

void ServiceTasks::post(Task task)
{
    {
        const MutexLock lock(m_mutex);
        if (m_isDropped)
            return;
        m_tasks.push_back(std::move(task));
    }
    eventfd_write(m_wakeUp, 1);
}

bool ServiceTasks::run(const Task &task)
{
    // A task that is dropped breaks its promise, which is how a lost connection ends the wait.
    auto done = std::make_shared<std::promise<bool>>();
    std::future<bool> isDone = done->get_future();
    post([&task, done] {
        task();
        done->set_value(true);
    });
    done.reset();
    try {
        return isDone.get();
    } catch (const std::future_error &) {
        return false;
    }
}

void ServiceTasks::end()
{
    {
        const MutexLock lock(m_mutex);
        m_isEnding = true;
    }
    eventfd_write(m_wakeUp, 1);
}

void ServiceTasks::noticed() const
{
    eventfd_t count = 0;
    eventfd_read(m_wakeUp, &count);
}

bool ServiceTasks::doAll()
{
    std::deque<Task> tasks;
    {
        const MutexLock lock(m_mutex);
        tasks.swap(m_tasks);
    }
    for (const Task &task : tasks)
        task();
    return !tasks.empty();
}

bool ServiceTasks::isOver() const
{
    const MutexLock lock(m_mutex);
    return m_isEnding && m_tasks.empty();
}

void ServiceTasks::drop()
{
    // Declared first, so that they go after the lock: a broken promise wakes its waiter at once.
    std::deque<Task> dropped;
    const MutexLock lock(m_mutex);
    m_isDropped = true;
    dropped.swap(m_tasks);
}

int ServiceTasks::patience(std::optional<TimePoint> deadline, TimePoint now)
{
    if (!deadline)
        return -1;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - now);
    return static_cast<int>(std::clamp<qint64>(left.count(), 0, 60'000));
}
