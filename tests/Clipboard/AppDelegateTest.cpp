#include "Clipboard/ApplicationRig.h"

#include "Clipboard/StatusMenu.h"
#include "Clipboard/preferences/DamagedSettingsQuestion.h"
#include "Clipboard/preferences/PreferencesGeneralViewController.h"
#include "Clipboard/window/ClipTableView.h"
#include "Clipboard/window/ClipboardWindow.h"
#include "Clipboard/window/ViewController.h"
#include "history/ClipContext.h"
#include "hotkey/HotKeyCenter.h"
#include "hotkey/HotKeyTextField.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "preferenceswindow/CCNPreferencesWindow.h"
#include "shortcut/MASShortcutValidator.h"
#include "support/ExpectedWarnings.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <functional>

namespace {

constexpr quint32 kCommandShift = CarbonModifiers::kCommand | CarbonModifiers::kShift;

class AppDelegateTest : public ApplicationRig
{
protected:
    AppDelegateTest() { memory.frontApplication.setApplicationName(QStringLiteral("Editor")); }

    /// Presses the swop shortcut in an application in which `selection` is selected.
    void swopSelection()
    {
        memory.keySender.setReaction([this](quint32 key) {
            if (key == VirtualKey::kC)
                copy(QStringLiteral("selection"));
        });
        press(VirtualKey::kX);
    }

    void press(quint32 keyCode)
    {
        memory.hotKeys.press(keyCode, kCommandShift);
        // Actions of hot keys are queued.
        QCoreApplication::processEvents();
    }

    /// Our top level of that class; null when there is none.
    template <typename Window>
    static Window *window()
    {
        Window *found = nullptr;
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *candidate : windows)
            found = found ? found : qobject_cast<Window *>(candidate);
        return found;
    }
};

TEST_F(AppDelegateTest, theMenuHasItsEntriesInOrderAndItsFirstLineCannotBeChosen)
{
    const QMenu &menu = *start().statusMenu().menu();
    QStringList titles;
    for (const QAction *item : menu.actions())
        titles.append(item->isSeparator() ? QStringLiteral("-") : item->text());
    EXPECT_EQ(titles.join(u'|'), QStringLiteral("Quillmarsh v7.8|Check For Updates...|"
                                                "Preferences...|-|Launch...|-|Clear All|-|Help...|"
                                                "Send Feedback...|-|Quit"));
    EXPECT_FALSE(menu.actions().first()->isEnabled());
    const MenuModel withKeys = application->statusMenu().model();
    ASSERT_EQ(withKeys.size(), 1U);
    EXPECT_EQ(withKeys[0].keyEquivalent, QStringLiteral("Command-q"));
    EXPECT_EQ(memory.statusBar.menu(), &menu);
}

TEST_F(AppDelegateTest, startUpTellsItsStepsInOrderOnlyWhileTraceIsOn)
{
    start();
    EXPECT_FALSE(ExpectedWarnings::messages().contains(QStringLiteral("initStatusBar complete")));
    application = std::make_unique<AppDelegate>(memory.platform, info(), folder.path());
    application->setTrace(true);
    application->applicationDidFinishLaunching();
    const QStringList steps{
        QStringLiteral("applicationDidFinishLaunching start"),
        QStringLiteral("initStatusBar complete"),
        QStringLiteral("schedule timer complete"),
        QStringLiteral("load clipItems complete"),
        QStringLiteral("load story board complete"),
        QStringLiteral("load preferences complete"),
        QStringLiteral("devmate setup complete"),
    };
    QStringList told;
    for (const QString &message : ExpectedWarnings::messages()) {
        if (steps.contains(message))
            told.append(message);
    }
    EXPECT_EQ(told, steps);
}

TEST_F(AppDelegateTest, theStoreIsOpenedByItsFirstUseAndNotBefore)
{
    const QString store = folder.path() + QStringLiteral("/Quillmarsh.sqlite");
    const AppDelegate delegate(memory.platform, info(), folder.path());
    EXPECT_FALSE(QFileInfo::exists(store));
    EXPECT_EQ(&delegate.persistentStoreCoordinator(), &delegate.managedObjectContext().store());
    EXPECT_TRUE(QFileInfo::exists(store));
    EXPECT_EQ(delegate.applicationDocumentsDirectory().toLocalFile(),
              QFileInfo(folder.path()).absolutePath());
    EXPECT_EQ(delegate.managedObjectModel().entityName(), QStringLiteral("ClipItem"));
}

TEST_F(AppDelegateTest, onAFreshAccountBothShortcutsWorkBeforeAnyWindowWasOpened)
{
    start();
    EXPECT_EQ(memory.hotKeys.idsOf(VirtualKey::kV, kCommandShift).size(), 1U);
    EXPECT_EQ(memory.hotKeys.idsOf(VirtualKey::kX, kCommandShift).size(), 1U);
    press(VirtualKey::kV);
    EXPECT_TRUE(application->window()->isVisible());
}

TEST_F(AppDelegateTest, aKeyWhoseCapitalIsSeveralLettersIsNotTakenByTheMenu)
{
    memory.keyboardLayout.setName(VirtualKey::kMinus, QStringLiteral("ß"));
    start();
    EXPECT_FALSE(MASShortcutValidator::sharedValidator().isShortcutAlreadyTakenBySystem(
        {VirtualKey::kMinus, ModifierFlags::kCommand}));
}

TEST_F(AppDelegateTest, theDesktopsListIsReadAtTheStart)
{
    QSignalSpy readings(&memory.symbolicHotKeys, &SymbolicHotKeys::refreshed);
    start();
    EXPECT_EQ(readings.size(), 1);
}

TEST_F(AppDelegateTest, aCopyThatIsSeenBeforeThePanesAreLoadedIsRecordedOnceTheyAre)
{
    application = std::make_unique<AppDelegate>(memory.platform, info(), folder.path());
    copy(QStringLiteral("early"));
    application->applicationDidFinishLaunching();
    EXPECT_EQ(clips(), QStringList{QStringLiteral("early")});
}

TEST_F(AppDelegateTest, itsOneHotKeyFieldAndTheSharedCenterStandOnThePlatform)
{
    EXPECT_EQ(start().hotKeyField().hotKeys(), &memory.hotKeys);
    int runs = 0;
    const auto hotKey = HotKeyCenter::sharedHotKeyCenter()->registerHotKeyWithKeyCode(
        VirtualKey::kC, ModifierFlags::kCommand, [&runs](const KeyUpEvent &) { ++runs; });
    memory.hotKeys.release(VirtualKey::kC, CarbonModifiers::kCommand);
    EXPECT_EQ(runs, 1);
    HotKeyCenter::sharedHotKeyCenter()->unregisterHotKey(hotKey);
}

TEST_F(AppDelegateTest, theOpenShortcutStepsDownWhileTheHistoryIsOpen)
{
    start();
    copy(QStringLiteral("one"));
    copy(QStringLiteral("two"));
    press(VirtualKey::kV);
    EXPECT_EQ(application->getSelectedItem()->strValue(), QStringLiteral("two"));
    press(VirtualKey::kV);
    EXPECT_EQ(application->getSelectedItem()->strValue(), QStringLiteral("one"));
}

TEST_F(AppDelegateTest, aChosenClipIsPastedIntoTheApplicationThatWasInFront)
{
    start();
    copy(QStringLiteral("first"));
    copy(QStringLiteral("second"));
    press(VirtualKey::kV);
    application->viewController()->next();
    application->viewController()->paste();
    EXPECT_FALSE(application->window()->isVisible());
    EXPECT_EQ(memory.pasteboard.contents()->text, QStringLiteral("first"));
    EXPECT_EQ(memory.keySender.sent(), QList<quint32>{VirtualKey::kV});
    press(VirtualKey::kV);
    EXPECT_EQ(application->getSelectedItem()->strValue(), QStringLiteral("first"))
        << "the newest clip, before the next step of the timer";
}

TEST_F(AppDelegateTest, swopLeavesTheReplacedSelectionNewestAndOnThePasteboard)
{
    start();
    copy(QStringLiteral("clip"));
    swopSelection();
    EXPECT_EQ(clips(), QStringList{QStringLiteral("clip")});
    application->viewController()->paste();
    EXPECT_EQ(clips(), (QStringList{QStringLiteral("selection"), QStringLiteral("clip")}));
    EXPECT_EQ(memory.pasteboard.contents()->text, QStringLiteral("selection"));
}

TEST_F(AppDelegateTest, whatWasPastedCopiedOrHeldRightBeforeTheEndIsInTheHistory)
{
    start();
    for (const char *text : {"a", "b", "c"})
        copy(QString::fromLatin1(text));
    application->performPaste(2, {});
    application->applicationWillTerminate();
    start();
    EXPECT_EQ(clips(),
              (QStringList{QStringLiteral("a"), QStringLiteral("c"), QStringLiteral("b")}));

    swopSelection();
    application->applicationWillTerminate();
    EXPECT_EQ(clips().first(), QStringLiteral("selection"));
}

TEST_F(AppDelegateTest, aChangedSizeLimitReachesThePasteboardAtOnce)
{
    start();
    application->generalPane().maxStringSizeTextField->setText(QStringLiteral("123"));
    EXPECT_EQ(memory.pasteboard.maxUsefulText(), 123);
}

TEST_F(AppDelegateTest, aSwopClosedWithoutAChoiceKeepsTheSelectionAndGoesOnRecording)
{
    start();
    copy(QStringLiteral("clip"));
    swopSelection();
    QTest::keyClick(application->window(), Qt::Key_Escape);
    EXPECT_FALSE(application->window()->isVisible());
    copy(QStringLiteral("later"));
    EXPECT_EQ(clips(), (QStringList{QStringLiteral("later"), QStringLiteral("selection"),
                                    QStringLiteral("clip")}));
}

TEST_F(AppDelegateTest, aSwopEndedByReturnWhereNothingMatchesKeepsTheSelection)
{
    AppDelegate &delegate = start();
    copy(QStringLiteral("clip"));
    swopSelection();
    delegate.viewController()->filterDataArray(QStringLiteral("no such clip"));
    delegate.viewController()->paste();
    EXPECT_EQ(clips(), (QStringList{QStringLiteral("selection"), QStringLiteral("clip")}));
    copy(QStringLiteral("recorded again"));
    EXPECT_EQ(clips().front(), QStringLiteral("recorded again"));
}

TEST_F(AppDelegateTest, ourWindowsMakeWayForAPasteUnlessItGoesIntoAFieldOfOneOfThem)
{
    start().openPreferences();
    copy(QStringLiteral("clip"));
    auto *preferences = window<CCNPreferencesWindow>();
    ASSERT_TRUE(QTest::qWaitForWindowActive(preferences));
    QSignalSpy hidden(preferences, &CCNPreferencesWindow::hidden);
    QLineEdit own;
    int keystrokes = 0;
    memory.keySender.setReaction([&](quint32) {
        EXPECT_FALSE(preferences->isVisible());
        EXPECT_EQ(own.isVisible(), memory.frontApplication.ownTarget() != nullptr);
        ++keystrokes;
    });
    for (const bool isOverField : {false, true}) {
        SCOPED_TRACE(isOverField);
        if (isOverField) {
            own.show();
            own.activateWindow();
            own.setFocus();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&own));
        }
        press(VirtualKey::kV);
        EXPECT_EQ(memory.frontApplication.ownTarget(), isOverField ? own.windowHandle() : nullptr);
        application->viewController()->paste();
        EXPECT_EQ(std::exchange(keystrokes, 0), 1);
        EXPECT_TRUE(preferences->isVisible());
        EXPECT_EQ(hidden.count(), 0) << "its user has not left it";
    }
}

TEST_F(AppDelegateTest, theSelectionFollowsItsClipWhenACopyArrivesUnderTheOpenWindow)
{
    start();
    copy(QStringLiteral("old"));
    copy(QStringLiteral("new"));
    press(VirtualKey::kV);
    application->viewController()->next();
    copy(QStringLiteral("newest"));
    EXPECT_EQ(application->getSelectedItem()->strValue(), QStringLiteral("old"));
    EXPECT_EQ(application->viewController()->clipTableView()->selectedIdx(), 2);
}

TEST_F(AppDelegateTest, theHistoryOutlivesTheApplication)
{
    start();
    copy(QStringLiteral("kept"));
    application.reset();
    start();
    EXPECT_EQ(clips(), QStringList{QStringLiteral("kept")});
}

TEST_F(AppDelegateTest, nothingIsRecordedUntilDamagedSettingsAreSettled)
{
    memory.settings.setDamaged(true);
    start();
    copy(QStringLiteral("maybe a secret"));
    EXPECT_TRUE(clips().isEmpty());
    memory.settings.acceptFreshSettings();
    copy(QStringLiteral("after the answer"));
    EXPECT_EQ(clips(), QStringList{QStringLiteral("after the answer")});
}

TEST_F(AppDelegateTest, whatBecameOfACopyIsToldOnceAtTheNextOpeningAndAClickLeadsToTheLimit)
{
    AppDelegate &delegate = start();
    const auto *footer = delegate.window()->findChild<QLabel *>(QStringLiteral("footer"));
    QLineEdit &limit = *delegate.generalPane().maxStringSizeTextField;
    copy(QString(11'000, u'x'));
    copy(QString(12'345, u'x'));
    EXPECT_TRUE(clips().isEmpty());
    EXPECT_TRUE(footer->isHidden());
    delegate.launch();
    EXPECT_FALSE(footer->isHidden());
    EXPECT_EQ(footer->text(),
              QStringLiteral("A copy of 12,345 bytes was not recorded; the limit is 10,000"));
    delegate.launch();
    EXPECT_FALSE(footer->isHidden());
    delegate.viewController()->hide();
    delegate.launch();
    EXPECT_TRUE(footer->isHidden());
    delegate.viewController()->hide();

    copy(QStringLiteral("older"));
    PasteboardContents picture;
    picture.media = PasteboardContents::Media::Picture;
    memory.pasteboard.copyFromOutside(picture);
    delegate.launch();
    EXPECT_TRUE(footer->isHidden());
    delegate.performPaste(0, std::nullopt);
    delegate.launch();
    EXPECT_EQ(footer->text(), QStringLiteral("The copied picture is replaced"));
    delegate.viewController()->hide();

    memory.notifications.click();
    const auto *preferences = window<CCNPreferencesWindow>();
    ASSERT_TRUE(preferences);
    EXPECT_TRUE(preferences->isVisible());
    EXPECT_EQ(preferences->focusWidget(), &limit);
    EXPECT_EQ(limit.selectedText(), QStringLiteral("10000"));

    // Of this one the size is not known.
    PasteboardContents contents;
    contents.isTextTooLarge = true;
    memory.pasteboard.copyFromOutside(contents);
    delegate.launch();
    EXPECT_EQ(footer->text(),
              QStringLiteral("A copy was not recorded; it is larger than the limit of 10,000 "
                             "bytes"));
}

TEST_F(AppDelegateTest, theQuestionAboutDamagedSettingsIsAskedAgainUntilItIsAnswered)
{
    memory.settings.setDamaged(true);
    memory.settings.setValue(SettingsKeys::kWelcomeWindowShown, {});
    AppDelegate &delegate = start();
    const auto *footer = delegate.window()->findChild<QLabel *>(QStringLiteral("footer"));
    const auto question = []() -> DamagedSettingsQuestion * {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *found = qobject_cast<DamagedSettingsQuestion *>(widget);
            if (found && found->isVisible())
                return found;
        }
        return nullptr;
    };
    const std::function<void()> openings[]{[] {}, [&] { delegate.launch(); },
                                           [&] { delegate.openPreferences(); }};
    for (const auto &open : openings) {
        EXPECT_FALSE(question() && &open != openings);
        open();
        ASSERT_TRUE(question());
        EXPECT_NE(question()->windowTitle(), QStringLiteral("Quillmarsh"));
        EXPECT_TRUE(question()->testAttribute(Qt::WA_ShowWithoutActivating));
        EXPECT_FALSE(footer->isHidden());
        EXPECT_TRUE(footer->text().startsWith(QStringLiteral("Nothing is recorded")));
        question()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    delegate.openPreferences();
    QTest::keyClick(question(), Qt::Key_Escape);
    EXPECT_FALSE(question());
    EXPECT_TRUE(memory.settings.areSettingsDamaged());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    delegate.hide();
    delegate.launch();
    ASSERT_TRUE(question());
    question()->buttons().first()->click();
    EXPECT_FALSE(memory.settings.areSettingsDamaged());
    EXPECT_TRUE(footer->isHidden());
    delegate.openPreferences();
    EXPECT_FALSE(question());
}

TEST_F(AppDelegateTest, openingAFileClipClosesTheHistoryAndRevealingLeavesItOpen)
{
    start();
    memory.workspace.addFile(QStringLiteral("/tmp/a.txt"));
    memory.pasteboard.copyFromOutside(
        {{QStringLiteral("a.txt"), {}, {QStringLiteral("/tmp/a.txt")}}});
    press(VirtualKey::kV);
    application->revealInFinder();
    EXPECT_TRUE(application->window()->isVisible());
    EXPECT_EQ(memory.workspace.selected().size(), 1);
    application->openFile();
    EXPECT_FALSE(application->window()->isVisible());
    EXPECT_EQ(memory.workspace.opened(), QStringList{QStringLiteral("/tmp/a.txt")});
}

TEST_F(AppDelegateTest, aMissingVersionEndsTheStart)
{
    const auto startWithoutVersion = [this] {
        AppDelegate delegate(memory.platform, {QStringLiteral("org.example.Test"), {}, {}},
                             folder.path());
        delegate.applicationDidFinishLaunching();
    };
    EXPECT_DEATH(startWithoutVersion(), "CFBundleVersion");
}

} // namespace
