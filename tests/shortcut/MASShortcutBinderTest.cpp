#include "shortcut/MASShortcutBinder.h"

#include "platform/memory/MemoryHotKeys.h"
#include "platform/memory/MemorySettingsStore.h"
#include "shortcut/MASShortcutMonitor.h"
#include "support/ExpectedWarnings.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace {

const QString kKey = QStringLiteral("openShortCut");
const MASShortcut kShiftCommandV(VirtualKey::kV, 0x120000);
const MASShortcut kShiftCommandX(VirtualKey::kX, 0x120000);

class Binder : public testing::Test
{
protected:
    bool runs(const MASShortcut &shortcut)
    {
        const int before = m_runs;
        m_hotKeys.press(shortcut.carbonKeyCode(), shortcut.carbonFlags());
        QCoreApplication::sendPostedEvents();
        return m_runs > before;
    }
    void bind()
    {
        m_binder.bindShortcutWithDefaultsKey(kKey, [this] { ++m_runs; });
    }

    MemoryHotKeys m_hotKeys;
    MemorySettingsStore m_settings;
    MASShortcutMonitor m_monitor{m_hotKeys};
    MASShortcutBinder m_binder{m_settings, &m_monitor};
    int m_runs = 0;
};

TEST_F(Binder, aShortcutStoredBeforeOrAfterTheBindingWorksAtOnce)
{
    bind();
    EXPECT_EQ(m_binder.valueForUndefinedKey(kKey), std::nullopt);
    m_settings.setValue(kKey, kShiftCommandV.archive());
    EXPECT_TRUE(runs(kShiftCommandV));

    const QString other = QStringLiteral("swopShortCut");
    m_settings.setValue(other, kShiftCommandX.archive());
    m_binder.bindShortcutWithDefaultsKey(other, [this] { ++m_runs; });
    EXPECT_TRUE(runs(kShiftCommandX));
}

TEST_F(Binder, aNewShortcutTakesThePlaceOfTheOld)
{
    m_settings.setValue(kKey, kShiftCommandV.archive());
    bind();
    m_settings.setValue(kKey, kShiftCommandX.archive());
    EXPECT_FALSE(runs(kShiftCommandV));
    EXPECT_TRUE(runs(kShiftCommandX));
}

TEST_F(Binder, aClearedShortcutStopsWorkingButStaysReadable)
{
    m_settings.setValue(kKey, kShiftCommandV.archive());
    bind();
    m_settings.setValue(kKey, QByteArray(""));
    EXPECT_FALSE(runs(kShiftCommandV));
    EXPECT_EQ(m_binder.valueForUndefinedKey(kKey), kShiftCommandV);
    m_settings.setValue(kKey, kShiftCommandV.archive());
    EXPECT_TRUE(runs(kShiftCommandV));
}

TEST_F(Binder, aRefusedShortcutStaysBound)
{
    m_hotKeys.holdElsewhere(kShiftCommandV.carbonKeyCode(), kShiftCommandV.carbonFlags());
    bind();
    m_settings.setValue(kKey, kShiftCommandV.archive());
    EXPECT_EQ(m_binder.valueForUndefinedKey(kKey), kShiftCommandV);
    EXPECT_FALSE(m_monitor.isShortcutRegistered(kShiftCommandV));
}

TEST_F(Binder, anUnreadableShortcutIsNoneIsLoggedOnceAndKept)
{
    const QByteArray unreadable("bplist00 and then nothing");
    m_settings.setValue(kKey, unreadable);
    ExpectedWarnings::expect(kKey);
    bind();
    EXPECT_EQ(m_binder.valueForUndefinedKey(kKey), std::nullopt);
    m_settings.setValue(QStringLiteral("maxItems"), 10LL);
    EXPECT_EQ(m_settings.value(kKey), QVariant(unreadable));
}

TEST_F(Binder, aBrokenBindingHearsNothingMore)
{
    m_settings.setValue(kKey, kShiftCommandV.archive());
    bind();
    EXPECT_TRUE(m_binder.isRegisteredAction(kKey));
    m_binder.breakBindingWithDefaultsKey(kKey);
    EXPECT_FALSE(m_binder.isRegisteredAction(kKey));
    EXPECT_FALSE(runs(kShiftCommandV));
    m_settings.setValue(kKey, kShiftCommandX.archive());
    EXPECT_FALSE(runs(kShiftCommandX));
}

TEST_F(Binder, aDefaultAnswersWithoutBeingStored)
{
    m_binder.registerDefaultShortcuts({{kKey, kShiftCommandV}});
    EXPECT_FALSE(m_settings.contains(kKey));
    bind();
    EXPECT_TRUE(runs(kShiftCommandV));
}

TEST_F(Binder, otherOptionsReadAnotherStoredForm)
{
    m_binder.setBindingOptions({nullptr, QStringLiteral("MASDictionaryTransformer")});
    m_settings.setValue(kKey, QVariantMap{{QStringLiteral("keyCode"), 9LL},
                                          {QStringLiteral("modifierFlags"), 0x120000LL}});
    bind();
    EXPECT_TRUE(runs(kShiftCommandV));
}

TEST_F(Binder, anUnknownKeyEndsTheProgram)
{
    EXPECT_DEATH(m_binder.valueForUndefinedKey(kKey), "no value for the key openShortCut");
    EXPECT_DEATH(m_binder.setValueForUndefinedKey(kShiftCommandV, kKey), "openShortCut");
}

} // namespace
