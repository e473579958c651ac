#include "updates/updater/Relauncher.h"

#include <QFile>

#include <array>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace {

// The shell reads until the pipe closes, which it does when this process is gone in whatever way.
// It belongs to the system, so it does not vanish with an image that is unmounted at our end.
constexpr char kShell[] = "/bin/sh";
constexpr char kWaiter[] = "while read -r _; do :; done; exec \"$0\" </dev/null";

} // namespace

bool Relauncher::startAfterExit(const QString &program)
{
    std::array<int, 2> pipe{-1, -1};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0)
        return false;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipe[0], STDIN_FILENO);
    // Nothing of ours may stay open over there: locks and the connection to the display would live
    // on.
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
    QByteArray path = QFile::encodeName(program);
    std::array<char *, 5> arguments{const_cast<char *>("sh"), const_cast<char *>("-c"),
                                    const_cast<char *>(kWaiter), path.data(), nullptr};
    pid_t child = 0;
    const bool isStarted =
        posix_spawn(&child, kShell, &actions, &attributes, arguments.data(), environ) == 0;
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipe[0]);
    // The other end stays open until the end of this process; that is the signal.
    if (!isStarted)
        ::close(pipe[1]);
    return isStarted;
}
