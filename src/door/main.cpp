// What is installed as "quillmarsh": it hands its word over to the instance that runs, or writes
// the list of clips that it gets from there, and becomes the application when there is none, or
// when the words, the environment or the instance need more. Linked with the C library alone, so
// that a key of the desktop, or a launcher, is answered at once.

#include "platform/freedesktop/instance/InstanceCall.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Room for a path and the file's name behind it.
struct Path
{
    char text[PATH_MAX] = {};
};

/// What is searched for; longer ones are for the application.
struct Search
{
    char text[InstanceCall::kMaxMessage / 2] = {};
};

/// Null unless the words are an action, or none at all, which is to activate: "".
const char *actionOf(int argc, char **argv)
{
    if (argc <= 1)
        return "";
    return argc == 2 && InstanceCall::isAction(argv[1]) ? argv[1] : nullptr;
}

/// Whether a token may be handed over as it stands: the application knows what to make of others.
bool isPlain(const char *token)
{
    const size_t length = std::strlen(token);
    if (length > InstanceCall::kMaxTokenLength)
        return false;
    for (size_t i = 0; i < length; ++i) {
        const bool isSingleSpace =
            token[i] == ' ' && i > 0 && token[i - 1] != ' ' && i + 1 < length;
        if ((token[i] <= ' ' || token[i] > '~') && !isSingleSpace)
            return false;
    }
    return true;
}

/// What the launcher gave this process; "" when it gave nothing.
const char *activationToken()
{
    const char *token = std::getenv("XDG_ACTIVATION_TOKEN");
    if (!token || *token == 0)
        token = std::getenv("DESKTOP_STARTUP_ID");
    return token ? token : "";
}

/// The folder of the store, where the instance has its lock and its socket; -1 when it is not as
/// the application leaves it.
int openStoreFolder()
{
    const char *dataHome = std::getenv("XDG_DATA_HOME");
    const char *home = std::getenv("HOME");
    const bool isNamed = dataHome && *dataHome == '/';
    if (!isNamed && !(home && *home == '/'))
        return -1;
    Path path;
    const int length =
        std::snprintf(path.text, sizeof path.text, "%s%s/" QUILLMARSH_BUNDLE_IDENTIFIER,
                      isNamed ? dataHome : home, isNamed ? "" : "/.local/share");
    if (length < 0 || length >= static_cast<int>(sizeof path.text))
        return -1;
    const int folder = ::open(path.text, O_DIRECTORY | O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    const bool isOurs = folder >= 0 && ::fstat(folder, &status) == 0 &&
                        status.st_uid == ::geteuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
    return isOurs ? folder : -1;
}

/// Hands two lines to the instance; `file` is as in InstanceCall. Nobody, too, when it is not for
/// us to say.
InstanceCall::Answer send(const char *line, const char *next, int limit, int *file)
{
    const int folder = openStoreFolder();
    const int lock = ::openat(folder, InstanceCall::kLockName, O_RDWR | O_NOFOLLOW | O_CLOEXEC);
    char message[InstanceCall::kMaxMessage];
    const int size =
        std::snprintf(message, sizeof message, "%s\n%s\n%s", InstanceCall::kGreeting, line, next);
    if (folder < 0 || lock < 0 || size < 0 || size >= static_cast<int>(sizeof message))
        return InstanceCall::Answer::Nobody;
    return InstanceCall::forward(folder, lock, message, static_cast<size_t>(size), limit, file);
}

/// Nobody, too, when it is not for us to say.
InstanceCall::Answer handOver(const char *action)
{
    const char *token = activationToken();
    return isPlain(token) ? send(action, token, InstanceCall::kAnswerLimit, nullptr)
                          : InstanceCall::Answer::Nobody;
}

/// What the words search for in a list of lines, one after the other with spaces between; false
/// when they want more than that.
bool readSearch(int argc, char **argv, Search &search)
{
    if (argc < 2 || std::strcmp(argv[1], InstanceCall::kList) != 0)
        return false;
    size_t length = 0;
    for (int i = 2; i < argc; ++i) {
        const size_t room = sizeof search.text - length;
        const int added = std::snprintf(search.text + length, room, i > 2 ? " %s" : "%s", argv[i]);
        const bool isOption = argv[i][0] == '-' && argv[i][1] != 0;
        if (isOption || added < 0 || static_cast<size_t>(added) >= room)
            return false;
        length += static_cast<size_t>(added);
    }
    return std::strchr(search.text, '\n') == nullptr;
}

bool write(const char *bytes, size_t size)
{
    while (size > 0) {
        const ssize_t written = ::write(STDOUT_FILENO, bytes, size);
        if (written < 0 && errno != EINTR)
            return false;
        const size_t done = written < 0 ? 0 : static_cast<size_t>(written);
        bytes += done;
        size -= done;
    }
    return true;
}

/// Writes all of the file, and gives the exit code.
int writeOut(int file)
{
    char part[64 * 1024];
    ssize_t size = 1;
    bool isWritten = ::lseek(file, 0, SEEK_SET) == 0;
    while (isWritten && size > 0) {
        size = ::read(file, part, sizeof part);
        isWritten = size >= 0 && write(part, static_cast<size_t>(size));
    }
    if (!isWritten)
        std::fputs("quillmarsh: the answer could not be written\n", stderr);
    return isWritten ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Becomes the application, which lies in a folder beside this program's. Returns only when that
/// cannot be started.
void becomeApplication(char **argv)
{
    Path path;
    const ssize_t length = ::readlink("/proc/self/exe", path.text, sizeof path.text - 1);
    char *name = length > 0 ? std::strrchr(path.text, '/') : nullptr;
    const size_t room = name ? sizeof path.text - static_cast<size_t>(name - path.text) : 0;
    if (std::snprintf(name, room, "/%s", QUILLMARSH_APPLICATION) < static_cast<int>(room))
        ::execv(path.text, argv);
    else
        errno = ENAMETOOLONG;
    std::fprintf(stderr, "quillmarsh: %s cannot be started: %s\n", path.text, std::strerror(errno));
}

} // namespace

int main(int argc, char **argv)
{
    if (const char *action = actionOf(argc, argv)) {
        const InstanceCall::Answer answer = handOver(action);
        if (answer != InstanceCall::Answer::Nobody)
            return InstanceCall::endWith(answer, action);
    }
    Search search;
    int list = -1;
    if (readSearch(argc, argv, search) &&
        send(InstanceCall::kList, search.text, InstanceCall::kListLimit, &list) ==
            InstanceCall::Answer::Taken &&
        list >= 0)
        return writeOut(list);
    becomeApplication(argv);
    return EXIT_FAILURE;
}
