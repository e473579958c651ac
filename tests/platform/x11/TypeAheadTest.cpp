#include "platform/x11/keys/X11KeySender.h"
#include "platform/x11/windows/X11FrontApplication.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include "ForeignWindow.h"
#include "Keyboard.h"
#include "NamesByClass.h"

#include <QDeadlineTimer>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

#include <tuple>

namespace {

/// Keys without a name here are told by their code.
constexpr const char *kKeycodeOfD = "40";

QString pressed(const char *key)
{
    return QLatin1Char('+') + QString::fromLatin1(key);
}

class TypeAheadTest : public testing::Test
{
protected:
    TypeAheadTest()
    {
        m_ours.setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        m_ours.winId();
        m_sender.keepTypedAhead(m_ours.windowHandle());
        settle(m_hotKeys);
    }

    /// Shows our window over the target.
    bool open()
    {
        m_ours.show();
        m_front.activate(m_ours.windowHandle());
        return QTest::qWaitFor([this] { return m_ours.hasFocus() && !m_target.hasKeyboard(); });
    }

    /// What the target got pressed, up to `last`.
    QStringList pressesUpTo(const char *last)
    {
        QStringList presses;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            presses += m_target.takeKeys().filter(QStringLiteral("+"));
            return presses.contains(pressed(last));
        })) << qPrintable(presses.join(u' '));
        return presses;
    }

    NamesByClass m_names;
    KeyboardSetup m_setup;
    RealKeyboard m_keyboard;
    X11HotKeys m_hotKeys;
    X11FrontApplication m_front{m_names, m_hotKeys};
    X11KeySender m_sender{
        m_hotKeys, m_front, m_names, {[](xcb_window_t) {}, [] {}, [](xcb_window_t) {}, {}}};
    ForeignWindow m_target;
    QLineEdit m_ours;
};

TEST_F(TypeAheadTest, whatFollowsReturnFollowsTheKeystroke)
{
    ASSERT_TRUE(m_target.show());
    QObject::connect(&m_ours, &QLineEdit::returnPressed, &m_ours, [this] {
        m_ours.hide();
        ASSERT_TRUE(m_front.returnToTarget());
        ASSERT_EQ(m_sender.sendCommand(VirtualKey::kV), KeySender::Outcome::Sent);
    });
    enum class ShiftUp { BeforeTheKeystroke, BehindIt, AtLast };
    for (const ShiftUp up : {ShiftUp::BeforeTheKeystroke, ShiftUp::BehindIt, ShiftUp::AtLast}) {
        SCOPED_TRACE(int(up));
        ASSERT_TRUE(open());
        m_ours.clear();
        m_keyboard.tap(KEY_X, KEY_ENTER, KEY_X, KEY_V);
        m_keyboard.press(KEY_LEFTSHIFT);
        m_keyboard.tap(KEY_C);
        if (up == ShiftUp::BeforeTheKeystroke)
            m_keyboard.release(KEY_LEFTSHIFT);
        QStringList presses = pressesUpTo("Control-v");
        if (up == ShiftUp::BehindIt)
            m_keyboard.release(KEY_LEFTSHIFT);
        m_keyboard.tap(KEY_X);
        m_hotKeys.letTypedAheadGo();
        settle(m_hotKeys);
        m_keyboard.tap(KEY_C);
        m_keyboard.releaseAll();
        m_keyboard.tap(KEY_D);
        presses += pressesUpTo(kKeycodeOfD);
        EXPECT_EQ(presses.join(u' '),
                  QStringLiteral("+Control +Control-v +x +v +Shift +Shift-c ") +
                      QLatin1String(up == ShiftUp::AtLast ? "+Shift-x +Shift-c +40" : "+x +c +40"));
        EXPECT_EQ(m_ours.text(), QStringLiteral("x"));
    }
}

TEST_F(TypeAheadTest, withoutAKeystrokeItGoesWhereTheKeyboardIsAtOnce)
{
    ASSERT_TRUE(m_target.show());
    ASSERT_TRUE(open());
    m_keyboard.tap(KEY_X, KEY_ENTER, KEY_A, KEY_ENTER, KEY_B);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_ours.text().size() == 3; }));
    EXPECT_EQ(m_ours.text(), QStringLiteral("xab"));
}

TEST_F(TypeAheadTest, theKeyboardIsFreeAlthoughNobodyHandlesTheReturn)
{
    ASSERT_TRUE(m_target.show());
    ASSERT_TRUE(open());
    m_keyboard.tap(KEY_ENTER);
    m_keyboard.tap(KEY_X);
    // Waits for the keyboard's thread alone.
    std::ignore = m_hotKeys.isAvailable(VirtualKey::kF20, CarbonModifiers::kOption);
    std::ignore = m_hotKeys.isAvailable(VirtualKey::kF20, CarbonModifiers::kOption);
    const X11Connection other;
    const auto isKeyboardFree = [&other] {
        xcb_connection_t *xcb = other.get();
        const XcbPointer<xcb_grab_keyboard_reply_t> reply(
            xcb_grab_keyboard_reply(xcb,
                                    xcb_grab_keyboard(xcb, 0, other.root(), XCB_CURRENT_TIME,
                                                      XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                    nullptr));
        xcb_ungrab_keyboard(xcb, XCB_CURRENT_TIME);
        other.roundTrip();
        return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
    };
    EXPECT_FALSE(isKeyboardFree());
    // No event of ours is handled meanwhile.
    const QDeadlineTimer patience(10'000);
    while (!isKeyboardFree() && !patience.hasExpired()) {
    }
    EXPECT_TRUE(isKeyboardFree());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_ours.text().isEmpty(); }));
    EXPECT_EQ(m_ours.text(), QStringLiteral("x"));
}

} // namespace
