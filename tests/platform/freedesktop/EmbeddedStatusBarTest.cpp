#include "platform/freedesktop/StatusNotifierStatusBar.h"
#include "platform/x11/windows/X11TrayArea.h"

#include <QApplication>
#include <QMenu>
#include <QPixmap>
#include <QProcess>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

/// The tray program embeds the item's window and so gives it a size of the tray's choosing.
QWidget *embeddedWindow()
{
    for (QWidget *widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("QSystemTrayIconSys") && widget->isVisible())
            return widget;
    }
    return nullptr;
}

void startTray(QProcess &tray)
{
    tray.start(QStringLiteral("trayer"), {QStringLiteral("--height"), QStringLiteral("31")});
    ASSERT_TRUE(tray.waitForStarted());
}

TEST(EmbeddedStatusBar, theItemFollowsATrayThatComesAndGoesAndComesBack)
{
    QMenu menu;
    menu.addAction(QStringLiteral("an entry"));
    QPixmap picture(22, 22);
    picture.fill(Qt::darkGreen);
    StatusNotifierStatusBar bar(std::make_unique<X11TrayArea>());
    bar.showItem(QIcon(picture), QStringLiteral("tip"), &menu);
    EXPECT_FALSE(bar.isItemVisible());
    for (int start = 0; start < 3; ++start) {
        QProcess tray;
        startTray(tray);
        ASSERT_TRUE(QTest::qWaitFor([&] { return bar.isItemVisible(); }));
        ASSERT_TRUE(QTest::qWaitFor([] { return embeddedWindow() != nullptr; }));
        QWidget &item = *embeddedWindow();
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
            const QPoint click = item.mapToGlobal(item.rect().center());
            QCursor::setPos(click);
            QTest::mouseClick(&item, button);
            ASSERT_TRUE(QTest::qWaitFor([&] { return menu.isVisible(); })) << button;
            EXPECT_TRUE(menu.geometry().adjusted(-1, -1, 1, 1).contains(click)) << button;
            menu.close();
        }
        tray.kill();
        ASSERT_TRUE(tray.waitForFinished());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !bar.isItemVisible(); }));
        EXPECT_EQ(embeddedWindow(), nullptr);
    }
}

TEST(EmbeddedStatusBar, aTrayThatWasThereFirstIsFound)
{
    QProcess tray;
    startTray(tray);
    const X11TrayArea other;
    ASSERT_TRUE(QTest::qWaitFor([&] { return other.isPresent(); }));
    EXPECT_TRUE(X11TrayArea().isPresent());
    tray.kill();
    ASSERT_TRUE(tray.waitForFinished());
}

} // namespace
