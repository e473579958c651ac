#include "Clipboard/AppDelegate.h"

#include "Clipboard/StatusMenu.h"
#include "Clipboard/preferences/DamagedSettingsQuestion.h"
#include "Clipboard/preferences/PreferencesGeneralViewController.h"
#include "Clipboard/settings/SettingsKeys.h"
#include "Clipboard/window/ClipTableView.h"
#include "Clipboard/window/ClipboardWindow.h"
#include "Clipboard/window/ViewController.h"
#include "history/ClipContext.h"
#include "history/ClipItem.h"
#include "hotkey/HotKeyCenter.h"
#include "hotkey/HotKeyTextField.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/memory/MemoryPlatform.h"
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
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

namespace {

constexpr quint32 kCommandShift = CarbonModifiers::kCommand | CarbonModifiers::kShift;

Info info()
{
    return {QStringLiteral("org.example.Test"), QStringLiteral("7.8"), QStringLiteral("7.8")};
}

class AppDelegateTest : public testing::Test
{
protected:
    AppDelegateTest()
    {
        m_platform.frontApplication.setApplicationName(QStringLiteral("Editor"));
        m_platform.settings.setValue(SettingsKeys::kWelcomeWindowShown, true);
    }

    AppDelegate &start()
    {
        m_delegate = std::make_unique<AppDelegate>(m_platform.platform, info(), m_folder.path());
        m_delegate->applicationDidFinishLaunching();
        return *m_delegate;
    }

    void copy(const QString &text)
    {
        PasteboardContents contents;
        contents.text = text;
        contents.applicationName = QStringLiteral("Editor");
        m_platform.pasteboard.copyFromOutside(contents);
    }

    QStringList clips() const
    {
        QStringList texts;
        for (const auto &item : m_delegate->getClipItemArr())
            texts.append(item->strValue().value_or(QString()));
        return texts;
    }

    void press(quint32 keyCode)
    {
        m_platform.hotKeys.press(keyCode, kCommandShift);
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

    QTemporaryDir m_folder;
    MemoryPlatform m_platform;
    std::unique_ptr<AppDelegate> m_delegate;
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
    const MenuModel withKeys = m_delegate->statusMenu().model();
    ASSERT_EQ(withKeys.size(), 1U);
    EXPECT_EQ(withKeys[0].keyEquivalent, QStringLiteral("Command-q"));
    EXPECT_EQ(m_platform.statusBar.menu(), &menu);
}

TEST_F(AppDelegateTest, startUpTellsItsStepsInOrderOnlyWhileTraceIsOn)
{
    start();
    EXPECT_FALSE(ExpectedWarnings::messages().contains(QStringLiteral("initStatusBar complete")));
    m_delegate = std::make_unique<AppDelegate>(m_platform.platform, info(), m_folder.path());
    m_delegate->setTrace(true);
    m_delegate->applicationDidFinishLaunching();
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
    const QString store = m_folder.path() + QStringLiteral("/Quillmarsh.sqlite");
    const AppDelegate delegate(m_platform.platform, info(), m_folder.path());
    EXPECT_FALSE(QFileInfo::exists(store));
    EXPECT_EQ(&delegate.persistentStoreCoordinator(), &delegate.managedObjectContext().store());
    EXPECT_TRUE(QFileInfo::exists(store));
    EXPECT_EQ(delegate.applicationDocumentsDirectory().toLocalFile(),
              QFileInfo(m_folder.path()).absolutePath());
    EXPECT_EQ(delegate.managedObjectModel().entityName(), QStringLiteral("ClipItem"));
}

TEST_F(AppDelegateTest, onAFreshAccountBothShortcutsWorkBeforeAnyWindowWasOpened)
{
    start();
    EXPECT_EQ(m_platform.hotKeys.idsOf(VirtualKey::kV, kCommandShift).size(), 1U);
    EXPECT_EQ(m_platform.hotKeys.idsOf(VirtualKey::kX, kCommandShift).size(), 1U);
    press(VirtualKey::kV);
    EXPECT_TRUE(m_delegate->window()->isVisible());
}

TEST_F(AppDelegateTest, aKeyWhoseCapitalIsSeveralLettersIsNotTakenByTheMenu)
{
    m_platform.keyboardLayout.setName(VirtualKey::kMinus, QStringLiteral("ß"));
    start();
    EXPECT_FALSE(MASShortcutValidator::sharedValidator().isShortcutAlreadyTakenBySystem(
        {VirtualKey::kMinus, ModifierFlags::kCommand}));
}

TEST_F(AppDelegateTest, theDesktopsListIsReadAtTheStart)
{
    QSignalSpy readings(&m_platform.symbolicHotKeys, &SymbolicHotKeys::refreshed);
    start();
    EXPECT_EQ(readings.size(), 1);
}

TEST_F(AppDelegateTest, aCopyThatIsSeenBeforeThePanesAreLoadedIsRecordedOnceTheyAre)
{
    m_delegate = std::make_unique<AppDelegate>(m_platform.platform, info(), m_folder.path());
    copy(QStringLiteral("early"));
    m_delegate->applicationDidFinishLaunching();
    EXPECT_EQ(clips(), QStringList{QStringLiteral("early")});
}

TEST_F(AppDelegateTest, itsOneHotKeyFieldAndTheSharedCenterStandOnThePlatform)
{
    EXPECT_EQ(start().hotKeyField().hotKeys(), &m_platform.hotKeys);
    int runs = 0;
    const auto hotKey = HotKeyCenter::sharedHotKeyCenter()->registerHotKeyWithKeyCode(
        VirtualKey::kC, ModifierFlags::kCommand, [&runs](const KeyUpEvent &) { ++runs; });
    m_platform.hotKeys.release(VirtualKey::kC, CarbonModifiers::kCommand);
    EXPECT_EQ(runs, 1);
    HotKeyCenter::sharedHotKeyCenter()->unregisterHotKey(hotKey);
}

TEST_F(AppDelegateTest, theOpenShortcutStepsDownWhileTheHistoryIsOpen)
{
    start();
    copy(QStringLiteral("one"));
    copy(QStringLiteral("two"));
    press(VirtualKey::kV);
    EXPECT_EQ(m_delegate->getSelectedItem()->strValue(), QStringLiteral("two"));
    press(VirtualKey::kV);
    EXPECT_EQ(m_delegate->getSelectedItem()->strValue(), QStringLiteral("one"));
}

TEST_F(AppDelegateTest, aChosenClipIsPastedIntoTheApplicationThatWasInFront)
{
    start();
    copy(QStringLiteral("first"));
    copy(QStringLiteral("second"));
    press(VirtualKey::kV);
    m_delegate->viewController()->next();
    m_delegate->viewController()->paste();
    EXPECT_FALSE(m_delegate->window()->isVisible());
    EXPECT_EQ(m_platform.pasteboard.contents()->text, QStringLiteral("first"));
    EXPECT_EQ(m_platform.keySender.sent(), QList<quint32>{VirtualKey::kV});
    press(VirtualKey::kV);
    EXPECT_EQ(m_delegate->getSelectedItem()->strValue(), QStringLiteral("first"))
        << "the newest clip, before the next step of the timer";
}

TEST_F(AppDelegateTest, swopLeavesTheReplacedSelectionNewestAndOnThePasteboard)
{
    start();
    copy(QStringLiteral("clip"));
    m_platform.keySender.setReaction([this](quint32 key) {
        if (key == VirtualKey::kC)
            copy(QStringLiteral("selection"));
    });
    press(VirtualKey::kX);
    EXPECT_EQ(clips(), QStringList{QStringLiteral("clip")});
    m_delegate->viewController()->paste();
    EXPECT_EQ(clips(), (QStringList{QStringLiteral("selection"), QStringLiteral("clip")}));
    EXPECT_EQ(m_platform.pasteboard.contents()->text, QStringLiteral("selection"));
}

TEST_F(AppDelegateTest, whatWasPastedCopiedOrHeldRightBeforeTheEndIsInTheHistory)
{
    start();
    for (const char *text : {"a", "b", "c"})
        copy(QString::fromLatin1(text));
    m_delegate->performPaste(2, {});
    m_delegate->applicationWillTerminate();
    start();
    EXPECT_EQ(clips(),
              (QStringList{QStringLiteral("a"), QStringLiteral("c"), QStringLiteral("b")}));

    m_platform.keySender.setReaction([this](quint32) { copy(QStringLiteral("selection")); });
    press(VirtualKey::kX);
    m_delegate->applicationWillTerminate();
    EXPECT_EQ(clips().first(), QStringLiteral("selection"));
}

TEST_F(AppDelegateTest, aChangedSizeLimitReachesThePasteboardAtOnce)
{
    start();
    m_delegate->generalPane().maxStringSizeTextField->setText(QStringLiteral("123"));
    EXPECT_EQ(m_platform.pasteboard.largestUsefulText(), 123);
}

TEST_F(AppDelegateTest, aSwopClosedWithoutAChoiceKeepsTheSelectionAndGoesOnRecording)
{
    start();
    copy(QStringLiteral("clip"));
    m_platform.keySender.setReaction([this](quint32 key) {
        if (key == VirtualKey::kC)
            copy(QStringLiteral("selection"));
    });
    press(VirtualKey::kX);
    QTest::keyClick(m_delegate->window(), Qt::Key_Escape);
    EXPECT_FALSE(m_delegate->window()->isVisible());
    copy(QStringLiteral("later"));
    EXPECT_EQ(clips(), (QStringList{QStringLiteral("later"), QStringLiteral("selection"),
                                    QStringLiteral("clip")}));
}

TEST_F(AppDelegateTest, aSwopEndedByReturnWhereNothingMatchesKeepsTheSelection)
{
    AppDelegate &delegate = start();
    copy(QStringLiteral("clip"));
    m_platform.keySender.setReaction([&](quint32 key) {
        if (key == VirtualKey::kC)
            copy(QStringLiteral("selection"));
    });
    press(VirtualKey::kX);
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
    m_platform.keySender.setReaction([&](quint32) {
        EXPECT_FALSE(preferences->isVisible());
        EXPECT_EQ(own.isVisible(), m_platform.frontApplication.ownTarget() != nullptr);
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
        EXPECT_EQ(m_platform.frontApplication.ownTarget(),
                  isOverField ? own.windowHandle() : nullptr);
        m_delegate->viewController()->paste();
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
    m_delegate->viewController()->next();
    copy(QStringLiteral("newest"));
    EXPECT_EQ(m_delegate->getSelectedItem()->strValue(), QStringLiteral("old"));
    EXPECT_EQ(m_delegate->viewController()->clipTableView()->selectedIdx(), 2);
}

TEST_F(AppDelegateTest, theHistoryOutlivesTheApplication)
{
    start();
    copy(QStringLiteral("kept"));
    m_delegate.reset();
    start();
    EXPECT_EQ(clips(), QStringList{QStringLiteral("kept")});
}

TEST_F(AppDelegateTest, nothingIsRecordedUntilDamagedSettingsAreSettled)
{
    m_platform.settings.setDamaged(true);
    start();
    copy(QStringLiteral("maybe a secret"));
    EXPECT_TRUE(clips().isEmpty());
    m_platform.settings.acceptFreshSettings();
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
    m_platform.pasteboard.copyFromOutside(picture);
    delegate.launch();
    EXPECT_TRUE(footer->isHidden());
    delegate.performPaste(0, std::nullopt);
    delegate.launch();
    EXPECT_EQ(footer->text(), QStringLiteral("The copied picture is replaced"));
    delegate.viewController()->hide();

    m_platform.notifications.click();
    const auto *preferences = window<CCNPreferencesWindow>();
    ASSERT_TRUE(preferences);
    EXPECT_TRUE(preferences->isVisible());
    EXPECT_EQ(preferences->focusWidget(), &limit);
    EXPECT_EQ(limit.selectedText(), QStringLiteral("10000"));

    // Of this one the size is not known.
    PasteboardContents contents;
    contents.isTextTooLarge = true;
    m_platform.pasteboard.copyFromOutside(contents);
    delegate.launch();
    EXPECT_EQ(footer->text(),
              QStringLiteral("A copy was not recorded; it is larger than the limit of 10,000 "
                             "bytes"));
}

TEST_F(AppDelegateTest, theQuestionAboutDamagedSettingsIsAskedAgainUntilItIsAnswered)
{
    m_platform.settings.setDamaged(true);
    m_platform.settings.setValue(SettingsKeys::kWelcomeWindowShown, {});
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
    EXPECT_TRUE(m_platform.settings.areSettingsDamaged());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    delegate.hide();
    delegate.launch();
    ASSERT_TRUE(question());
    question()->buttons().first()->click();
    EXPECT_FALSE(m_platform.settings.areSettingsDamaged());
    EXPECT_TRUE(footer->isHidden());
    delegate.openPreferences();
    EXPECT_FALSE(question());
}

TEST_F(AppDelegateTest, openingAFileClipClosesTheHistoryAndRevealingLeavesItOpen)
{
    start();
    m_platform.workspace.addFile(QStringLiteral("/tmp/a.txt"));
    PasteboardContents file;
    file.text = QStringLiteral("a.txt");
    file.fileNames = {QStringLiteral("/tmp/a.txt")};
    m_platform.pasteboard.copyFromOutside(file);
    press(VirtualKey::kV);
    m_delegate->revealInFinder();
    EXPECT_TRUE(m_delegate->window()->isVisible());
    EXPECT_EQ(m_platform.workspace.selected().size(), 1);
    m_delegate->openFile();
    EXPECT_FALSE(m_delegate->window()->isVisible());
    EXPECT_EQ(m_platform.workspace.opened(), QStringList{QStringLiteral("/tmp/a.txt")});
}

TEST_F(AppDelegateTest, aMissingVersionEndsTheStart)
{
    const auto startWithoutVersion = [this] {
        AppDelegate delegate(m_platform.platform, {QStringLiteral("org.example.Test"), {}, {}},
                             m_folder.path());
        delegate.applicationDidFinishLaunching();
    };
    EXPECT_DEATH(startWithoutVersion(), "CFBundleVersion");
}

} // namespace
