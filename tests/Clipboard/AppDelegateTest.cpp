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
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <functional>

namespace {

using namespace Qt::StringLiterals;

constexpr quint32 kCommandShift = CarbonModifiers::kCommand | CarbonModifiers::kShift;

class AppDelegateTest : public ApplicationRig
{
protected:
    AppDelegateTest() { memory.frontApplication.setApplicationName(u"Editor"_s); }

    /// Presses the swop shortcut in an application in which `selection` is selected.
    void swopSelection()
    {
        memory.keySender.setReaction([this](quint32 key) {
            if (key == VirtualKey::kC)
                copy(u"selection"_s);
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
        titles.append(item->isSeparator() ? u"-"_s : item->text());
    EXPECT_EQ(titles.join(u'|'), u"Quillmarsh v7.8|Check For Updates...|"
                                 "Preferences...|-|Launch...|-|Clear All|-|Help...|"
                                 "Send Feedback...|-|Quit"_s);
    EXPECT_FALSE(menu.actions().first()->isEnabled());
    const MenuModel withKeys = application->statusMenu().model();
    ASSERT_EQ(withKeys.size(), 1U);
    EXPECT_EQ(withKeys[0].keyEquivalent, u"Command-q"_s);
    EXPECT_EQ(memory.statusBar.menu(), &menu);
}

TEST_F(AppDelegateTest, startUpTellsItsStepsInOrderOnlyWhileTraceIsOn)
{
    start();
    EXPECT_FALSE(ExpectedWarnings::messages().contains(u"initStatusBar complete"_s));
    const qsizetype before = ExpectedWarnings::messages().size();
    application = std::make_unique<AppDelegate>(memory.platform, info(), folder.path());
    application->setTrace(true);
    application->applicationDidFinishLaunching();
    const QStringList steps{
        u"applicationDidFinishLaunching start"_s,
        u"initStatusBar complete"_s,
        u"schedule timer complete"_s,
        u"load clipItems complete"_s,
        u"load story board complete"_s,
        u"Loading Open at Login preference"_s,
        u"Loading launch shortcut preference"_s,
        u"Loading swop shortcut preference"_s,
        u"Loading max items preference"_s,
        u"Loading max string size preference"_s,
        u"Loading notifications preference"_s,
        u"Loading welcomeWindow preference"_s,
        u"load preferences complete"_s,
        u"devmate setup complete"_s,
    };
    QStringList told;
    for (const QString &message : ExpectedWarnings::messages().mid(before)) {
        if (steps.contains(message))
            told.append(message);
    }
    EXPECT_EQ(told, steps);
}

TEST_F(AppDelegateTest, theStoreIsOpenedByItsFirstUseAndNotBefore)
{
    const QString store = folder.path() + u"/Quillmarsh.sqlite"_s;
    const AppDelegate delegate(memory.platform, info(), folder.path());
    EXPECT_FALSE(QFileInfo::exists(store));
    EXPECT_EQ(&delegate.persistentStoreCoordinator(), &delegate.managedObjectContext().store());
    EXPECT_TRUE(QFileInfo::exists(store));
    EXPECT_EQ(delegate.applicationDocumentsDirectory().toLocalFile(),
              QFileInfo(folder.path()).absolutePath());
    EXPECT_EQ(delegate.managedObjectModel().entityName(), u"ClipItem"_s);
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
    memory.keyboardLayout.setName(VirtualKey::kMinus, u"ß"_s);
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
    copy(u"early"_s);
    application->applicationDidFinishLaunching();
    EXPECT_EQ(clips(), QStringList{u"early"_s});
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
    copy(u"one"_s);
    copy(u"two"_s);
    press(VirtualKey::kV);
    EXPECT_EQ(application->getSelectedItem()->strValue(), u"two"_s);
    press(VirtualKey::kV);
    EXPECT_EQ(application->getSelectedItem()->strValue(), u"one"_s);
}

TEST_F(AppDelegateTest, aChosenClipIsPastedIntoTheApplicationThatWasInFront)
{
    start();
    copy(u"first"_s);
    copy(u"second"_s);
    press(VirtualKey::kV);
    application->viewController()->next();
    application->viewController()->paste();
    EXPECT_FALSE(application->window()->isVisible());
    EXPECT_EQ(memory.pasteboard.contents()->text, u"first"_s);
    EXPECT_EQ(memory.keySender.sent(), QList<quint32>{VirtualKey::kV});
    press(VirtualKey::kV);
    EXPECT_EQ(application->getSelectedItem()->strValue(), u"first"_s)
        << "the newest clip, before the next step of the timer";
}

TEST_F(AppDelegateTest, whatWasPastedCopiedOrHeldRightBeforeTheEndIsInTheHistory)
{
    start();
    for (const char *text : {"a", "b", "c"})
        copy(QString::fromLatin1(text));
    application->performPaste(2, {});
    application->applicationWillTerminate();
    start();
    EXPECT_EQ(clips(), (QStringList{u"a"_s, u"c"_s, u"b"_s}));

    swopSelection();
    application->applicationWillTerminate();
    EXPECT_EQ(clips().first(), u"selection"_s);
}

TEST_F(AppDelegateTest, aSwopClosedWithoutAChoiceKeepsTheSelectionAndGoesOnRecording)
{
    start();
    copy(u"clip"_s);
    swopSelection();
    QTest::keyClick(application->window(), Qt::Key_Escape);
    EXPECT_FALSE(application->window()->isVisible());
    copy(u"later"_s);
    EXPECT_EQ(clips(), (QStringList{u"later"_s, u"selection"_s, u"clip"_s}));
}

TEST_F(AppDelegateTest, aSwopEndedByReturnWhereNothingMatchesKeepsTheSelection)
{
    AppDelegate &delegate = start();
    copy(u"clip"_s);
    swopSelection();
    delegate.viewController()->filterDataArray(u"no such clip"_s);
    delegate.viewController()->paste();
    EXPECT_EQ(clips(), (QStringList{u"selection"_s, u"clip"_s}));
    copy(u"recorded again"_s);
    EXPECT_EQ(clips().front(), u"recorded again"_s);
}

TEST_F(AppDelegateTest, ourWindowsMakeWayForAPasteUnlessItGoesIntoAFieldOfOneOfThem)
{
    start().openPreferences();
    copy(u"clip"_s);
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

TEST_F(AppDelegateTest, nothingIsRecordedUntilDamagedSettingsAreSettled)
{
    memory.settings.setDamaged(true);
    start();
    copy(u"maybe a secret"_s);
    EXPECT_TRUE(clips().isEmpty());
    memory.settings.acceptFreshSettings();
    copy(u"after the answer"_s);
    EXPECT_EQ(clips(), QStringList{u"after the answer"_s});
}

struct ConsentRow
{
    Consent::State state;
    Capability::State recording;
    bool saysWhy;
    bool offersToAsk;
};

TEST_F(AppDelegateTest, withoutTheDesktopsConsentItIsSaidWhyNothingIsRecordedAndOneButtonAsks)
{
    using State = Consent::State;
    using Recording = Capability::State;
    memory.consent.setState(State::NotAsked);
    AppDelegate &delegate = start();
    const auto *footer = delegate.window()->findChild<QLabel *>(u"footer"_s);
    auto *button = delegate.window()->findChild<QPushButton *>(u"footerButton"_s);
    const QList<QAction *> menu = delegate.statusMenu().menu()->actions();
    const QString why = u"Nothing is recorded. It was closed."_s;
    int timesAsked = 0;
    for (const ConsentRow &row :
         {ConsentRow{State::NotAsked, Recording::WorksAfter, true, true},
          ConsentRow{State::Asking, Recording::WorksAfter, true, false},
          ConsentRow{State::Given, Recording::Works, false, false},
          ConsentRow{State::Ended, Recording::WorksAfter, true, true},
          ConsentRow{State::Ended, Recording::Works, false, false},
          ConsentRow{State::Unavailable, Recording::Withheld, true, false}}) {
        SCOPED_TRACE(static_cast<int>(row.state));
        memory.platform.capabilities->tell({.kind = Capability::Kind::Recording,
                                            .state = row.recording,
                                            .reason = row.saysWhy ? "It was closed." : nullptr});
        memory.consent.setState(row.state);
        EXPECT_EQ(footer->text(), row.saysWhy ? why : QString());
        EXPECT_EQ(memory.statusBar.toolTip(), row.saysWhy ? why : u"Quillmarsh"_s);
        EXPECT_EQ(menu[1]->isVisible(), row.saysWhy);
        EXPECT_EQ(menu[2]->isVisible(), row.offersToAsk);
        EXPECT_EQ(!button->parentWidget()->isHidden(), row.offersToAsk);
        EXPECT_EQ(memory.consent.timesAsked(), timesAsked);
        button->click();
        EXPECT_EQ(memory.consent.timesAsked(), ++timesAsked);
    }
}

TEST_F(AppDelegateTest, whatBecameOfACopyIsToldOnceAtTheNextOpeningAndAClickLeadsToTheLimit)
{
    AppDelegate &delegate = start();
    const auto *footer = delegate.window()->findChild<QLabel *>(u"footer"_s);
    QLineEdit &limit = *delegate.generalPane().maxStringSizeTextField;
    copy(QString(11'000, u'x'));
    copy(QString(12'345, u'x'));
    EXPECT_TRUE(clips().isEmpty());
    EXPECT_TRUE(footer->isHidden());
    delegate.launch();
    EXPECT_FALSE(footer->isHidden());
    EXPECT_EQ(footer->text(), u"A copy of 12,345 bytes was not recorded; the limit is 10,000"_s);
    delegate.launch();
    EXPECT_FALSE(footer->isHidden());
    delegate.viewController()->hide();
    delegate.launch();
    EXPECT_TRUE(footer->isHidden());
    delegate.viewController()->hide();

    copy(u"older"_s);
    PasteboardContents picture;
    picture.media = PasteboardContents::Media::Picture;
    memory.pasteboard.copyFromOutside(picture);
    delegate.launch();
    EXPECT_TRUE(footer->isHidden());
    delegate.performPaste(0, std::nullopt);
    delegate.launch();
    EXPECT_EQ(footer->text(), u"The copied picture is replaced"_s);
    delegate.viewController()->hide();

    memory.notifications.click();
    const auto *preferences = window<CCNPreferencesWindow>();
    ASSERT_TRUE(preferences);
    EXPECT_TRUE(preferences->isVisible());
    EXPECT_EQ(preferences->focusWidget(), &limit);
    EXPECT_EQ(limit.selectedText(), u"10000"_s);

    // Of this one the size is not known.
    PasteboardContents contents;
    contents.isTextTooLarge = true;
    memory.pasteboard.copyFromOutside(contents);
    delegate.launch();
    EXPECT_EQ(footer->text(), u"A copy was not recorded; it is larger than the limit of 10,000 "
                              "bytes"_s);
}

TEST_F(AppDelegateTest, theQuestionAboutDamagedSettingsIsAskedAgainUntilItIsAnswered)
{
    memory.settings.setDamaged(true);
    memory.settings.setValue(SettingsKeys::kWelcomeWindowShown, {});
    AppDelegate &delegate = start();
    const auto *footer = delegate.window()->findChild<QLabel *>(u"footer"_s);
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
        EXPECT_NE(question()->windowTitle(), u"Quillmarsh"_s);
        EXPECT_TRUE(question()->testAttribute(Qt::WA_ShowWithoutActivating));
        EXPECT_FALSE(footer->isHidden());
        EXPECT_TRUE(footer->text().startsWith(u"Nothing is recorded"_s));
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

TEST_F(AppDelegateTest, aMissingVersionEndsTheStart)
{
    const auto startWithoutVersion = [this] {
        AppDelegate delegate(memory.platform, {u"org.example.Test"_s, {}, {}}, folder.path());
        delegate.applicationDidFinishLaunching();
    };
    EXPECT_DEATH(startWithoutVersion(), "CFBundleVersion");
}

} // namespace
