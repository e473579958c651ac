/// Preloaded into a program, has it see another time of day: shifted by the seconds that stand in
/// the file which SHIFTED_CLOCK names, read anew each time. What counts from the start of the
/// machine stays, as it does when somebody sets the clock.

#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>
#include <sys/time.h>
#include <time.h>

namespace {

time_t shift()
{
    const char *name = std::getenv("SHIFTED_CLOCK");
    std::FILE *file = name ? std::fopen(name, "re") : nullptr;
    long long seconds = 0;
    if (file && std::fscanf(file, "%lld", &seconds) != 1)
        seconds = 0;
    if (file)
        std::fclose(file);
    return static_cast<time_t>(seconds);
}

} // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec *time) noexcept
{
    static const auto real =
        reinterpret_cast<int (*)(clockid_t, timespec *)>(dlsym(RTLD_NEXT, "clock_gettime"));
    const int result = real(clock, time);
    if (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE)
        time->tv_sec += shift();
    return result;
}

int gettimeofday(timeval *time, void *) noexcept
{
    timespec now = {};
    const int result = clock_gettime(CLOCK_REALTIME, &now);
    time->tv_sec = now.tv_sec;
    time->tv_usec = now.tv_nsec / 1000;
    return result;
}

time_t time(time_t *place) noexcept
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    if (place)
        *place = now.tv_sec;
    return now.tv_sec;
}

} // extern "C"
