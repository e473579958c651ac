#include "platform/x11/X11EventThread.h"

#include "platform/SignalStack.h"

#include <poll.h>

#include <iterator>
#include <utility>

namespace {

// Between two looks at the tasks, so that a client which floods us delays no task.
constexpr int kEventsAtOnce = 64;

} // namespace

X11EventThread::X11EventThread(const X11Connection &connection, Handler handler, Hooks hooks)
    : m_connection(connection), m_handler(std::move(handler)), m_hooks(std::move(hooks)),
      m_now(m_hooks.now ? m_hooks.now : &std::chrono::steady_clock::now),
      m_thread([this] { loop(); })
{
}

X11EventThread::~X11EventThread()
{
    m_tasks.end();
    m_thread.join();
}

void X11EventThread::loop()
{
    const SignalStack signalStack;
    while (!m_connection.isBroken()) {
        // Both, always: a reply that a task waited for may have brought events along, for which
        // the descriptor will not wake us again.
        const bool hadTasks = m_tasks.doAll();
        bool hasWorked = handleEvents() || hadTasks;
        if (m_tasks.isOver())
            return;
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
    m_tasks.drop();
}

void X11EventThread::sleep(std::optional<TimePoint> deadline) const
{
    pollfd waits[] = {{xcb_get_file_descriptor(m_connection.get()), POLLIN, 0},
                      {m_tasks.wakeUp(), POLLIN, 0}};
    poll(waits, std::size(waits), ServiceTasks::patience(deadline, m_now()));
    m_tasks.noticed();
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
