#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/memory/MemoryHotKeys.h"
#include "platform/x11/keys/X11HotKeys.h"

#include "ForeignWindow.h"
#include "Keyboard.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <linux/input-event-codes.h>

namespace {

constexpr quint32 kSuperShift = CarbonModifiers::kCommand | CarbonModifiers::kShift;
constexpr HotKeyId kFirst{0x54455354, 1};
constexpr HotKeyId kSecond{0x54455354, 2};

class MemoryMaker
{
public:
    void press() { hotKeys.press(VirtualKey::kV, kSuperShift); }
    void release() { hotKeys.release(VirtualKey::kV, kSuperShift); }
    void holdElsewhere() { hotKeys.holdElsewhere(VirtualKey::kV, kSuperShift); }
    void freeElsewhere() { hotKeys.freeElsewhere(VirtualKey::kV, kSuperShift); }

    MemoryHotKeys hotKeys;
};

class X11Maker
{
public:
    void press() { m_keyboard.press(KEY_LEFTMETA, KEY_LEFTSHIFT, KEY_V); }
    void release() { m_keyboard.releaseAll(); }
    void holdElsewhere()
    {
        EXPECT_TRUE(m_other.grabKey(KEY_V, XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4));
    }

    void freeElsewhere() { m_other.ungrabKey(KEY_V, XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4); }

    X11HotKeys hotKeys;

private:
    RealKeyboard m_keyboard;
    ForeignWindow m_other;
};

template <typename Maker>
class HotKeysContract : public testing::Test
{
protected:
    HotKeysContract()
    {
        QObject::connect(&m_hotKeys, &HotKeys::pressed, &m_hotKeys,
                         [this](const HotKeyEvent &event) { m_pressed.push_back(event.id); });
        QObject::connect(&m_hotKeys, &HotKeys::released, &m_hotKeys,
                         [this](const HotKeyEvent &event) { m_released.push_back(event.id); });
    }

    bool registerKey(HotKeyId id)
    {
        return m_hotKeys.registerHotKey(id, VirtualKey::kV, kSuperShift);
    }

    void pressAndRelease()
    {
        m_maker.press();
        m_maker.release();
        settle(m_hotKeys);
        // The keyboard may still stand still, because a press is being handed over.
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_released.size() >= m_pressed.size(); }));
    }

    Maker m_maker;
    HotKeys &m_hotKeys = m_maker.hotKeys;
    std::vector<HotKeyId> m_pressed, m_released;
};

using Makers = testing::Types<MemoryMaker, X11Maker>;
TYPED_TEST_SUITE(HotKeysContract, Makers, );

TYPED_TEST(HotKeysContract, aHoldIsReportedAsOnePressAndOneRelease)
{
    ASSERT_TRUE(this->registerKey(kFirst));
    this->pressAndRelease();
    EXPECT_EQ(this->m_pressed, std::vector{kFirst});
    EXPECT_EQ(this->m_released, std::vector{kFirst});
}

TYPED_TEST(HotKeysContract, everyIdOfACombinationIsReportedUntilItIsReleased)
{
    ASSERT_TRUE(this->registerKey(kFirst));
    ASSERT_TRUE(this->registerKey(kSecond));
    this->pressAndRelease();
    EXPECT_EQ(this->m_pressed, (std::vector{kFirst, kSecond}));
    this->m_hotKeys.unregisterHotKey(kFirst);
    this->pressAndRelease();
    EXPECT_EQ(this->m_pressed, (std::vector{kFirst, kSecond, kSecond}));
    this->m_hotKeys.unregisterHotKey(kSecond);
    this->pressAndRelease();
    EXPECT_EQ(this->m_pressed.size(), 3U);
}

TYPED_TEST(HotKeysContract, whatIsTakenOrDoesNotExistIsRefused)
{
    EXPECT_FALSE(this->m_hotKeys.registerHotKey(kFirst, 200, kSuperShift));
    ASSERT_TRUE(this->registerKey(kFirst));
    EXPECT_FALSE(this->m_hotKeys.registerHotKey(kFirst, VirtualKey::kC, kSuperShift));
    EXPECT_TRUE(this->m_hotKeys.isAvailable(VirtualKey::kV, kSuperShift)) << "our own";
    this->m_hotKeys.unregisterHotKey(kFirst);
    this->m_maker.holdElsewhere();
    EXPECT_FALSE(this->m_hotKeys.isAvailable(VirtualKey::kV, kSuperShift));
    EXPECT_FALSE(this->registerKey(kFirst));
    EXPECT_TRUE(this->m_hotKeys.registerHotKey(kFirst, VirtualKey::kC, kSuperShift));
}

TYPED_TEST(HotKeysContract, nothingIsReportedWhileSuspended)
{
    ASSERT_TRUE(this->registerKey(kFirst));
    this->m_hotKeys.setSuspended(true);
    EXPECT_TRUE(this->registerKey(kSecond));
    this->pressAndRelease();
    EXPECT_TRUE(this->m_pressed.empty());
    this->m_hotKeys.setSuspended(false);
    this->pressAndRelease();
    EXPECT_EQ(this->m_pressed, (std::vector{kFirst, kSecond}));
}

TYPED_TEST(HotKeysContract, aCombinationThatIsTakenDuringASuspensionIsNotGrantedUntilItIsFree)
{
    ASSERT_TRUE(this->registerKey(kFirst));
    EXPECT_TRUE(this->m_hotKeys.isGranted(kFirst));
    EXPECT_FALSE(this->m_hotKeys.isGranted(kSecond));
    this->m_hotKeys.setSuspended(true);
    EXPECT_TRUE(this->m_hotKeys.isGranted(kFirst));
    this->m_maker.holdElsewhere();
    QSignalSpy changes(&this->m_hotKeys, &HotKeys::availabilityChanged);
    this->m_hotKeys.setSuspended(false);
    settle(this->m_hotKeys);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_FALSE(this->m_hotKeys.isGranted(kFirst));
    EXPECT_FALSE(this->registerKey(kSecond));
    this->m_maker.freeElsewhere();
    EXPECT_TRUE(this->registerKey(kSecond));
    EXPECT_TRUE(this->m_hotKeys.isGranted(kFirst));
    this->pressAndRelease();
    EXPECT_EQ(this->m_pressed, (std::vector{kFirst, kSecond}));
}

} // namespace
