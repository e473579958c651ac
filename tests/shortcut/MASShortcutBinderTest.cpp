#include "shortcut/MASShortcutBinder.h"

#include "platform/memory/MemoryPlatform.h"
#include "shortcut/KeyNames.h"
#include "shortcut/MASShortcutMonitor.h"
#include "shortcut/MASShortcutValidator.h"
#include "support/ExpectedWarnings.h"

#include <QCoreApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <array>

namespace {

using HotKeyState = MASShortcutBinder::HotKeyState;

const QString kKey = QStringLiteral("openShortCut");
const QString kOtherKey = QStringLiteral("swopShortCut");
const MASShortcut kShiftCommandV(VirtualKey::kV, 0x120000);
const MASShortcut kShiftCommandX(VirtualKey::kX, 0x120000);

class Binder : public testing::Test
{
protected:
    Binder()
    {
        KeyNames::current().setKeyboardLayout(&m_layout);
        m_binder.setShortcutValidator(m_validator);
    }
    ~Binder() override { KeyNames::current().setKeyboardLayout(nullptr); }

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

    void holdElsewhere(const MASShortcut &shortcut)
    {
        m_hotKeys.holdElsewhere(shortcut.carbonKeyCode(), shortcut.carbonFlags());
    }
    void freeElsewhere(const MASShortcut &shortcut)
    {
        m_hotKeys.freeElsewhere(shortcut.carbonKeyCode(), shortcut.carbonFlags());
    }

    MemoryKeyboardLayout m_layout;
    MemoryHotKeys m_hotKeys;
    MemorySettingsStore m_settings;
    MASShortcutValidator m_validator;
    MASShortcutMonitor m_monitor{m_hotKeys};
    MASShortcutBinder m_binder{m_settings, &m_monitor};
    int m_runs = 0;
};

TEST_F(Binder, whatTheUserChoosesInTheDesktopsSettingsIsStoredOrTold)
{
    m_settings.setValue(kKey, kShiftCommandV.archive());
    bind();
    const auto choose = [this](const MASShortcut &before, const HotKeyChoice &choice) {
        const auto ids = m_hotKeys.idsOf(before.carbonKeyCode(), before.carbonFlags());
        ASSERT_EQ(ids.size(), 1U);
        Q_EMIT m_hotKeys.chosenElsewhere(ids.front(), choice);
    };
    choose(kShiftCommandV,
           {HotKeyCombination{kShiftCommandX.carbonKeyCode(), kShiftCommandX.carbonFlags()},
            QStringLiteral("Meta+Shift+X")});
    EXPECT_EQ(m_settings.value(kKey), kShiftCommandX.archive());
    EXPECT_TRUE(runs(kShiftCommandX));
    EXPECT_FALSE(runs(kShiftCommandV));
    // No recorder records these: the stored shortcut stays, and a note tells of them.
    for (const auto &combination : {std::optional<HotKeyCombination>(),
                                    std::optional(HotKeyCombination{VirtualKey::kV, 0})}) {
        choose(kShiftCommandX, {combination, QStringLiteral("Tools")});
        EXPECT_EQ(m_binder.keysChosenElsewhere(kKey), QStringLiteral("Tools"));
        EXPECT_EQ(m_settings.value(kKey), kShiftCommandX.archive());
    }
    choose(kShiftCommandX, {});
    EXPECT_EQ(m_binder.keysChosenElsewhere(kKey), QString());
    EXPECT_EQ(m_binder.hotKeyState(kKey), HotKeyState::None);
    EXPECT_EQ(m_settings.value(kKey), m_binder.bindingOptions().storedFormOf(std::nullopt));
}

TEST_F(Binder, whereNoProgramCanHaveShortcutsNoneIsWaitedFor)
{
    m_hotKeys.setControl(HotKeys::Control::Nobody);
    m_settings.setValue(kKey, kShiftCommandV.archive());
    bind();
    EXPECT_EQ(m_binder.hotKeyState(kKey), HotKeyState::None);
}

TEST_F(Binder, aClearedShortcutStopsWorkingButStaysReadable)
{
    bind();
    EXPECT_EQ(m_binder.valueForUndefinedKey(kKey), std::nullopt);
    m_settings.setValue(kKey, kShiftCommandV.archive());
    m_settings.setValue(kKey, QByteArray(""));
    EXPECT_FALSE(runs(kShiftCommandV));
    EXPECT_EQ(m_binder.valueForUndefinedKey(kKey), kShiftCommandV);
    m_settings.setValue(kKey, kShiftCommandV.archive());
    EXPECT_TRUE(runs(kShiftCommandV));
}

TEST_F(Binder, twoKeysKeepTheirHotKeysThroughEveryOrderOfChanges)
{
    struct Step
    {
        QString key;
        std::optional<MASShortcut> shortcut;
    };
    const std::array<Step, 6> steps{{{kKey, kShiftCommandV},
                                     {kKey, kShiftCommandX},
                                     {kKey, std::nullopt},
                                     {kOtherKey, kShiftCommandV},
                                     {kOtherKey, kShiftCommandX},
                                     {kOtherKey, std::nullopt}}};
    constexpr int kSequences = 6 * 6 * 6 * 6;
    QMap<QString, int> presses;
    const auto runnersOf = [&](const MASShortcut &shortcut) {
        presses.clear();
        runs(shortcut);
        return presses;
    };
    for (const QString &key : {kKey, kOtherKey})
        m_binder.bindShortcutWithDefaultsKey(key, [&presses, key] { ++presses[key]; });
    for (int sequence = 0; sequence < kSequences; ++sequence) {
        QString told;
        for (int rest = sequence, i = 0; i < 4; ++i, rest /= 6) {
            const Step &step = steps.at(static_cast<size_t>(rest % 6));
            m_settings.setValue(step.key,
                                step.shortcut ? step.shortcut->archive() : QByteArray(""));
            told += QStringLiteral(" %1=%2").arg(
                step.key, step.shortcut ? step.shortcut->keyCodeString() : QString());
            for (const MASShortcut &shortcut : {kShiftCommandV, kShiftCommandX}) {
                QStringList wanting;
                for (const QString &key : {kKey, kOtherKey}) {
                    if (m_settings.value(key) == QVariant(shortcut.archive()))
                        wanting.append(key);
                }
                if (wanting.size() == 2 && step.shortcut == shortcut)
                    wanting = {step.key};
                const QMap<QString, int> runners = runnersOf(shortcut);
                ASSERT_EQ(runners.size(), qMin<qsizetype>(wanting.size(), 1)) << told.toStdString();
                ASSERT_TRUE(runners.isEmpty() ||
                            (wanting.contains(runners.firstKey()) && runners.first() == 1))
                    << told.toStdString();
            }
        }
    }
}

TEST_F(Binder, aRefusedShortcutStaysBoundIsToldOnceAndWorksAsSoonAsItCan)
{
    m_binder.setRetryInterval(std::chrono::milliseconds(1));
    const auto isTold = [](const QString &word) {
        return ExpectedWarnings::messages().filter(word).filter(kKey).size();
    };
    struct Way
    {
        const char *name;
        std::function<void()> action;
        bool isToldAgain = false;
    };
    const std::array<Way, 4> ways{{
        {"another program ended", [this] { Q_EMIT m_hotKeys.availabilityChanged(); }},
        {"another layout", [this] { m_layout.setName(VirtualKey::kA, QStringLiteral("q")); }},
        {"recorded anew", [this] { m_settings.setValue(kKey, kShiftCommandV.archive()); }, true},
        {"a while", [] {}},
    }};
    bind();
    qsizetype refusals = 0;
    for (const Way &way : ways) {
        SCOPED_TRACE(way.name);
        m_settings.setValue(kKey, QByteArray(""));
        holdElsewhere(kShiftCommandV);
        m_settings.setValue(kKey, kShiftCommandV.archive());
        EXPECT_EQ(m_binder.valueForUndefinedKey(kKey), kShiftCommandV);
        EXPECT_EQ(m_binder.hotKeyState(kKey), HotKeyState::HeldElsewhere);
        way.action();
        EXPECT_FALSE(runs(kShiftCommandV));
        refusals += way.isToldAgain ? 2 : 1;
        EXPECT_EQ(isTold(QStringLiteral("Another program holds ⇧⌘V")), refusals);
        freeElsewhere(kShiftCommandV);
        way.action();
        EXPECT_TRUE(QTest::qWaitFor([&] { return runs(kShiftCommandV); }));
        EXPECT_EQ(m_binder.hotKeyState(kKey), HotKeyState::Works);
    }
}

TEST_F(Binder, aShortcutThatAnotherProgramTookDuringARecordingComesBack)
{
    m_settings.setValue(kKey, kShiftCommandV.archive());
    bind();
    m_monitor.setSuspended(true);
    holdElsewhere(kShiftCommandV);
    m_monitor.setSuspended(false);
    EXPECT_EQ(m_binder.hotKeyState(kKey), HotKeyState::HeldElsewhere);
    freeElsewhere(kShiftCommandV);
    Q_EMIT m_hotKeys.availabilityChanged();
    EXPECT_TRUE(runs(kShiftCommandV));
}

TEST_F(Binder, onlyWhatARecorderWouldStoreIsRegistered)
{
    m_validator.setMainMenu([] {
        return MenuModel{{QStringLiteral("Copy"), QStringLiteral("c"), ModifierFlags::kControl}};
    });
    // Where Q and A have changed places.
    m_layout.setName(VirtualKey::kA, QStringLiteral("q"));
    m_layout.setName(VirtualKey::kQ, QStringLiteral("a"));
    struct Stored
    {
        const char *name;
        quint64 keyCode, modifierFlags;
        bool works;
    };
    for (const Stored &stored : {
             Stored{"no key", VirtualKey::kNotFound, ModifierFlags::kCommand, false},
             Stored{"neither key nor modifiers", VirtualKey::kNotFound, 0, false},
             Stored{"a letter", VirtualKey::kB, 0, false},
             Stored{"a capital letter", VirtualKey::kB, ModifierFlags::kShift, false},
             Stored{"a modifier", VirtualKey::kShift, ModifierFlags::kControl, false},
             Stored{"copying", VirtualKey::kC, ModifierFlags::kControl, false},
             Stored{"quitting", VirtualKey::kA, ModifierFlags::kCommand, false},
             Stored{"what quits elsewhere", VirtualKey::kQ, ModifierFlags::kCommand, true},
             Stored{"a function key", VirtualKey::kF5, 0, true},
         }) {
        SCOPED_TRACE(stored.name);
        const MASShortcut shortcut(stored.keyCode, stored.modifierFlags);
        m_settings.setValue(kKey, shortcut.archive());
        if (!stored.works)
            ExpectedWarnings::expect(QStringLiteral("none that can be recorded"));
        bind();
        EXPECT_EQ(runs(shortcut), stored.works);
        EXPECT_EQ(m_binder.hotKeyState(kKey),
                  stored.works ? HotKeyState::Works : HotKeyState::Unusable);
        EXPECT_EQ(m_settings.value(kKey), QVariant(shortcut.archive()));
        m_binder.breakBindingWithDefaultsKey(kKey);
    }
}

TEST_F(Binder, aStoredShortcutThatTheLayoutDoesNotNameWaitsForOneThatDoes)
{
    m_layout.setName(VirtualKey::kV, QString());
    m_settings.setValue(kKey, kShiftCommandV.archive());
    ExpectedWarnings::expect(QStringLiteral("none that can be recorded"));
    bind();
    EXPECT_FALSE(runs(kShiftCommandV));
    m_layout.setName(VirtualKey::kV, QStringLiteral("v"));
    EXPECT_TRUE(runs(kShiftCommandV));
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
