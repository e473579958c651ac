#include "preview/PreviewChild.h"

#include "preview/process/PreviewService.h"

#include <QFile>

#include <array>
#include <csignal>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Of our own only what libraries need to find themselves and their fonts.
std::vector<QByteArray> surroundings()
{
    std::vector<QByteArray> kept{"LC_ALL=C.UTF-8", "QT_QPA_PLATFORM=offscreen"};
    for (const char *name :
         {"HOME", "XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_DATA_DIRS",
          "XDG_RUNTIME_DIR", "FONTCONFIG_FILE", "FONTCONFIG_PATH", "LD_LIBRARY_PATH",
          "QT_PLUGIN_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS"})
        if (qEnvironmentVariableIsSet(name))
            kept.push_back(QByteArray(name) + '=' + qgetenv(name));
    for (const char *name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        if (qEnvironmentVariableIsEmpty(name))
            continue;
        // By which one of several fonts is chosen for a script.
        kept.push_back("FC_LANG=" + qgetenv(name));
        break;
    }
    return kept;
}

/// Starts `program` with `socket` and no other open file; negative when it cannot.
pid_t spawn(const QByteArray &program, int socket)
{
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawnattr_init(&attributes);
    ::posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    // What libraries print of a file, or whoever took them over, is nothing for a log.
    if (qEnvironmentVariableIntValue("QUILLMARSH_TRACE") != 1)
        ::posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    ::posix_spawn_file_actions_adddup2(&actions, socket, PreviewService::kSocket);
    ::posix_spawn_file_actions_addclosefrom_np(&actions, PreviewService::kSocket + 1);
    sigset_t signals;
    ::sigemptyset(&signals);
    ::posix_spawnattr_setsigmask(&attributes, &signals);
    ::sigfillset(&signals);
    ::posix_spawnattr_setsigdefault(&attributes, &signals);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    std::vector<QByteArray> variables = surroundings();
    std::vector<char *> environment;
    for (QByteArray &variable : variables)
        environment.push_back(variable.data());
    environment.push_back(nullptr);
    QByteArray name = program;
    std::array<char *, 2> arguments = {name.data(), nullptr};
    pid_t process = -1;
    if (::posix_spawn(&process, program.constData(), &actions, &attributes, arguments.data(),
                      environment.data()) != 0)
        process = -1;
    ::posix_spawnattr_destroy(&attributes);
    ::posix_spawn_file_actions_destroy(&actions);
    return process;
}

PreviewTrouble troubleOf(int status)
{
    if (WIFEXITED(status)) {
        switch (WEXITSTATUS(status)) {
        case PreviewService::kNotApart:
            return PreviewTrouble::NotApart;
        case PreviewService::kOutOfMemory:
            return PreviewTrouble::TooLarge;
        case 127: // Its libraries are not there.
            return PreviewTrouble::NotStarted;
        default:
            return PreviewTrouble::Crashed;
        }
    }
    switch (WTERMSIG(status)) {
    case SIGXCPU:
        return PreviewTrouble::TookLong;
    case SIGKILL: // Not by us: the system was short of memory.
        return PreviewTrouble::TooLarge;
    default:
        return PreviewTrouble::Crashed;
    }
}

} // namespace

std::unique_ptr<PreviewProcess::Child> PreviewProcess::Child::start(const QString &program)
{
    const auto ends = PreviewChannel::makePair();
    if (!ends)
        return nullptr;
    const pid_t process = spawn(QFile::encodeName(program), ends->second);
    ::close(ends->second);
    if (process < 0) {
        ::close(ends->first);
        return nullptr;
    }
    return std::unique_ptr<Child>(new Child(process, ends->first));
}

PreviewProcess::Child::~Child()
{
    if (m_process < 0)
        return;
    ::kill(m_process, SIGKILL);
    ::waitpid(m_process, nullptr, 0);
}

PreviewTrouble PreviewProcess::Child::end(PreviewTrouble otherwise)
{
    constexpr std::chrono::milliseconds kStep{2};
    constexpr int kSteps = 50;
    int status = 0;
    // What has closed its end is about to end; how, is known in a moment.
    bool isEnded = false;
    const bool isLeaving = m_channel.state() == PreviewChannel::State::Broken;
    for (int step = 0; !isEnded && step < (isLeaving ? kSteps : 1); ++step) {
        isEnded = ::waitpid(m_process, &status, WNOHANG) == m_process;
        if (!isEnded && isLeaving)
            std::this_thread::sleep_for(kStep);
    }
    if (isEnded) {
        m_process = -1;
        return troubleOf(status);
    }
    ::kill(m_process, SIGKILL);
    // One that reads from a file system that hangs cannot end before that answers.
    for (int step = 0; !isEnded && step < kSteps; ++step) {
        isEnded = ::waitpid(m_process, &status, WNOHANG) == m_process;
        if (!isEnded)
            std::this_thread::sleep_for(kStep);
    }
    m_process = -1;
    return otherwise;
}
