#include "platform/wayland/LayerWindowSpace.h"

#include "platform/wayland/ToplevelTracker.h"
#include "platform/wayland/WaylandConnection.h"

#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

const auto kOurs = QStringLiteral("org.example.Layers");

class LayerWindowSpaceTest : public testing::Test
{
protected:
    LayerWindowSpaceTest()
    {
        connection->start();
        QGuiApplication::setDesktopFileName(kOurs);
        window.setWindowFlag(Qt::FramelessWindowHint);
        window.setWindowTitle(QStringLiteral("of the desktop"));
        window.setFixedSize(400, 300);
        window.winId();
        space.prepareUtilityWindow(window.windowHandle());
    }

    bool open()
    {
        space.placeUtilityWindow(window.windowHandle(), QSize(380, 280), QMargins(10, 10, 10, 10));
        window.show();
        return getsKeyboard(window);
    }

    static bool getsKeyboard(const QWidget &shown)
    {
        return QTest::qWaitFor(
            [&] { return QGuiApplication::focusWindow() == shown.windowHandle(); });
    }

    /// Whether it is one among those that the compositor places.
    bool isOrdinary(const QWidget &shown) const
    {
        std::ignore = connection->run([this] { std::ignore = connection->roundTrip(); });
        return toplevels->ownWindow(shown.windowTitle()) != 0;
    }

    const std::shared_ptr<WaylandConnection> connection = WaylandConnection::open();
    const std::shared_ptr<ToplevelTracker> toplevels =
        std::make_shared<ToplevelTracker>(connection, kOurs);
    QWidget window;
    LayerWindowSpace space{[] { return true; }};
};

TEST_F(LayerWindowSpaceTest, theWindowIsNoneOfTheOrdinaryOnesHoweverOftenItIsClosed)
{
    for (int times = 0; times < 3; ++times) {
        ASSERT_TRUE(open()) << times;
        EXPECT_FALSE(isOrdinary(window)) << times;
        window.close();
    }
}

TEST_F(LayerWindowSpaceTest, anotherWindowOfOursHasTheKeyboardAsLongAsItIsShared)
{
    QWidget other;
    other.setWindowTitle(QStringLiteral("another"));
    other.show();
    ASSERT_TRUE(getsKeyboard(other));
    EXPECT_TRUE(isOrdinary(other));
    ASSERT_TRUE(open());
    space.setSharesKeyboard(window.windowHandle(), true);
    EXPECT_TRUE(getsKeyboard(other));
    space.setSharesKeyboard(window.windowHandle(), false);
    EXPECT_TRUE(getsKeyboard(window));
}

} // namespace
