#include "platform/freedesktop/UserFolders.h"

#include <QByteArray>

#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

void UserFolders::settle()
{
    for (const char *name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME",
                             "XDG_RUNTIME_DIR"}) {
        if (!qgetenv(name).startsWith('/'))
            ::unsetenv(name);
    }
    if (qgetenv("HOME").startsWith('/'))
        return;
    if (const passwd *user = ::getpwuid(::geteuid()); user && user->pw_dir)
        ::setenv("HOME", user->pw_dir, 1);
}
