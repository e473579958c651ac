#include "shortcut/MASShortcutMonitor.h"

#include "platform/memory/MemoryHotKeys.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <optional>

namespace {

constexpr quint32 kCarbonCommand = CarbonModifiers::kCommand;
const MASShortcut kCommandV(VirtualKey::kV, ModifierFlags::kCommand);
const MASShortcut kCommandX(VirtualKey::kX, ModifierFlags::kCommand);

class Monitor : public testing::Test
{
protected:
    int pressesOf(quint32 keyCode)
    {
        const int before = m_runs;
        m_hotKeys.press(keyCode, kCarbonCommand);
        EXPECT_EQ(m_runs, before) << "the action ran inside the event";
        QCoreApplication::sendPostedEvents();
        return m_runs - before;
    }

    MemoryHotKeys m_hotKeys;
    std::optional<MASShortcutMonitor> m_monitor{std::in_place, m_hotKeys};
    int m_runs = 0;
    std::function<void()> m_action = [this] { ++m_runs; };
};

TEST_F(Monitor, aPressRunsItsOwnActionAfterTheEvent)
{
    ASSERT_TRUE(m_monitor->registerShortcut(kCommandV, m_action));
    ASSERT_TRUE(m_monitor->registerShortcut(kCommandX, [] {}));
    EXPECT_EQ(pressesOf(VirtualKey::kV), 1);
    EXPECT_EQ(pressesOf(VirtualKey::kX), 0);
    EXPECT_EQ(pressesOf(VirtualKey::kC), 0);
}

TEST_F(Monitor, aRefusedShortcutChangesNothing)
{
    ASSERT_TRUE(m_monitor->registerShortcut(kCommandV, m_action));
    m_hotKeys.holdElsewhere(VirtualKey::kV, kCarbonCommand);
    EXPECT_FALSE(m_monitor->registerShortcut(kCommandV, [] {}));
    EXPECT_TRUE(m_monitor->isShortcutRegistered(kCommandV));
    EXPECT_EQ(pressesOf(VirtualKey::kV), 1);
    m_hotKeys.holdElsewhere(VirtualKey::kX, kCarbonCommand);
    EXPECT_FALSE(m_monitor->registerShortcut(kCommandX, m_action));
    EXPECT_FALSE(m_monitor->isShortcutRegistered(kCommandX));
}

TEST_F(Monitor, anEqualShortcutReplacesTheFirstUnderANewNumber)
{
    ASSERT_TRUE(m_monitor->registerShortcut(kCommandV, [] { FAIL(); }));
    const HotKeyId first = m_hotKeys.idsOf(VirtualKey::kV, kCarbonCommand).at(0);
    ASSERT_TRUE(m_monitor->registerShortcut(kCommandV, m_action));
    const std::vector<HotKeyId> ids = m_hotKeys.idsOf(VirtualKey::kV, kCarbonCommand);
    ASSERT_EQ(ids.size(), 1U);
    EXPECT_EQ(first.signature, 0x4D415353U);
    EXPECT_GT(ids[0].id, first.id);
    EXPECT_EQ(pressesOf(VirtualKey::kV), 1);
}

TEST_F(Monitor, unregisteringReleasesTheHotKey)
{
    ASSERT_TRUE(m_monitor->registerShortcut(kCommandV, m_action));
    ASSERT_TRUE(m_monitor->registerShortcut(kCommandX, m_action));
    m_monitor->unregisterShortcut(std::nullopt);
    m_monitor->unregisterShortcut(kCommandV);
    m_monitor->unregisterShortcut(kCommandV);
    EXPECT_FALSE(m_monitor->isShortcutRegistered(kCommandV));
    EXPECT_TRUE(m_hotKeys.idsOf(VirtualKey::kV, kCarbonCommand).empty());
    EXPECT_EQ(pressesOf(VirtualKey::kX), 1);
    m_monitor->unregisterAllShortcuts();
    EXPECT_TRUE(m_hotKeys.idsOf(VirtualKey::kX, kCarbonCommand).empty());
}

TEST_F(Monitor, anotherRegistrysHotKeyRunsNothing)
{
    ASSERT_TRUE(m_monitor->registerShortcut(kCommandV, m_action));
    const quint32 id = m_hotKeys.idsOf(VirtualKey::kV, kCarbonCommand).at(0).id;
    ASSERT_TRUE(m_hotKeys.registerHotKey({0x50544B48, id}, VirtualKey::kX, kCarbonCommand));
    EXPECT_EQ(pressesOf(VirtualKey::kX), 0);
}

TEST_F(Monitor, noHotKeyOutlivesItsMonitor)
{
    ASSERT_TRUE(m_monitor->registerShortcut(kCommandV, m_action));
    m_hotKeys.press(VirtualKey::kV, kCarbonCommand);
    m_monitor.reset();
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(m_runs, 0);
    EXPECT_TRUE(m_hotKeys.idsOf(VirtualKey::kV, kCarbonCommand).empty());
}

TEST(SharedMonitor, registersNothingOnceItsServiceIsGone)
{
    {
        MemoryHotKeys hotKeys;
        MASShortcutMonitor::connectShared(hotKeys);
        ASSERT_TRUE(MASShortcutMonitor::sharedMonitor()->registerShortcut(kCommandV, [] {}));
    }
    EXPECT_FALSE(MASShortcutMonitor::sharedMonitor()->registerShortcut(kCommandX, [] {}));
    MASShortcutMonitor::sharedMonitor()->unregisterAllShortcuts();
}

} // namespace
