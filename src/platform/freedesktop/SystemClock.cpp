#include "platform/freedesktop/SystemClock.h"

#include <thread>

QDateTime SystemClock::now() const
{
    return QDateTime::currentDateTimeUtc();
}

void SystemClock::wait(std::chrono::milliseconds duration)
{
    std::this_thread::sleep_for(duration);
}
