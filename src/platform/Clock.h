#pragma once

#include <QDateTime>

#include <chrono>

/// Time as the application sees it, so that tests set it and their waits cost nothing. Owned by
/// Platform.
class Clock
{
public:
    Clock() = default;
    Clock(const Clock &) = delete;
    Clock &operator=(const Clock &) = delete;
    virtual ~Clock() = default;

    /// The present moment in UTC, with milliseconds.
    virtual QDateTime now() const = 0;

    /// Blocks the calling thread. Only the two waits of a swop use it.
    virtual void wait(std::chrono::milliseconds duration) = 0;
};
