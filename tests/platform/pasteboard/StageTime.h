#pragma once

#include <atomic>
#include <chrono>

/// The clock of a pasteboard under test: real until it is stopped, then only what advance() makes
/// it. Read on the pasteboard's thread.
class StageTime
{
public:
    using Clock = std::chrono::steady_clock;

    Clock::time_point now() const
    {
        const Clock::rep stopped = m_stopped;
        return stopped == 0 ? Clock::now() : Clock::time_point(Clock::duration(stopped));
    }
    void stop() { m_stopped = Clock::now().time_since_epoch().count(); }
    void advance(Clock::duration time) { m_stopped += time.count(); }

private:
    std::atomic<Clock::rep> m_stopped = 0;
};
