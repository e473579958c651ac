// Ends by the crash that its second argument names, with a report in the folder that its first one
// names. A secret stands wherever a crash may pick one up.

#include "platform/SignalStack.h"
#include "updates/crashes/CrashReporter.h"

#include <QFile>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>

#include <sys/resource.h>
#include <unistd.h>

namespace {

constexpr char kSecret[] = "SECRET of a clip";

volatile int g_depth = 0;
volatile int g_never = -1;

[[gnu::noinline]] void crashHere()
{
    *reinterpret_cast<volatile int *>(g_depth * sizeof(int) + 8) = 1;
}

[[gnu::noinline]] int overflow(int depth)
{
    volatile char frame[4096];
    std::strcpy(const_cast<char *>(frame), kSecret);
    g_depth = depth;
    if (depth == g_never)
        return 0;
    return overflow(depth + 1) + frame[0];
}

[[gnu::noinline, gnu::no_sanitize("address", "undefined")]] void smashStack()
{
    volatile char *above = static_cast<char *>(__builtin_frame_address(0));
    for (int i = 0; i < 256; ++i)
        above[i] = 'A';
    std::raise(SIGSEGV);
    g_depth = 0; // No tail call, which would leave no frame.
}

void inThread(const std::function<void()> &crash)
{
    std::thread([&crash] {
        const SignalStack stack;
        crash();
    }).join();
}

void limitFiles()
{
    const rlimit none = {0, 0};
    ::setrlimit(RLIMIT_FSIZE, &none);
}

} // namespace

int main(int argc, char **argv)
{
    const std::string folder = argc > 1 ? argv[1] : "";
    const std::map<std::string, std::function<void()>> crashes{
        {"fault", crashHere},
        {"abort", [] { std::abort(); }},
        {"fatal", [] { qFatal("%s", kSecret); }},
        {"exception", [] { throw std::runtime_error(kSecret); }},
        {"overflow", [] { overflow(0); }},
        {"smash", smashStack},
        {"illegal", [] { __builtin_trap(); }},
        {"division", [] { std::raise(SIGFPE); }},
        {"bus", [] { std::raise(SIGBUS); }},
        {"thread", [] { inThread(crashHere); }},
        {"thread overflow", [] { inThread([] { overflow(0); }); }},
        {"no folder", [&] { ::rmdir(folder.c_str()), crashHere(); }},
        {"disk full", [] { limitFiles(), crashHere(); }},
    };
    const rlimit noCore = {0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    const auto crash = crashes.find(argc > 2 ? argv[2] : "");
    if (crash == crashes.end())
        return 2;
    const CrashReporter reporter(QFile::decodeName(folder.c_str()),
                                 QStringLiteral("Quillmarsh 7.8"));
    crash->second();
    return 0;
}
