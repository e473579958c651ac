#include "platform/freedesktop/TerminationSignals.h"

#include <QLoggingCategory>
#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace {

Q_LOGGING_CATEGORY(lcTermination, "quillmarsh.platform.termination", QtInfoMsg)

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};

/// The handler may touch nothing but this and write().
std::atomic<int> g_writeEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

extern "C" void noteSignal(int)
{
    const int savedErrno = errno;
    const char byte = 1;
    // A full pipe already says what there is to say.
    [[maybe_unused]] const ssize_t written = ::write(g_writeEnd, &byte, 1);
    errno = savedErrno;
}

bool isIgnored(int number)
{
    struct sigaction present = {};
    return ::sigaction(number, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
}

} // namespace

TerminationSignals::TerminationSignals(QObject *parent) : QObject(parent)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        qCWarning(lcTermination, "no clean quit at signals: %s", std::strerror(errno));
        return;
    }
    m_readEnd = ends[0];
    g_writeEnd = ends[1];
    auto *notifier = new QSocketNotifier(m_readEnd, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &TerminationSignals::drain);

    struct sigaction action = {};
    action.sa_handler = noteSignal;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    for (const int number : kSignals) {
        if (!isIgnored(number))
            ::sigaction(number, &action, nullptr);
    }
}

TerminationSignals::~TerminationSignals()
{
    if (m_readEnd < 0)
        return;
    for (const int number : kSignals) {
        if (!isIgnored(number))
            ::signal(number, SIG_DFL);
    }
    ::close(g_writeEnd.exchange(-1));
    ::close(m_readEnd);
}

void TerminationSignals::drain()
{
    char bytes[16];
    while (::read(m_readEnd, bytes, sizeof bytes) > 0) {
    }
    Q_EMIT terminationRequested();
}
