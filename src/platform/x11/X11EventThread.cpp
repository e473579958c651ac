#include "platform/x11/X11EventThread.h"

#include "platform/SignalStack.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <future>
#include <memory>
#include <utility>

namespace {

// Between two looks at the tasks, so that a client which floods us delays no task.
constexpr int kEventsAtOnce = 64;

} // namespace

X11EventThread::X11EventThread(const X11Connection &connection, Handler handler, Hooks hooks)
    : m_connection(connection), m_handler(std::move(handler)), m_hooks(std::move(hooks)),
      m_now(m_hooks.now ? m_hooks.now : &std::chrono::steady_clock::now),
      m_wakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), m_thread([this] { loop(); })
{
}

X11EventThread::~X11EventThread()
{
    {
        const MutexLock lock(m_mutex);
        m_isEnding = true;
    }
    eventfd_write(m_wakeUp, 1);
    m_thread.join();
    close(m_wakeUp);
}

void X11EventThread::post(Task task)
{
    {
        const MutexLock lock(m_mutex);
        if (m_isLost)
            return;
        m_tasks.push_back(std::move(task));
    }
    eventfd_write(m_wakeUp, 1);
}

bool X11EventThread::run(const Task &task)
{
    // A task that is dropped breaks its promise, which is how a lost connection ends the wait.
    auto done = std::make_shared<std::promise<bool>>();
    std::future<bool> hasRun = done->get_future();
    post([&task, done] {
        task();
        done->set_value(true);
    });
    done.reset();
    try {
        return hasRun.get();
    } catch (const std::future_error &) {
        return false;
    }
}

void X11EventThread::loop()
{
    const SignalStack signalStack;
    while (!m_connection.isBroken()) {
        // Both, always: a reply that a task waited for may have brought events along, for which
        // the descriptor will not wake us again.
        const bool hadTasks = runTasks();
        bool hasWorked = handleEvents() || hadTasks;
        {
            const MutexLock lock(m_mutex);
            if (m_isEnding && m_tasks.empty())
                return;
        }
        std::optional<TimePoint> deadline;
        if (m_hooks.keepDeadlines)
            deadline = m_hooks.keepDeadlines(m_now());
        xcb_flush(m_connection.get());
        // So may the flush and the keeping of deadlines.
        if (const XcbPointer<xcb_generic_event_t> event{
                xcb_poll_for_queued_event(m_connection.get())}) {
            m_handler(*event);
            hasWorked = true;
        }
        if (!hasWorked)
            sleep(deadline);
    }
    if (m_hooks.handleLoss)
        m_hooks.handleLoss();
    dropTasks();
}

void X11EventThread::sleep(std::optional<TimePoint> deadline) const
{
    int milliseconds = -1;
    if (deadline) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - m_now());
        milliseconds = static_cast<int>(std::clamp<qint64>(left.count(), 0, 60'000));
    }
    pollfd waits[] = {{xcb_get_file_descriptor(m_connection.get()), POLLIN, 0},
                      {m_wakeUp, POLLIN, 0}};
    poll(waits, std::size(waits), milliseconds);
    eventfd_t count = 0;
    eventfd_read(m_wakeUp, &count);
}

void X11EventThread::dropTasks()
{
    // Declared first, so that they go after the lock: a broken promise wakes its waiter at once.
    std::deque<Task> dropped;
    const MutexLock lock(m_mutex);
    m_isLost = true;
    dropped.swap(m_tasks);
}

bool X11EventThread::runTasks()
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

bool X11EventThread::handleEvents()
{
    for (int i = 0; i < kEventsAtOnce; ++i) {
        const XcbPointer<xcb_generic_event_t> event(xcb_poll_for_event(m_connection.get()));
        if (!event)
            return i > 0;
        m_handler(*event);
    }
    return true;
}
