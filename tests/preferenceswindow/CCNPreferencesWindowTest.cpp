#include "preferenceswindow/CCNPreferencesWindow.h"

#include "platform/memory/MemoryPlatform.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const QString kName = QStringLiteral("CCNPreferencesWindowFrameAutoSaveName");
const QString kKey = QStringLiteral("NSWindow Frame CCNPreferencesWindowFrameAutoSaveName");

TEST(PreferencesWindow, returnsToWhereItWasLeft)
{
    MemorySettingsStore settings;
    MemoryWindowSpace space;
    const QRect frame(120, 80, 300, 200);
    {
        CCNPreferencesWindow window(settings, space);
        window.setFrameAutosaveName(kName);
        window.show();
        window.setFrame(frame);
        window.hide();
    }
    CCNPreferencesWindow window(settings, space);
    window.setFrameAutosaveName(kName);
    EXPECT_EQ(window.geometry(), frame);
}

TEST(PreferencesWindow, keepsItsFrameWhileItStaysOpen)
{
    MemorySettingsStore settings;
    MemoryWindowSpace space;
    CCNPreferencesWindow window(settings, space);
    window.setFrameAutosaveName(kName);
    window.show();
    window.setFrame(QRect(33, 44, 300, 200));
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return settings.value(kKey).toString().startsWith(QStringLiteral("33 44 300 200 "));
    }));
}

TEST(PreferencesWindow, comesBackFromAScreenThatIsGone)
{
    MemorySettingsStore settings;
    MemoryWindowSpace space;
    settings.setValue(kKey, QStringLiteral("9000 -5000 420 230 8000 0 1920 1080"));
    CCNPreferencesWindow window(settings, space);
    window.setFrameAutosaveName(kName);
    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(window.geometry()));
    EXPECT_EQ(window.size(), QSize(420, 230));
}

struct BadFrame
{
    const char *name;
    const char *text;
};

using NoFrame = testing::TestWithParam<BadFrame>;

TEST_P(NoFrame, leavesTheWindowAsItIs)
{
    MemorySettingsStore settings;
    MemoryWindowSpace space;
    CCNPreferencesWindow window(settings, space);
    const QRect before = window.geometry();
    EXPECT_FALSE(window.setFrameFromString(QString::fromLatin1(GetParam().text)));
    EXPECT_EQ(window.geometry(), before);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, NoFrame,
    testing::Values(BadFrame{"empty", ""},
                    BadFrame{"theAutosaveName", "CCNPreferencesWindowFrameAutoSaveName"},
                    BadFrame{"tooFew", "1 2 3"}, BadFrame{"words", "1 2 three 4"},
                    BadFrame{"noSize", "1 2 0 -4"}, BadFrame{"huge", "0 0 99999999999999999999 1"},
                    BadFrame{"beyondAnyScreen", "2147483647 0 100 100"}),
    [](const auto &row) { return std::string(row.param.name); });

} // namespace
