#include "platform/x11/X11EventThread.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <future>
#include <memory>
#include <utility>

X11EventThread::X11EventThread(const X11Connection &connection, Handler handler)
    : m_connection(connection), m_handler(std::move(handler)),
      m_wakeUp(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), m_thread([this] { loop(); })
{
}

X11EventThread::~X11EventThread()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isEnding = true;
    }
    eventfd_write(m_wakeUp, 1);
    m_thread.join();
    close(m_wakeUp);
}

void X11EventThread::post(Task task)
{
    {
        const std::lock_guard lock(m_mutex);
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
    pollfd waits[] = {{xcb_get_file_descriptor(m_connection.get()), POLLIN, 0},
                      {m_wakeUp, POLLIN, 0}};
    while (!m_connection.isBroken()) {
        // Both, always: a reply that a task waited for may have brought events along, for which
        // the descriptor will not wake us again.
        const bool hasWorked = runTasks() | handleEvents();
        {
            const std::lock_guard lock(m_mutex);
            if (m_isEnding && m_tasks.empty())
                return;
        }
        xcb_flush(m_connection.get());
        if (hasWorked)
            continue;
        poll(waits, std::size(waits), -1);
        eventfd_t count = 0;
        eventfd_read(m_wakeUp, &count);
    }
    std::deque<Task> dropped;
    const std::lock_guard lock(m_mutex);
    m_isLost = true;
    dropped.swap(m_tasks);
}

bool X11EventThread::runTasks()
{
    std::deque<Task> tasks;
    {
        const std::lock_guard lock(m_mutex);
        tasks.swap(m_tasks);
    }
    for (const Task &task : tasks)
        task();
    return !tasks.empty();
}

bool X11EventThread::handleEvents()
{
    bool hasAny = false;
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
        m_handler(*event);
        hasAny = true;
    }
    return hasAny;
}
