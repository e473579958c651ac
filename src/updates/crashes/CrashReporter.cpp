#include "updates/crashes/CrashReporter.h"

#include "updates/PrivateFile.h"
#include "updates/crashes/CrashBackTrace.h"
#include "updates/crashes/CrashReportWriter.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>

#include <cxxabi.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

Q_LOGGING_CATEGORY(lcCrash, "quillmarsh.updates.crash", QtInfoMsg)

struct Caught
{
    int number;
    const char *name;
};

constexpr std::array kSignals{Caught{SIGSEGV, "SIGSEGV"}, Caught{SIGBUS, "SIGBUS"},
                              Caught{SIGILL, "SIGILL"}, Caught{SIGFPE, "SIGFPE"},
                              Caught{SIGABRT, "SIGABRT"}};

/// A report that is not written by then never will be: its disk hangs.
constexpr unsigned kLimitSeconds = 5;

/// What the handlers use, all of it ready before they are installed.
struct State
{
    State(const char *home) : backTrace(home) {}

    int folder = -1;
    pid_t process = 0;
    std::array<char, 64> fileName{};
    std::array<char, 128> product{};
    std::array<char, 256> exception{};
    CrashBackTrace backTrace;
    std::array<struct sigaction, kSignals.size()> before{};
    std::array<bool, kSignals.size()> isTaken{};
    std::terminate_handler terminateBefore = nullptr;
    std::atomic<pid_t> reportingThread = 0;
    std::atomic<int> number = 0;
};

std::atomic<State *> g_state = nullptr;
static_assert(std::atomic<State *>::is_always_lock_free);

pid_t threadId()
{
    return static_cast<pid_t>(::syscall(SYS_gettid));
}

/// The handler that was there before takes over; mostly the system's default.
void giveBack(const State &state)
{
    for (size_t i = 0; i < kSignals.size(); ++i) {
        if (state.isTaken[i])
            ::sigaction(kSignals[i].number, &state.before[i], nullptr);
    }
}

void sendToThisThread(const State &state, int number)
{
    ::syscall(SYS_tgkill, state.process, threadId(), number);
}

extern "C" void giveUp(int)
{
    const State &state = *g_state;
    giveBack(state);
    sigset_t signal;
    ::sigemptyset(&signal);
    ::sigaddset(&signal, state.number);
    ::pthread_sigmask(SIG_UNBLOCK, &signal, nullptr);
    sendToThisThread(state, state.number);
}

void limitTime()
{
    struct sigaction action = {};
    action.sa_handler = giveUp;
    ::sigaction(SIGALRM, &action, nullptr);
    ::alarm(kLimitSeconds);
}

void writeReport(const State &state)
{
    // Where a file may not grow further, writing shall fail and not kill.
    struct sigaction ignored = {};
    ignored.sa_handler = SIG_IGN;
    ::sigaction(SIGXFSZ, &ignored, nullptr);
    const int file = ::openat(state.folder, state.fileName.data(),
                              O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file < 0)
        return;
    CrashReportWriter writer(file);
    writer.put(state.product.data());
    writer.put("\n");
    for (const Caught &caught : kSignals) {
        if (caught.number == state.number)
            writer.put(caught.name);
    }
    if (state.exception[0]) {
        writer.put(", uncaught exception ");
        writer.put(state.exception.data());
    }
    writer.put(threadId() == state.process ? ", main thread\n\n" : ", another thread\n\n");
    // So that this much is there if the unwinder fails on a damaged stack.
    writer.flush();
    state.backTrace.write(writer);
}

extern "C" void report(int number, siginfo_t *info, void *)
{
    const int savedErrno = errno;
    State &state = *g_state;
    pid_t nobody = 0;
    // A child between fork and exec is not the process that the report would be about.
    if (::getpid() == state.process) {
        if (state.reportingThread.compare_exchange_strong(nobody, threadId())) {
            state.number = number;
            limitTime();
            writeReport(state);
            ::alarm(0);
        } else if (nobody != threadId()) {
            // The first crash is the one that counts, and ends the process in a moment.
            for (;;)
                ::pause();
        }
    }
    giveBack(state);
    // A fault occurs again when the handler returns; what was sent must be sent again.
    if (info->si_code <= 0)
        sendToThisThread(state, number);
    errno = savedErrno;
}

void noteException()
{
    State &state = *g_state;
    if (const std::type_info *type = abi::__cxa_current_exception_type()) {
        int status = 0;
        char *readable = abi::__cxa_demangle(type->name(), nullptr, nullptr, &status);
        std::strncpy(state.exception.data(), readable ? readable : type->name(),
                     state.exception.size() - 1);
        std::free(readable);
    }
    if (state.terminateBefore)
        state.terminateBefore();
    std::abort();
}

bool isFree(const struct sigaction &action)
{
    return !(action.sa_flags & SA_SIGINFO) && action.sa_handler == SIG_DFL;
}

void install(State &state)
{
    struct sigaction action = {};
    action.sa_sigaction = report;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    // A fault inside the handler then ends the process at once.
    for (const Caught &caught : kSignals)
        ::sigaddset(&action.sa_mask, caught.number);
    for (size_t i = 0; i < kSignals.size(); ++i) {
        ::sigaction(kSignals[i].number, nullptr, &state.before[i]);
        state.isTaken[i] =
            isFree(state.before[i]) && ::sigaction(kSignals[i].number, &action, nullptr) == 0;
    }
    state.terminateBefore = std::set_terminate(noteException);
}

} // namespace

CrashReporter::CrashReporter(const QString &folder, const QString &product)
{
    const QByteArray path = QFile::encodeName(folder);
    PrivateFile::makeFolder(folder);
    const int descriptor = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) {
        qCWarning(lcCrash, "crashes leave no report: %s", std::strerror(errno));
        return;
    }
    auto state = std::make_unique<State>(QFile::encodeName(QDir::homePath()).constData());
    state->folder = descriptor;
    state->process = ::getpid();
    std::snprintf(state->fileName.data(), state->fileName.size(), "crash-%lld-%d.txt",
                  static_cast<long long>(::time(nullptr)), static_cast<int>(state->process));
    std::snprintf(state->product.data(), state->product.size(), "%s", qUtf8Printable(product));
    g_state = state.release();
    install(*g_state);
}

CrashReporter::~CrashReporter()
{
    if (!g_state)
        return;
    giveBack(*g_state);
    std::set_terminate(g_state.load()->terminateBefore);
    const std::unique_ptr<State> state(g_state.exchange(nullptr));
    ::close(state->folder);
}
