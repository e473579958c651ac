#include "platform/x11/windows/X11FrontApplication.h"

#include "platform/memory/MemoryHotKeys.h"

#include "ForeignProgram.h"
#include "ForeignWindow.h"
#include "NamesByClass.h"

#include <QProcess>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <thread>

namespace {

using std::chrono::milliseconds;

class X11FrontApplicationTest : public testing::Test
{
protected:
    X11FrontApplicationTest()
    {
        m_ours.setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        m_ours.resize(300, 200);
    }

    /// Shows our window as the history does, and waits until it has the keyboard.
    bool bringOursToFront()
    {
        m_ours.show();
        m_front.activate(m_ours.windowHandle());
        return QTest::qWaitFor([this] {
            return m_ours.isActiveWindow() && m_front.windowInFront() == m_ours.winId();
        });
    }

    /// Takes in who is in front, as when a window of ours is about to be shown.
    void follow()
    {
        QWindow window;
        QShowEvent shown;
        QCoreApplication::sendEvent(&window, &shown);
    }

    NamesByClass m_names;
    MemoryHotKeys m_hotKeys;
    X11FrontApplication m_front{m_names, m_hotKeys};
    QWidget m_ours;
};

TEST_F(X11FrontApplicationTest, ourWindowComesToTheFrontAndTheTargetComesBack)
{
    ForeignWindow bystander("Bystander");
    ForeignWindow target("Target");
    ASSERT_TRUE(bystander.show());
    ASSERT_TRUE(target.show());
    follow();
    EXPECT_TRUE(m_front.returnToTarget()) << "nothing had taken its place";
    ASSERT_TRUE(bringOursToFront());
    m_ours.hide();
    EXPECT_TRUE(m_front.returnToTarget(milliseconds(5000)));
    EXPECT_TRUE(target.hasKeyboard());
    EXPECT_EQ(m_front.windowInFront(), target.id());
}

TEST_F(X11FrontApplicationTest, theTargetIsTheLastForeignWindowWhicheverOfOursCameBetween)
{
    if (!X11ActiveWindow(X11Connection()).isManaged())
        GTEST_SKIP() << "nobody announces who is in front";
    ForeignWindow first("First");
    ForeignWindow second("Second");
    ASSERT_TRUE(first.show());
    ASSERT_TRUE(bringOursToFront());
    second.map();
    // By their user, with nobody's help.
    for (const xcb_window_t window : {second.id(), xcb_window_t(m_ours.winId())}) {
        EXPECT_EQ(QProcess::execute(QStringLiteral("xdotool"),
                                    {QStringLiteral("windowactivate"), QString::number(window)}),
                  0);
        ASSERT_TRUE(QTest::qWaitFor([&] { return m_front.windowInFront() == window; }));
        QCoreApplication::processEvents();
    }
    m_ours.hide();
    EXPECT_TRUE(m_front.returnToTarget(milliseconds(5000)));
    EXPECT_TRUE(second.hasKeyboard());
}

TEST_F(X11FrontApplicationTest, aWindowOfOursIsTheTargetForAsLongAsItIsVisible)
{
    ForeignWindow foreign("Foreign");
    ASSERT_TRUE(foreign.show());
    QWidget field;
    field.show();
    m_front.activate(field.windowHandle());
    ASSERT_TRUE(QTest::qWaitForWindowActive(&field));
    m_front.setOwnTarget(field.windowHandle());
    ASSERT_TRUE(bringOursToFront());
    m_ours.hide();
    EXPECT_TRUE(m_front.returnToTarget(milliseconds(5000)));
    EXPECT_EQ(m_front.windowInFront(), field.winId());
    field.hide();
    EXPECT_TRUE(m_front.returnToTarget(milliseconds(5000)));
    EXPECT_TRUE(foreign.hasKeyboard());
}

TEST_F(X11FrontApplicationTest, aTargetThatWasPutAwayBeforeIsNone)
{
    ForeignWindow target("Target");
    ASSERT_TRUE(target.show());
    target.hide();
    ASSERT_TRUE(bringOursToFront());
    m_ours.hide();
    EXPECT_FALSE(m_front.returnToTarget(milliseconds(5000)));
}

TEST_F(X11FrontApplicationTest, aTargetThatWasNotTheLastOneIsAskedFor)
{
    ForeignWindow target("Target");
    ForeignWindow bystander("Bystander");
    ASSERT_TRUE(target.show());
    ASSERT_TRUE(bringOursToFront());
    m_ours.hide();
    // Not followed, as a paste does not either once our windows are hidden.
    std::jthread([&bystander] { EXPECT_TRUE(bystander.show()); }).join();
    EXPECT_TRUE(m_front.returnToTarget(milliseconds(5000)));
    EXPECT_TRUE(target.hasKeyboard());
}

TEST_F(X11FrontApplicationTest, aFieldOfItsOwnWindowGetsTheKeyboardBackUnlessItHasClosed)
{
    ForeignWindow target("Target");
    ASSERT_TRUE(target.show());
    const xcb_window_t field = target.openField();
    for (const bool isClosed : {false, true}) {
        ASSERT_TRUE(bringOursToFront());
        m_ours.hide();
        if (isClosed)
            target.closeField(field);
        EXPECT_EQ(m_front.returnToTarget(milliseconds(5000)), !isClosed);
        EXPECT_EQ(X11ActiveWindow(X11Connection()).inputFocus() == field, !isClosed);
    }
}

TEST_F(X11FrontApplicationTest, aTargetThatVanishedIsGivenUpAtOnce)
{
    EXPECT_FALSE(m_front.returnToTarget()) << "there is none";
    ForeignWindow target("Target");
    ASSERT_TRUE(target.show());
    follow();
    target.hide();
    // Were it waited out, this would not end in its time.
    constexpr std::chrono::hours kLong(1);
    {
        const std::jthread death([&target] { target.destroy(); });
        EXPECT_FALSE(m_front.returnToTarget(kLong));
    }
    EXPECT_FALSE(m_front.returnToTarget(kLong));
}

TEST_F(X11FrontApplicationTest, aTargetThatCannotComeBackIsGivenUpAtTheLimit)
{
    ForeignWindow target("Target");
    ASSERT_TRUE(target.show());
    follow();
    target.hide();
    EXPECT_FALSE(m_front.returnToTarget(milliseconds(150)));
}

TEST_F(X11FrontApplicationTest, theNameIsThatOfTheWindowADialogIsForAndIsKeptWhileItsProgramRuns)
{
    EXPECT_EQ(m_front.applicationName(), QString());
    auto program = std::make_unique<ForeignProgram>();
    const auto isNamed = [this](const QString &name) {
        return QTest::qWaitFor([&] { return m_front.applicationName() == name; });
    };
    ASSERT_TRUE(program->tell("window Suite"));
    EXPECT_TRUE(isNamed(QStringLiteral("Suite")));
    ASSERT_TRUE(program->tell("class Writer"));
    EXPECT_TRUE(isNamed(QStringLiteral("Writer")));
    ASSERT_TRUE(program->tell("dialog Suite"));
    EXPECT_TRUE(isNamed(QStringLiteral("Writer")));
    ASSERT_TRUE(program->tell("close"));
    EXPECT_EQ(m_front.applicationName(), QStringLiteral("Writer"));
    program.reset();
    EXPECT_EQ(m_front.applicationName(), QString());
    ASSERT_TRUE(bringOursToFront());
    EXPECT_EQ(m_front.applicationName(), QStringLiteral("x11_window_test"));
    m_ours.hide();
    EXPECT_TRUE(isNamed(QString())) << "ours is in front no more";
}

} // namespace
