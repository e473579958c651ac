#include "platform/x11/keys/X11HotKeys.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include "ForeignWindow.h"
#include "Keyboard.h"

#include <QPoint>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

namespace {

constexpr quint32 kSuperShift = CarbonModifiers::kCommand | CarbonModifiers::kShift;
constexpr quint16 kNumLockMask = XCB_MOD_MASK_2;
constexpr HotKeyId kOpen{0x54455354, 1};
constexpr HotKeyId kCaps{0x54455354, 2};

class X11HotKeysTest : public testing::Test
{
protected:
    X11HotKeysTest()
    {
        QObject::connect(&m_hotKeys, &HotKeys::pressed, &m_hotKeys,
                         [this](const HotKeyEvent &event) { m_pressed.push_back(event); });
        QObject::connect(&m_hotKeys, &HotKeys::released, &m_hotKeys,
                         [this](const HotKeyEvent &event) { m_released.push_back(event); });
    }

    bool registerOpen() { return m_hotKeys.registerHotKey(kOpen, VirtualKey::kV, kSuperShift); }

    void pressAll()
    {
        m_keyboard.press(KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V);
        settle(m_hotKeys);
    }

    void releaseAll()
    {
        m_keyboard.releaseAll();
        settle(m_hotKeys);
        // The keyboard may still stand still, because a press is being handed over.
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_released.size() >= m_pressed.size(); }));
    }

    /// How often one press and release of everything is reported.
    std::size_t timesFired()
    {
        const std::size_t before = m_pressed.size();
        pressAll();
        releaseAll();
        return m_pressed.size() - before;
    }

    KeyboardSetup m_setup;
    RealKeyboard m_keyboard;
    X11HotKeys m_hotKeys;
    std::vector<HotKeyEvent> m_pressed, m_released;
};

TEST_F(X11HotKeysTest, lockStatesDoNotMatterUnlessCapsLockIsAskedFor)
{
    ASSERT_TRUE(registerOpen());
    ASSERT_TRUE(
        m_hotKeys.registerHotKey(kCaps, VirtualKey::kC, kSuperShift | CarbonModifiers::kCapsLock));
    for (const bool isNumLock : {false, true}) {
        for (const bool isCapsLock : {false, true}) {
            SCOPED_TRACE(testing::Message() << "num " << isNumLock << " caps " << isCapsLock);
            m_setup.setLock(KEY_NUMLOCK, kNumLockMask, isNumLock);
            m_setup.setLock(KEY_CAPSLOCK, XCB_MOD_MASK_LOCK, isCapsLock);
            EXPECT_EQ(timesFired(), 1U);
            m_pressed.clear();
            m_keyboard.press(KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_C);
            releaseAll();
            EXPECT_EQ(m_pressed.size(), isCapsLock ? 1U : 0U);
        }
    }
    m_setup.setLock(KEY_NUMLOCK, kNumLockMask, false);
    m_setup.setLock(KEY_CAPSLOCK, XCB_MOD_MASK_LOCK, false);
}

TEST_F(X11HotKeysTest, releasingACapsLockCombinationLeavesThePlainOneWhole)
{
    ASSERT_TRUE(registerOpen());
    ASSERT_TRUE(
        m_hotKeys.registerHotKey(kCaps, VirtualKey::kV, kSuperShift | CarbonModifiers::kCapsLock));
    m_setup.setLock(KEY_CAPSLOCK, XCB_MOD_MASK_LOCK, true);
    EXPECT_EQ(timesFired(), 2U);
    m_hotKeys.unregisterHotKey(kCaps);
    EXPECT_EQ(timesFired(), 1U);
    m_setup.setLock(KEY_CAPSLOCK, XCB_MOD_MASK_LOCK, false);
}

TEST_F(X11HotKeysTest, aVariantHeldElsewhereRefusesTheWholeCombination)
{
    ForeignWindow other;
    constexpr quint16 kPlain = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4;
    ASSERT_TRUE(other.grabKey(KEY_V, kPlain | kNumLockMask));
    EXPECT_FALSE(registerOpen());
    EXPECT_TRUE(other.grabKey(KEY_V, kPlain)) << "a refused combination keeps nothing";
    other.ungrabKey(KEY_V, kPlain);
    other.ungrabKey(KEY_V, kPlain | kNumLockMask);
    EXPECT_TRUE(registerOpen());
}

TEST_F(X11HotKeysTest, theEndOfTheProgramThatHeldTheCombinationIsTold)
{
    auto other = std::make_unique<ForeignWindow>();
    ASSERT_TRUE(other->grabKey(KEY_V, XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4));
    EXPECT_FALSE(registerOpen());
    QSignalSpy changes(&m_hotKeys, &HotKeys::availabilityChanged);
    other.reset();
    ASSERT_TRUE(changes.wait());
    EXPECT_TRUE(registerOpen());
    EXPECT_EQ(timesFired(), 1U);
}

TEST_F(X11HotKeysTest, anotherKeyboardMapIsTold)
{
    ForeignWindow other;
    ASSERT_TRUE(other.grabKey(KEY_V, XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4));
    EXPECT_FALSE(registerOpen());
    QSignalSpy changes(&m_hotKeys, &HotKeys::availabilityChanged);
    m_setup.moveSuper();
    ASSERT_TRUE(changes.wait());
    EXPECT_TRUE(registerOpen()) << "the other program holds it with what is no Super any more";
    EXPECT_EQ(timesFired(), 1U);
}

TEST_F(X11HotKeysTest, theReleaseIsReportedAlthoughTheKeyboardWasGivenBack)
{
    ASSERT_TRUE(registerOpen());
    pressAll();
    ASSERT_TRUE(m_hotKeys.typeFreely([](const auto &) { return X11HotKeys::Keystroke{}; }));
    m_keyboard.release(KEY_LEFTSHIFT);
    settle(m_hotKeys);
    EXPECT_TRUE(m_released.empty()) << "the key itself is still down";
    m_keyboard.release(KEY_V);
    settle(m_hotKeys);
    EXPECT_EQ(m_released.size(), 1U);
    releaseAll();
    EXPECT_EQ(timesFired(), 1U);
    EXPECT_EQ(m_released.size(), 2U);
}

TEST_F(X11HotKeysTest, anEventTellsWhenWhereAndWithWhat)
{
    ASSERT_TRUE(registerOpen());
    const X11Connection server;
    xcb_warp_pointer(server.get(), XCB_NONE, server.root(), 0, 0, 0, 0, 321, 123);
    server.roundTrip();
    pressAll();
    releaseAll();
    ASSERT_EQ(m_released.size(), 1U);
    EXPECT_EQ(QPoint(m_pressed[0].x, m_pressed[0].y), QPoint(321, 123));
    EXPECT_EQ(QPoint(m_released[0].x, m_released[0].y), QPoint(321, 123));
    EXPECT_EQ(m_pressed[0].carbonModifiers, kSuperShift);
    EXPECT_EQ(m_released[0].carbonModifiers, CarbonModifiers::kCommand) << "Shift went up first";
    EXPECT_NE(m_pressed[0].timestamp, 0U);
    EXPECT_GE(m_released[0].timestamp, m_pressed[0].timestamp);
}

TEST_F(X11HotKeysTest, itFiresInEveryGroup)
{
    m_setup.setLayout("-layout us,ru");
    ASSERT_TRUE(registerOpen());
    for (const unsigned group : {1U, 0U}) {
        m_setup.setGroup(group);
        EXPECT_EQ(timesFired(), 1U) << group;
    }
}

TEST_F(X11HotKeysTest, itFollowsSuperToAnotherModifier)
{
    ASSERT_TRUE(registerOpen());
    m_setup.moveSuper();
    settle(m_hotKeys);
    EXPECT_EQ(timesFired(), 1U);
    ForeignWindow other;
    EXPECT_TRUE(other.grabKey(KEY_V, XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4))
        << "the grabs of the old place were given back";
}

} // namespace
