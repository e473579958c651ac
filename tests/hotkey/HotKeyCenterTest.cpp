#include "hotkey/HotKeyCenter.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/memory/MemoryHotKeys.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

using namespace ModifierFlags;
using VirtualKey::kC;
using VirtualKey::kV;
using VirtualKey::kX;

constexpr quint32 kCarbonCommand = CarbonModifiers::kCommand;

class Center : public testing::Test
{
protected:
    std::shared_ptr<HotKey> registerTask(quint16 keyCode, quint64 flags = kCommand)
    {
        return m_center->registerHotKeyWithKeyCode(
            keyCode, flags, [this](const KeyUpEvent &event) { m_events.push_back(event); });
    }

    /// What the platform has registered for the key with Command.
    std::vector<HotKeyId> idsOf(quint16 keyCode) const
    {
        return m_hotKeys.idsOf(keyCode, kCarbonCommand);
    }

    MemoryHotKeys m_hotKeys;
    std::optional<HotKeyCenter> m_center{std::in_place, m_hotKeys};
    std::vector<KeyUpEvent> m_events;
};

TEST_F(Center, aHotKeyFiresOnReleaseAndNotOnPress)
{
    registerTask(kV);
    registerTask(kX);
    m_hotKeys.press(kV, kCarbonCommand);
    EXPECT_TRUE(m_events.empty());
    m_hotKeys.release(kV, kCarbonCommand);
    ASSERT_EQ(m_events.size(), 1U);
    EXPECT_EQ(m_events[0].keyCode, kV);
}

TEST_F(Center, theEventTellsWhenWhereAndUnderWhichModifiers)
{
    registerTask(kV);
    constexpr quint32 kHeld = CarbonModifiers::kCapsLock | CarbonModifiers::kShift;
    Q_EMIT m_hotKeys.released({{HotKey::kSignature, 1}, 77, 3, 4, kHeld});
    KeyUpEvent expected;
    expected.location = {3, 4};
    expected.modifierFlags = kCapsLock | kShift;
    expected.timestamp = 77;
    expected.keyCode = kV;
    EXPECT_EQ(m_events, std::vector{expected});
}

TEST_F(Center, theSameKeyAndFlagsAreRegisteredOnce)
{
    EXPECT_NE(registerTask(kV), nullptr);
    EXPECT_EQ(registerTask(kV), nullptr);
    EXPECT_NE(registerTask(kV, kCommand | kCapsLock), nullptr);
    const auto record = std::make_shared<HotKey>(kX, kCommand, nullptr);
    EXPECT_EQ(m_center->registerHotKey(record), record);
    EXPECT_EQ(m_center->registerHotKey(record), nullptr);
    EXPECT_EQ(m_center->registeredHotKeys().size(), 3U);
    EXPECT_EQ(idsOf(kV), (std::vector<HotKeyId>{{0x68746B31, 1}}));
    EXPECT_EQ(m_hotKeys.idsOf(kV, kCarbonCommand | CarbonModifiers::kCapsLock),
              (std::vector<HotKeyId>{{0x68746B31, 2}}));
}

TEST_F(Center, aRefusedAttemptKeepsTheNumberForTheNext)
{
    m_hotKeys.holdElsewhere(kV, kCarbonCommand);
    EXPECT_EQ(registerTask(kV), nullptr);
    EXPECT_FALSE(m_center->hasRegisteredHotKeyWithKeyCode(kV, kCommand));
    registerTask(kX);
    EXPECT_EQ(idsOf(kX).at(0).id, 1U);
}

struct Unregistering
{
    const char *row;
    std::function<void(HotKeyCenter &, QObject &)> run;
    std::vector<quint16> left;
};

const Unregistering kUnregistering[] = {
    {"target",
     [](auto &center, auto &target) { center.unregisterHotKeysWithTarget(&target); },
     {kV}},
    {"no target",
     [](auto &center, auto &) { center.unregisterHotKeysWithTarget(nullptr); },
     {kV, kC, kX}},
    {"action",
     [](auto &center, auto &target) { center.unregisterHotKeysWithTarget(&target, "b"); },
     {kV, kC}},
    {"combination",
     [](auto &center, auto &) { center.unregisterHotKeyWithKeyCode(kC, kCommand); },
     {kV, kX}},
    {"other flags",
     [](auto &center, auto &) { center.unregisterHotKeyWithKeyCode(kC, kShift); },
     {kV, kC, kX}},
    {"all", [](auto &center, auto &) { center.unregisterAllHotKeys(); }, {}},
};

TEST_F(Center, unregisteringTakesExactlyWhatMatches)
{
    for (const Unregistering &each : kUnregistering) {
        SCOPED_TRACE(each.row);
        QObject target;
        registerTask(kV);
        m_center->registerHotKeyWithKeyCode(kC, kCommand, &target, "a");
        m_center->registerHotKeyWithKeyCode(kX, kCommand, &target, "b");
        each.run(*m_center, target);
        std::vector<quint16> left;
        for (const quint16 keyCode : {kV, kC, kX}) {
            const bool isLeft = m_center->hasRegisteredHotKeyWithKeyCode(keyCode, kCommand);
            EXPECT_EQ(idsOf(keyCode).empty(), !isLeft) << "the platform knows otherwise";
            if (isLeft)
                left.push_back(keyCode);
        }
        EXPECT_EQ(left, each.left);
        m_center->unregisterAllHotKeys();
    }
}

TEST_F(Center, onlyTheRegisteredRecordItselfIsUnregistered)
{
    const auto record = registerTask(kV);
    m_center->unregisterHotKey(std::make_shared<HotKey>(kV, kCommand, nullptr));
    EXPECT_EQ(record->hotKeyRef(), &m_hotKeys) << "an equal one took it along";
    m_center->unregisterHotKey(record);
    EXPECT_EQ(record->hotKeyRef(), nullptr);
    EXPECT_EQ(m_center->registerHotKey(record), record);
    EXPECT_EQ(idsOf(kV).at(0).id, 2U);
}

TEST_F(Center, noRegistrationOutlivesItsCenter)
{
    const auto kept = registerTask(kV);
    registerTask(kX);
    m_center.reset();
    EXPECT_EQ(kept->hotKeyRef(), nullptr);
    EXPECT_TRUE(idsOf(kV).empty());
    EXPECT_TRUE(idsOf(kX).empty());
}

TEST_F(Center, anActionMayUnregisterItsOwnHotKey)
{
    QString seen;
    m_center->registerHotKeyWithKeyCode(
        kV, kCommand, [this, text = QStringLiteral("alive"), &seen](const KeyUpEvent &) {
            m_center->unregisterAllHotKeys();
            seen = text;
        });
    m_hotKeys.release(kV, kCarbonCommand);
    EXPECT_EQ(seen, QStringLiteral("alive"));
}

TEST_F(Center, anotherRegistrysHotKeyRunsNothing)
{
    registerTask(kV);
    ASSERT_TRUE(m_hotKeys.registerHotKey({0x4D415353, 1}, kX, kCarbonCommand));
    m_hotKeys.release(kX, kCarbonCommand);
    EXPECT_TRUE(m_events.empty());
}

TEST(SharedCenter, registersNothingOnceItsServiceIsGone)
{
    {
        MemoryHotKeys hotKeys;
        HotKeyCenter::connectShared(hotKeys);
        EXPECT_TRUE(
            HotKeyCenter::sharedHotKeyCenter()->registerHotKeyWithKeyCode(kV, kCommand, nullptr));
    }
    EXPECT_FALSE(
        HotKeyCenter::sharedHotKeyCenter()->registerHotKeyWithKeyCode(kX, kCommand, nullptr));
    HotKeyCenter::sharedHotKeyCenter()->unregisterAllHotKeys();
}

} // namespace
