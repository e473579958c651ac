#include "Clipboard/preferences/PreferencesGeneralViewController.h"

#include "Clipboard/ApplicationRig.h"
#include "Clipboard/preferences/DesktopShortcut.h"
#include "Clipboard/preferences/HistorySizeSlider.h"
#include "Clipboard/preferences/PictureChoice.h"
#include "Clipboard/preferences/PreferencesActions.h"
#include "Clipboard/settings/GlobalShortcuts.h"
#include "preferenceswindow/CCNPreferencesWindow.h"
#include "preferenceswindow/CCNPreferencesWindowController.h"
#include "shortcut/MASShortcut.h"
#include "shortcut/MASShortcutBinder.h"
#include "shortcut/MASShortcutView.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <limits>

namespace {

constexpr qint64 kNoLimit = std::numeric_limits<qint64>::max();

class GeneralPane : public ApplicationRig
{
protected:
    GeneralPane() : ApplicationRig(User::Newcomer) {}

    PreferencesGeneralViewController &start() { return ApplicationRig::start().generalPane(); }

    void copy(int count)
    {
        for (int i = 0; i < count; ++i)
            ApplicationRig::copy(QStringLiteral("clip %1").arg(++copies));
    }

    size_t clipCount() const { return application->getClipItemArr().size(); }
    QVariant stored(const QString &key) const { return memory.settings.value(key); }
    void openPane() { application->openPreferences(); }
    void leavePane() { application->preferences()->dismissPreferencesWindow(); }
    QString note(const char *name) const
    {
        return application->generalPane()
            .view()
            ->findChild<QLabel *>(QString::fromLatin1(name))
            ->text();
    }
    void retype(QLineEdit &field, const QString &text)
    {
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, text);
    }

    int copies = 0;
};

TEST_F(GeneralPane, writesEveryDefaultOnAFreshAccount)
{
    const PreferencesGeneralViewController &pane = start();
    const quint64 commandShift = ModifierFlags::kCommand | ModifierFlags::kShift;
    EXPECT_EQ(stored(QStringLiteral("openAtLogin")), QVariant(true));
    EXPECT_EQ(stored(QStringLiteral("maxItems")), QVariant(qlonglong(1000)));
    EXPECT_EQ(stored(QStringLiteral("maxStringSize")), QVariant(qlonglong(10000)));
    EXPECT_EQ(stored(QStringLiteral("notificationsEnabled")), QVariant(true));
    EXPECT_EQ(stored(QStringLiteral("SUUpdaterIsInTestMode")), QVariant(true));
    EXPECT_EQ(stored(QStringLiteral("SUUpdaterChecksForBetaUpdates")), QVariant(true));
    EXPECT_EQ(MASShortcut::unarchive(stored(QStringLiteral("openShortCut")).toByteArray()),
              MASShortcut(9, commandShift));
    EXPECT_EQ(MASShortcut::unarchive(stored(QStringLiteral("swopShortCut")).toByteArray()),
              MASShortcut(7, commandShift));
    EXPECT_FALSE(memory.settings.contains(QStringLiteral("welcomeWindowShown")));
    EXPECT_EQ(pane.getMaxItems(), 1000);
    EXPECT_EQ(pane.getMaxStringSize(), 10000);
    EXPECT_TRUE(pane.isNotificationsEnabled());
    EXPECT_TRUE(pane.openAtLoginCB->isChecked());
}

TEST_F(GeneralPane, showsWhatIsStoredAndForcesTheTestSwitchesOfTheUpdater)
{
    memory.settings.setValue(QStringLiteral("openAtLogin"), false);
    memory.settings.setValue(QStringLiteral("maxItems"), qlonglong(1234));
    memory.settings.setValue(QStringLiteral("maxStringSize"), qlonglong(55));
    memory.settings.setValue(QStringLiteral("notificationsEnabled"), false);
    memory.settings.setValue(QStringLiteral("welcomeWindowShown"), true);
    memory.settings.setValue(QStringLiteral("SUUpdaterIsInTestMode"), false);
    const PreferencesGeneralViewController &pane = start();
    EXPECT_FALSE(pane.openAtLoginCB->isChecked());
    EXPECT_EQ(pane.getMaxItems(), 1234);
    EXPECT_EQ(pane.getMaxStringSize(), 55);
    EXPECT_FALSE(pane.isNotificationsEnabled());
    EXPECT_TRUE(pane.welcomeWindowShown());
    EXPECT_EQ(stored(QStringLiteral("SUUpdaterIsInTestMode")), QVariant(true));
    EXPECT_EQ(stored(QStringLiteral("maxItems")), QVariant(qlonglong(1234)));
}

TEST_F(GeneralPane, keepsPicturesFromTheMomentTheBoxIsTicked)
{
    PreferencesGeneralViewController &pane = start();
    EXPECT_FALSE(memory.settings.contains(QStringLiteral("keepPictures")));
    EXPECT_FALSE(memory.settings.contains(QStringLiteral("maxPictureMegabytes")));
    EXPECT_EQ(memory.pasteboard.maxUsefulPicture(), 0);
    EXPECT_FALSE(pane.pictures().size->isEnabled());
    pane.pictures().box->click();
    EXPECT_EQ(memory.pasteboard.maxUsefulPicture(), 10'000'000);
    openPane();
    struct Row
    {
        QString typed;
        QString shown; ///< Once the field is left.
        qint64 bytes;
    };
    const Row rows[] = {{QStringLiteral("3"), QStringLiteral("3"), 3'000'000},
                        {QString(), QStringLiteral("3"), 3'000'000},
                        {QStringLiteral("0"), QStringLiteral("3"), 3'000'000},
                        {QStringLiteral("999"), QStringLiteral("64"), 64'000'000}};
    for (const Row &row : rows) {
        retype(*pane.pictures().size, row.typed);
        QTest::keyClick(pane.pictures().size, Qt::Key_Return);
        EXPECT_EQ(pane.pictures().size->text(), row.shown);
        EXPECT_EQ(memory.pasteboard.maxUsefulPicture(), row.bytes);
    }
    application.reset();
    memory.pasteboard.setLargestUsefulPicture(0);
    start();
    EXPECT_EQ(memory.pasteboard.maxUsefulPicture(), 64'000'000);
    application->generalPane().pictures().box->click();
    EXPECT_EQ(memory.pasteboard.maxUsefulPicture(), 0);
}

TEST_F(GeneralPane, saysBesideARecorderThatItsShortcutDoesNotWork)
{
    const auto noteOf = [](const MASShortcutView &recorder) {
        const QList<QLabel *> notes =
            recorder.parentWidget()->findChildren<QLabel *>(QStringLiteral("hotKeyNote"));
        return *std::ranges::min_element(
            notes, {}, [&](const QLabel *note) { return qAbs(note->y() - recorder.y()); });
    };
    const MASShortcut open(VirtualKey::kV, ModifierFlags::kCommand | ModifierFlags::kShift);
    memory.hotKeys.holdElsewhere(open.carbonKeyCode(), open.carbonFlags());
    const PreferencesGeneralViewController &pane = start();
    openPane();
    const QLabel *openNote = noteOf(*pane.openShortcut);
    const QLabel *swopNote = noteOf(*pane.swopShortcut);
    EXPECT_EQ(openNote->text(), QStringLiteral("Used by another program"));
    EXPECT_EQ(swopNote->text(), QStringLiteral("Super + Shift + X"));
    memory.keyboardLayout.setName(VirtualKey::kX, QStringLiteral("q"));
    EXPECT_EQ(swopNote->text(), QStringLiteral("Super + Shift + Q")) << "dvorak";
    EXPECT_EQ(GlobalShortcuts::workingSentenceName(memory.settings, pane.openShortCutPrefKey),
              std::nullopt)
        << "a hint that names it names nothing that works";
    memory.hotKeys.freeElsewhere(open.carbonKeyCode(), open.carbonFlags());
    Q_EMIT memory.hotKeys.availabilityChanged();
    EXPECT_EQ(openNote->text(), QStringLiteral("Super + Shift + V"));
    memory.settings.setValue(pane.swopShortCutPrefKey, open.archive());
    EXPECT_EQ(openNote->text(), QStringLiteral("Used by the other shortcut"));
    memory.settings.setValue(pane.swopShortCutPrefKey, QByteArray(""));
    EXPECT_EQ(openNote->text(), QStringLiteral("Super + Shift + V"));
    EXPECT_EQ(swopNote->text(), QString());
}

TEST_F(GeneralPane, saysWhyACombinationCannotBeRecorded)
{
    const PreferencesGeneralViewController &pane = start();
    openPane();
    pane.openShortcut->setBeep([] {});
    pane.openShortcut->setRecording(true);
    const QString usual = note("shortcutNote");
    QKeyEvent letter(QEvent::KeyPress, Qt::Key_A, {},
                     VirtualKey::toEvdev(VirtualKey::kA).value() + 8U, 0, 0);
    QCoreApplication::sendEvent(pane.openShortcut, &letter);
    EXPECT_TRUE(note("shortcutNote").startsWith(QStringLiteral("A shortcut needs Ctrl or Super")));
    pane.openShortcut->setRecording(false);
    EXPECT_EQ(note("shortcutNote"), usual);
}

/// The pane without an application.
class GeneralPaneAlone : public testing::Test, public PreferencesActions
{
protected:
    GeneralPaneAlone() { MASShortcutBinder::connectShared(memory.settings); }

    // ^PreferencesActions
    void launch() override {}
    void swop() override {}
    const std::vector<std::shared_ptr<ClipItem>> &getClipItemArr() const override { return clips; }
    void maxItemsModified(qint64) override {}
    void setPasteboardString(const QString &, const std::optional<QString> &) override {}
    void launchAtStartup(bool) override {}

    MemoryPlatform memory;
    std::vector<std::shared_ptr<ClipItem>> clips;
    PreferencesGeneralViewController pane{*this,
                                          memory.settings,
                                          memory.loginItems,
                                          memory.hotKeys,
                                          *memory.platform.capabilities,
                                          memory.consent};
};

TEST_F(GeneralPaneAlone, stopsItsLoadWithoutARecorder)
{
    pane.loadView();
    delete pane.swopShortcut.data();
    pane.loadPreferences();
    EXPECT_EQ(pane.openShortcut->associatedUserDefaultsKey(), QStringLiteral("openShortCut"));
    EXPECT_FALSE(memory.settings.contains(QStringLiteral("SUUpdaterIsInTestMode")));
    EXPECT_FALSE(MASShortcutBinder::sharedBinder()->isRegisteredAction(pane.openShortCutPrefKey));
}

TEST_F(GeneralPaneAlone, stopsItsLoadWithoutTheSlidersLabel)
{
    pane.loadView();
    delete pane.sliderLabel.data();
    pane.loadPreferences();
    EXPECT_TRUE(memory.settings.contains(pane.maxItemsPrefKey));
    EXPECT_FALSE(memory.settings.contains(pane.maxStringSizePrefKey));
}

using GeneralPaneDeathTest = GeneralPaneAlone;

TEST_F(GeneralPaneDeathTest, aLimitCannotBeAskedWithoutItsControl)
{
    EXPECT_DEATH((void)pane.getMaxItems(), "maxItemsSlider");
    EXPECT_DEATH((void)pane.getMaxStringSize(), "maxStringSizeTextField");
    EXPECT_DEATH((void)pane.isNotificationsEnabled(), "notificationsCheckbox");
}

struct StoredMaximum
{
    const char *name;
    QVariant stored;
    qint64 maxItems;
    size_t left; ///< Of 8 clips, after the pane was opened and left.
};

class StoredMaxItems : public GeneralPane, public testing::WithParamInterface<StoredMaximum>
{
};

TEST_P(StoredMaxItems, removesClipsOnlyWhenItIsASizeThatTheSliderCanShow)
{
    start();
    copy(8);
    application.reset();
    memory.settings.setValue(QStringLiteral("maxItems"), GetParam().stored);
    const PreferencesGeneralViewController &pane = start();
    EXPECT_EQ(pane.getMaxItems(), GetParam().maxItems);
    openPane();
    leavePane();
    EXPECT_EQ(clipCount(), GetParam().left);
    EXPECT_EQ(stored(QStringLiteral("maxItems")), GetParam().stored);

    pane.maxItemsSlider->setValue(3);
    EXPECT_EQ(pane.getMaxItems(), 3);
    openPane();
    leavePane();
    EXPECT_EQ(clipCount(), 3U);
}

INSTANTIATE_TEST_SUITE_P(
    Values, StoredMaxItems,
    testing::Values(StoredMaximum{"inRange", qlonglong(5), 5, 5},
                    StoredMaximum{"beyondReach", qlonglong(250'000), 250'000, 8},
                    StoredMaximum{"zero", qlonglong(0), kNoLimit, 8},
                    StoredMaximum{"negative", qlonglong(-4), kNoLimit, 8},
                    StoredMaximum{"numeral", QStringLiteral("4"), 4, 4},
                    StoredMaximum{"text", QStringLiteral("four"), kNoLimit, 8},
                    StoredMaximum{"real", 4.5, 4, 4}, StoredMaximum{"smallReal", 0.5, kNoLimit, 8},
                    StoredMaximum{"boolean", true, kNoLimit, 8},
                    StoredMaximum{"data", QByteArray("4"), kNoLimit, 8}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(GeneralPane, saysHowManyClipsWillGoAndRemovesThemOnlyWhenThePaneIsLeft)
{
    const PreferencesGeneralViewController &pane = start();
    copy(8);
    openPane();
    pane.maxItemsSlider->setValue(5);
    EXPECT_TRUE(note("maxItemsNote").startsWith(QStringLiteral("The 3 oldest clips will be")));
    EXPECT_EQ(clipCount(), 8U);
    application->preferences()->toolbarItemAction(
        QStringLiteral("ApplicationPreferencesIdentifier"));
    EXPECT_EQ(clipCount(), 5U);
    EXPECT_FALSE(note("maxItemsNote").contains(QStringLiteral("will be removed")));
}

TEST_F(GeneralPane, removesNothingWhenTheApplicationEndsWhileItIsOpen)
{
    for (const bool isAskedToQuit : {true, false}) {
        const PreferencesGeneralViewController &pane = start();
        copy(8);
        openPane();
        pane.maxItemsSlider->setValue(5);
        QEvent quit(QEvent::Quit);
        if (isAskedToQuit)
            QCoreApplication::sendEvent(qApp, &quit);
        EXPECT_EQ(clipCount(), 8U) << isAskedToQuit;
        // Another end than by being asked, as by the loss of the session.
        application.reset();
        start();
        EXPECT_EQ(clipCount(), 8U) << isAskedToQuit;
        openPane();
        leavePane();
        EXPECT_EQ(clipCount(), 5U) << "left";
        application->clearAll();
        application.reset();
        memory.settings.setValue(QStringLiteral("maxItems"), qlonglong(1000));
    }
}

TEST_F(GeneralPane, countsTheClipsThatArriveWhileItIsOpen)
{
    const PreferencesGeneralViewController &pane = start();
    pane.maxItemsSlider->setValue(2);
    memory.settings.setValue(QStringLiteral("maxItems"), qlonglong(2));
    copy(2);
    pane.maxItemsSlider->setValue(1);
    EXPECT_TRUE(note("maxItemsNote").startsWith(QStringLiteral("The oldest clip will be")));
}

TEST_F(GeneralPane, keepsTheSlidersNumberAtOnce)
{
    const PreferencesGeneralViewController &pane = start();
    QTest::keyClick(pane.maxItemsSlider, Qt::Key_PageUp);
    EXPECT_EQ(stored(QStringLiteral("maxItems")), QVariant(qlonglong(10'000)));
    EXPECT_EQ(pane.sliderLabel->text(), QLocale().toString(10'000));
}

TEST_F(GeneralPane, storesNothingWhenOnlyTheSlidersActionRuns)
{
    PreferencesGeneralViewController &pane = start();
    pane.sliderMoved(77);
    EXPECT_EQ(pane.sliderLabel->text(), QStringLiteral("77"));
    EXPECT_EQ(stored(QStringLiteral("maxItems")), QVariant(qlonglong(1000)));
    EXPECT_EQ(pane.getMaxItems(), 1000);
}

TEST_F(GeneralPane, keepsTheSizeWhileItIsTypedAndPutsTheLastOneBackIntoAnEmptyField)
{
    const PreferencesGeneralViewController &pane = start();
    QLineEdit &field = *pane.maxStringSizeTextField;
    retype(field, QStringLiteral("2500"));
    EXPECT_EQ(pane.getMaxStringSize(), 2500);
    EXPECT_EQ(memory.pasteboard.maxUsefulText(), 2500);
    EXPECT_EQ(stored(QStringLiteral("maxStringSize")), QVariant(qlonglong(2500)));
    EXPECT_EQ(note("maxStringSizeReading"), QStringLiteral("= 2.5 KB"));
    retype(field, QString());
    EXPECT_EQ(pane.getMaxStringSize(), 2500);
    openPane();
    leavePane();
    EXPECT_EQ(field.text(), QStringLiteral("2500"));
    EXPECT_EQ(stored(QStringLiteral("maxStringSize")), QVariant(qlonglong(2500)));
}

TEST_F(GeneralPane, clampsASizeOfTwentyDigits)
{
    const PreferencesGeneralViewController &pane = start();
    retype(*pane.maxStringSizeTextField, QStringLiteral("99999999999999999999"));
    EXPECT_EQ(pane.getMaxStringSize(), std::numeric_limits<qint64>::max());
    QTest::keyClick(pane.maxStringSizeTextField, Qt::Key_Return);
    EXPECT_EQ(pane.maxStringSizeTextField->text(), QStringLiteral("9223372036854775807"));
}

TEST_F(GeneralPane, silencesNotificationsOnlyUntilTheNextStart)
{
    const PreferencesGeneralViewController &pane = start();
    pane.notificationsCheckbox->click();
    EXPECT_FALSE(pane.isNotificationsEnabled());
    EXPECT_EQ(stored(QStringLiteral("notificationsEnabled")), QVariant(true));
    application.reset();
    EXPECT_TRUE(start().isNotificationsEnabled());
}

TEST_F(GeneralPane, storesWhetherToOpenAtLogin)
{
    const PreferencesGeneralViewController &pane = start();
    pane.openAtLoginCB->click();
    EXPECT_EQ(stored(QStringLiteral("openAtLogin")), QVariant(false));
    application->generalPane().setOpenAtLogin(true);
    EXPECT_EQ(stored(QStringLiteral("openAtLogin")), QVariant(true));
    EXPECT_TRUE(pane.openAtLoginCB->isChecked());
}

TEST_F(GeneralPane, tellsWhatTheDesktopDoesAtLoginOtherThanTheBoxSays)
{
    const PreferencesGeneralViewController &pane = start();
    const QString us = memory.loginItems.applicationPath().value();
    const auto told = [&] {
        leavePane();
        openPane();
        return note("openAtLoginNote");
    };
    EXPECT_TRUE(told().startsWith(QStringLiteral("Missing in")));
    memory.loginItems.setWritable(false);
    application->generalPane().setOpenAtLogin(true);
    EXPECT_TRUE(note("openAtLoginNote").contains(QStringLiteral("could not be written")));
    memory.loginItems.setWritable(true);
    application->generalPane().setOpenAtLogin(true);
    EXPECT_EQ(note("openAtLoginNote"), QString());
    EXPECT_EQ(told(), QString());
    memory.loginItems.setOwnEnabled(false);
    EXPECT_TRUE(told().startsWith(QStringLiteral("Switched off in")));
    memory.loginItems.setOwnEnabled(true);
    memory.loginItems.append(us);
    pane.openAtLoginCB->click();
    EXPECT_EQ(memory.loginItems.programs(), QStringList{us});
    EXPECT_TRUE(note("openAtLoginNote").contains(QStringLiteral("all the same")));
}

TEST_F(GeneralPane, givesLinesToCopyWhereNoProgramCanHaveShortcuts)
{
    PreferencesGeneralViewController &pane = start();
    const auto *table = pane.view()->findChild<QWidget *>(QStringLiteral("capabilityTable"));
    openPane();
    EXPECT_TRUE(pane.openShortcut->isVisible());
    EXPECT_FALSE(table->isVisible());

    Capability place{Capability::Kind::WindowPlace, Capability::State::WorksAfter};
    place.reason = "It is tiled.";
    place.configuration = QStringLiteral("float it");
    memory.platform.capabilities->tell(place);
    memory.platform.capabilities->tell({Capability::Kind::Recording});
    memory.hotKeys.setControl(HotKeys::Control::Nobody);
    EXPECT_FALSE(pane.openShortcut->isVisible());
    EXPECT_TRUE(table->isVisible());
    QStringList told;
    for (const QLabel *label : table->findChildren<QLabel *>(Qt::FindDirectChildrenOnly)) {
        EXPECT_TRUE(label->isVisible());
        told.append(label->text());
    }
    EXPECT_TRUE(told.contains(QStringLiteral("It is tiled.")));
    EXPECT_TRUE(told.contains(QStringLiteral("works")));
    QStringList copied;
    for (QPushButton *button : pane.openShortcut->window()->findChildren<QPushButton *>()) {
        if (!button->isVisible() || !button->text().startsWith(QStringLiteral("Copy")))
            continue;
        button->click();
        copied.append(memory.pasteboard.writes().last().text.value_or(QString()));
    }
    copied.sort();
    EXPECT_EQ(
        copied,
        (QStringList{QStringLiteral("bind 7 quillmarsh swop"),
                     QStringLiteral("bind 9 quillmarsh launch"),
                     QStringLiteral("bind 9 quillmarsh launch\nbind 7 quillmarsh swop\nfloat it"),
                     QStringLiteral("float it")}));

    place = {Capability::Kind::WindowPlace};
    memory.platform.capabilities->tell(place);
    memory.hotKeys.setControl(HotKeys::Control::Ours);
    EXPECT_TRUE(pane.openShortcut->isVisible());
    EXPECT_FALSE(table->isVisible());
}

TEST_F(GeneralPane, offersToHaveTheDesktopAskWhileNothingIsAgreedTo)
{
    PreferencesGeneralViewController &pane = start();
    memory.platform.capabilities->tell(
        {Capability::Kind::Recording, Capability::State::WorksAfter});
    openPane();
    const auto offer = [&pane]() -> QPushButton * {
        for (QPushButton *button : pane.view()->findChildren<QPushButton *>()) {
            if (button->isVisible() && button->text() == QStringLiteral("Have the Desktop &Ask…"))
                return button;
        }
        return nullptr;
    };
    using State = Consent::State;
    for (const State state : {State::NotNeeded, State::Asking, State::Given, State::Unavailable}) {
        memory.consent.setState(state);
        EXPECT_FALSE(offer()) << int(state);
    }
    for (const State state : {State::NotAsked, State::Refused, State::Ended}) {
        memory.consent.setState(state);
        ASSERT_TRUE(offer()) << int(state);
    }
    EXPECT_EQ(memory.consent.timesAsked(), 0);
    offer()->click();
    EXPECT_EQ(memory.consent.timesAsked(), 1);
}

TEST_F(GeneralPane, leadsToTheDesktopsSettingsWhereThoseChooseTheKeys)
{
    PreferencesGeneralViewController &pane = start();
    openPane();
    memory.hotKeys.setControl(HotKeys::Control::Desktop);
    EXPECT_FALSE(pane.openShortcut->isVisible());
    const QList<DesktopShortcut *> shown = pane.view()->findChildren<DesktopShortcut *>();
    ASSERT_EQ(shown.size(), 2);
    const auto *keys = shown.first()->findChild<QLabel *>(QStringLiteral("desktopKeys"));
    EXPECT_EQ(keys->text(), QStringLiteral("⇧⌘V"));
    shown.last()->findChild<QPushButton *>()->click();
    EXPECT_EQ(memory.hotKeys.configurations(), 1);

    const HotKeyId id =
        memory.hotKeys.idsOf(VirtualKey::kV, CarbonModifiers::kShift | CarbonModifiers::kCommand)
            .front();
    Q_EMIT memory.hotKeys.chosenElsewhere(id, {std::nullopt, QStringLiteral("Press Print")});
    EXPECT_EQ(keys->text(), QStringLiteral("Press Print"));
}

} // namespace
