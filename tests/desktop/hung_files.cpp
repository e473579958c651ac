/// Preloaded into a program, makes the folder that HUNG_FOLDER names a mount whose server does not
/// answer once there is a file of that name with ".hung" behind it: whoever then asks for something
/// in the folder waits until that file is gone. The kernel's table of mounts is the file with
/// ".mounts" behind it. The main thread is let off with an error and reported, at any time, because
/// it must never ask.

#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

const char *const folder = std::getenv("HUNG_FOLDER");

bool hasHung()
{
    char name[PATH_MAX];
    std::snprintf(name, sizeof name, "%s.hung", folder);
    return ::syscall(SYS_access, name, F_OK) == 0;
}

/// The file to open for `path`.
const char *inPlaceOf(const char *path)
{
    static char table[PATH_MAX];
    if (!folder || std::strcmp(path, "/proc/self/mountinfo") != 0)
        return path;
    std::snprintf(table, sizeof table, "%s.mounts", folder);
    return table;
}

bool isRefused(const char *call, const char *path)
{
    if (!folder || !path || std::strncmp(path, folder, std::strlen(folder)) != 0 ||
        path[std::strlen(folder)] == '.')
        return false;
    if (::gettid() == ::getpid()) {
        std::fprintf(stderr, "the main thread asked: %s %s\n", call, path);
        errno = ENOENT;
        return true;
    }
    while (hasHung())
        ::usleep(10'000);
    return false;
}

template <typename Function>
Function real(const char *name, Function)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

} // namespace

#define HANG(result, name, path, failure, parameters, arguments)                                   \
    extern "C" result name parameters                                                              \
    {                                                                                              \
        return isRefused(#name, path) ? failure : real(#name, &name) arguments;                    \
    }

HANG(int, stat, path, -1, (const char *path, struct stat *status), (path, status))
HANG(int, lstat, path, -1, (const char *path, struct stat *status), (path, status))
HANG(int, stat64, path, -1, (const char *path, struct stat64 *status), (path, status))
HANG(int, lstat64, path, -1, (const char *path, struct stat64 *status), (path, status))
HANG(int, statx, path, -1,
     (int folder, const char *path, int flags, unsigned mask, struct statx *status),
     (folder, path, flags, mask, status))
HANG(int, access, path, -1, (const char *path, int mode), (path, mode))
HANG(ssize_t, readlink, path, -1, (const char *path, char *target, size_t size),
     (path, target, size))
HANG(DIR *, opendir, path, nullptr, (const char *path), (path))
HANG(char *, realpath, path, nullptr, (const char *path, char *resolved), (path, resolved))
HANG(int, inotify_add_watch, path, -1, (int number, const char *path, uint32_t mask),
     (number, path, mask))

#define HANG_OPEN(name)                                                                            \
    extern "C" int name(const char *path, int flags, ...)                                          \
    {                                                                                              \
        va_list rest;                                                                              \
        va_start(rest, flags);                                                                     \
        const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) ? va_arg(rest, mode_t) : 0;            \
        va_end(rest);                                                                              \
        return isRefused(#name, path) ? -1 : real(#name, &name)(inPlaceOf(path), flags, mode);     \
    }

HANG_OPEN(open)
HANG_OPEN(open64)
