#include "platform/PlatformLoader.h"

#include <QFile>
#include <QGuiApplication>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

constexpr const char *kQtPlatform = "QT_QPA_PLATFORM";

TEST(CompletePlatform, everyCapabilityIsThereAndTheChoiceIsKeptFromOtherPrograms)
{
    const QByteArray here = qgetenv(kQtPlatform);
    for (const QByteArray &before : {QByteArray(), QByteArray("offscreen")}) {
        if (before.isNull())
            qunsetenv(kQtPlatform);
        else
            qputenv(kQtPlatform, before);
        ASSERT_FALSE(PlatformLoader::chooseDisplay());
        EXPECT_EQ(qgetenv(kQtPlatform), QGuiApplication::platformName().toLatin1());
        const auto platform = PlatformLoader::makePlatform();
        EXPECT_EQ(qgetenv(kQtPlatform), before);

        const auto &[capabilities, clock, files, settings, consent, appearance, names, installed,
                     login, running, notifications, workspace, space, layout, hotKeys, symbolic,
                     front, pasteboard, sender, bar] = *platform;
        EXPECT_TRUE(capabilities && clock && files && settings && consent && appearance && names);
        EXPECT_TRUE(installed && login && running && notifications && workspace && space);
        EXPECT_TRUE(layout && hotKeys && symbolic && front && pasteboard && sender && bar);
        EXPECT_EQ(capabilities->all().size(), 4);
    }
    ASSERT_FALSE(PlatformLoader::chooseDisplay());
    const auto helper = PlatformLoader::makeHelperPlatform();
    const auto &[clock, settings, running, layout, bar] = *helper;
    EXPECT_TRUE(clock && settings && running && layout && bar);
    qputenv(kQtPlatform, here);
}

TEST(CompletePlatform, aWindowNeedsNoGraphicsDriver)
{
    ASSERT_FALSE(PlatformLoader::chooseDisplay());
    const auto platform = PlatformLoader::makePlatform();
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QFile loaded(QStringLiteral("/proc/self/maps"));
    ASSERT_TRUE(loaded.open(QIODevice::ReadOnly));
    const QByteArray files = loaded.readAll();
    EXPECT_TRUE(files.contains("/libQt6Widgets.so"));
    for (const char *part : {"/libEGL_", "/libLLVM", "/libgallium", "_dri.so"})
        EXPECT_FALSE(files.contains(part)) << part;
}

} // namespace
