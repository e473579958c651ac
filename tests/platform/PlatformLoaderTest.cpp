#include "platform/PlatformLoader.h"

#include "support/ExpectedWarnings.h"

#include <gtest/gtest.h>

#include <tuple>

namespace {

/// The variables that say which displays there are, put back afterwards.
class PlatformLoaderTest : public testing::Test
{
protected:
    ~PlatformLoaderTest() override
    {
        for (const auto &[name, value] : saved)
            set(name, value);
    }

    static void set(const char *name, const QByteArray &value)
    {
        if (value.isNull())
            qunsetenv(name);
        else
            qputenv(name, value);
    }

    const std::pair<const char *, QByteArray> saved[3] = {
        {"DISPLAY", qgetenv("DISPLAY")},
        {"WAYLAND_DISPLAY", qgetenv("WAYLAND_DISPLAY")},
        {"QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM")},
    };
    const QByteArray here = qgetenv("DISPLAY");
};

TEST_F(PlatformLoaderTest, aDisplayThatCannotBeUsedGivesAMessageThatNamesIt)
{
    const std::tuple<QByteArray, QByteArray, const char *> rows[] = {
        {QByteArray(), QByteArray(), "DISPLAY is not set"},
        {QByteArray(), "wayland-54321", "Xwayland"},
        {":54321", QByteArray(), ":54321 cannot be reached"},
        {"nonsense", QByteArray(), "nonsense cannot be reached"},
    };
    for (const auto &[x11, wayland, expected] : rows) {
        SCOPED_TRACE(expected);
        set("DISPLAY", x11);
        set("WAYLAND_DISPLAY", wayland);
        const auto problem = PlatformLoader::chooseDisplay();
        ASSERT_TRUE(problem);
        EXPECT_TRUE(problem->contains(QLatin1String(expected))) << qPrintable(*problem);
    }
}

TEST_F(PlatformLoaderTest, byWayOfX11ALineSaysWhyAndWhatWillNotWork)
{
    EXPECT_FALSE(PlatformLoader::chooseDisplay());
    EXPECT_TRUE(ExpectedWarnings::messages().isEmpty());
    EXPECT_TRUE(PlatformLoader::makePlatform()->capabilities->doAllWork());
    set("WAYLAND_DISPLAY", "wayland-54321");
    EXPECT_FALSE(PlatformLoader::chooseDisplay());
    EXPECT_EQ(ExpectedWarnings::messages().filter(QStringLiteral("no compositor answers")).size(),
              1);
    EXPECT_FALSE(PlatformLoader::makePlatform()->capabilities->doAllWork());
}

} // namespace
