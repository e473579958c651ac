#include "platform/freedesktop/UserFolders.h"

#include <QDir>
#include <QStandardPaths>

#include <gtest/gtest.h>

#include <array>

namespace {

TEST(UserFolders, areThoseOfTheUserWhateverTheEnvironmentSays)
{
    struct Row
    {
        const char *variable;
        const char *value;
        QStandardPaths::StandardLocation location;
        const char *folder;
    };
    const std::array rows{
        Row{"XDG_DATA_HOME", "data", QStandardPaths::GenericDataLocation, "/home/x/.local/share"},
        Row{"XDG_CONFIG_HOME", "./config", QStandardPaths::GenericConfigLocation,
            "/home/x/.config"},
        Row{"XDG_CACHE_HOME", "~/cache", QStandardPaths::GenericCacheLocation, "/home/x/.cache"},
        Row{"XDG_DATA_HOME", "/other", QStandardPaths::GenericDataLocation, "/other"},
    };
    qputenv("HOME", "/home/x");
    for (const Row &row : rows) {
        qputenv(row.variable, row.value);
        UserFolders::settle();
        EXPECT_EQ(QStandardPaths::writableLocation(row.location), QLatin1String(row.folder))
            << row.variable << "=" << row.value;
        qunsetenv(row.variable);
    }
    qputenv("XDG_DATA_DIRS", "share:/usr/share");
    EXPECT_FALSE(QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)
                     .contains(QStringLiteral("share")));
    qunsetenv("XDG_DATA_DIRS");
    for (const char *home : {"", "relative"}) {
        qputenv("HOME", home);
        UserFolders::settle();
        EXPECT_TRUE(QDir::homePath().size() > 1 && QDir::homePath().startsWith(u'/'))
            << qPrintable(QDir::homePath());
    }
}

} // namespace
