#pragma once

#include <QObject>
#include <QThreadPool>

#include <functional>
#include <utility>

/// One thread for work that would hold the main thread up: it comes with the first work and goes
/// after half a minute without any. Used from the main thread where nothing else is said.
class HelperThread
{
public:
    using Work = std::function<void()>;

    HelperThread();
    /// What is not begun yet is given up; what is under way is waited for, so it has to be bounded.
    ~HelperThread();
    HelperThread(const HelperThread &) = delete;
    HelperThread &operator=(const HelperThread &) = delete;

    /// Does it later, one after the other.
    void start(Work work) { m_thread.start(std::move(work)); }

    /// Gives up what is not begun yet.
    void giveUp() { m_thread.clear(); }

    /// For the work itself, on the helper's thread: does `result` on the main thread, unless this
    /// object is gone by then.
    void deliver(const Work &result);

private:
    QThreadPool m_thread;
    QObject m_receiver; ///< Ends first, and with it what is still to be delivered.
};
