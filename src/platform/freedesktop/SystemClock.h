#pragma once

#include "platform/Clock.h"

#include <thread>

/// The computer's own time. Owned by Platform.
class SystemClock : public Clock
{
public:
    // ^Clock
    QDateTime now() const override { return QDateTime::currentDateTimeUtc(); }
    void wait(std::chrono::milliseconds duration) override
    {
        std::this_thread::sleep_for(duration);
    }
};
