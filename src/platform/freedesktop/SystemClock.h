#pragma once

#include "platform/Clock.h"

/// The computer's own time. Owned by Platform.
class SystemClock : public Clock
{
public:
    // ^Clock
    QDateTime now() const override;
    void wait(std::chrono::milliseconds duration) override;
};
