#include "platform/x11/keys/X11HotKeys.h"
#include "platform/x11/windows/X11FrontApplication.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include "ForeignWindow.h"
#include "Keyboard.h"
#include "NamesByClass.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

namespace {

using namespace Qt::StringLiterals;

constexpr quint32 kSuperShift = CarbonModifiers::kCommand | CarbonModifiers::kShift;
constexpr HotKeyId kOpen{0x54455354, 1};

class KeyboardHandOverTest : public testing::Test
{
protected:
    KeyboardHandOverTest()
    {
        m_ours.setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
        QObject::connect(&m_hotKeys, &HotKeys::pressed, &m_ours, [this] {
            m_ours.show();
            m_front.activate(m_ours.windowHandle());
        });
        QObject::connect(&m_hotKeys, &HotKeys::released, &m_ours, [this] { ++m_releases; });
    }

    NamesByClass m_names;
    KeyboardSetup m_setup;
    RealKeyboard m_keyboard;
    X11HotKeys m_hotKeys;
    X11FrontApplication m_front{m_names, m_hotKeys};
    QLineEdit m_ours;
    int m_releases = 0;
};

TEST_F(KeyboardHandOverTest, keysPressedWhileTheHotKeyIsDownReachOurWindowOnceAndInOrder)
{
    ASSERT_TRUE(m_hotKeys.registerHotKey(kOpen, VirtualKey::kV, kSuperShift));
    ForeignWindow target;
    ASSERT_TRUE(target.show());
    for (const bool isInFrontBefore : {false, true}) {
        SCOPED_TRACE(isInFrontBefore ? "our window is in front" : "another window is in front");
        m_ours.clear();
        m_keyboard.press(KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V);
        ASSERT_TRUE(QTest::qWaitFor([this] { return m_ours.isVisible(); }));
        m_keyboard.release(KEY_LEFTSHIFT);
        m_keyboard.release(KEY_LEFTMETA);
        m_keyboard.tap(KEY_A, KEY_X, KEY_X);
        m_keyboard.release(KEY_V);
        m_keyboard.tap(KEY_B);
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_ours.text().size() >= 4; }));
        EXPECT_EQ(m_ours.text(), u"axxb"_s);
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_releases == (isInFrontBefore ? 2 : 1); }));
    }
    EXPECT_EQ(target.takeKeys().filter(u"+"_s), (QStringList{u"+Super"_s, u"+Super-Shift"_s}));
}

TEST_F(KeyboardHandOverTest, withoutAWindowOfOursTheKeyboardIsFreeAgainSoon)
{
    ASSERT_TRUE(m_hotKeys.registerHotKey(kOpen, VirtualKey::kV, kSuperShift));
    QObject::disconnect(&m_hotKeys, &HotKeys::pressed, &m_ours, nullptr);
    ForeignWindow target;
    ASSERT_TRUE(target.show());
    m_keyboard.press(KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V);
    m_keyboard.tap(KEY_C);
    m_keyboard.releaseAll();
    m_keyboard.tap(KEY_X);
    QStringList keys;
    EXPECT_TRUE(QTest::qWaitFor([&] { return (keys += target.takeKeys()).contains(u"-x"_s); }));
    EXPECT_EQ(keys.filter(u"+"_s).filter(u"c"_s), QStringList()) << "it was meant for us";
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_releases == 1; }));
}

} // namespace
