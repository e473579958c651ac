#include "Clipboard/welcome/WelcomeRig.h"

#include "Clipboard/preferences/PreferencesGeneralViewController.h"
#include "Clipboard/settings/GlobalShortcuts.h"
#include "Clipboard/welcome/KeyCaps.h"
#include "Clipboard/welcome/PageIndicator.h"
#include "Clipboard/welcome/PageSlider.h"
#include "looks/PaneButton.h"
#include "preferenceswindow/CCNPreferencesWindow.h"
#include "preferenceswindow/CCNPreferencesWindowController.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QScopeGuard>
#include <QToolButton>

#include <algorithm>

namespace {

const QString kMessage = QStringLiteral("Quillmarsh setup complete");

TEST_F(WelcomeRig, theFirstPressShowsTheWelcomeAndNotTheHistory)
{
    launchAnd([this] {
        EXPECT_TRUE(welcome.window()->isVisible());
        EXPECT_EQ(welcome.currentPageIdx(), 0);
        EXPECT_FALSE(welcome.isWindowOpen());
        EXPECT_FALSE(welcome.view()->previousButton->isVisible());
        EXPECT_FALSE(welcome.view()->cmdShiftVLabel->isVisible());
    });
    EXPECT_FALSE(delegate.window()->isVisible());
    EXPECT_FALSE(memory.settings.contains(SettingsKeys::kWelcomeWindowShown));
}

TEST_F(WelcomeRig, theLastPageRecordsTheWelcomeAndEndsTheSessionButStays)
{
    complete();
    EXPECT_EQ(memory.settings.value(SettingsKeys::kWelcomeWindowShown), true);
    EXPECT_TRUE(welcome.window()->isVisible());
    EXPECT_TRUE(welcome.isWindowOpen());
    EXPECT_TRUE(welcome.view()->cmdShiftVLabel->isVisible());
    EXPECT_FALSE(welcome.view()->nextButton->isVisible());
    EXPECT_EQ(memory.pasteboard.contents()->text, kMessage);

    delegate.launch();
    EXPECT_FALSE(welcome.window()->isVisible());
    EXPECT_TRUE(delegate.window()->isVisible());
}

TEST_F(WelcomeRig, theMessageComesOnlyTheFirstTime)
{
    complete();
    copy(QStringLiteral("later"));
    welcome.previousClicked();
    welcome.nextClicked();
    QTimer::singleShot(0, &welcome, [this] {
        EXPECT_EQ(welcome.currentPageIdx(), 0);
        EXPECT_TRUE(welcome.view()->nextButton->isVisible());
        for (int page = 0; page < 3; ++page)
            welcome.nextClicked();
    });
    delegate.showWelcomeWindow(true);
    EXPECT_EQ(clips(), (QStringList{QStringLiteral("later"), kMessage}));
    delegate.showWelcomeWindow(false); // Completed: returns at once.
    EXPECT_EQ(welcome.currentPageIdx(), 3);
}

TEST_F(WelcomeRig, anOfferThatComesLateGetsTheRoomThatItNeeds)
{
    launchAnd([this] {
        const QWidget *page = welcome.welcomePage1ViewController();
        EXPECT_FALSE(welcome.welcomePage1ViewController()->moveIn->isVisible());
        welcome.offerToMoveIn(QStringLiteral("&Bring along"));
        EXPECT_TRUE(welcome.welcomePage1ViewController()->moveIn->isVisible());
        EXPECT_TRUE(QTest::qWaitFor([page] {
            return page->height() >= page->layout()->totalHeightForWidth(page->width());
        }));
    });
}

TEST_F(WelcomeRig, theDesktopIsHadAskOnceItHasBeenExplainedAndOnlyWithConsent)
{
    memory.consent.setState(Consent::State::NotAsked);
    for (const bool isWanted : {false, true}) {
        launchAnd([this, isWanted] {
            const WelcomePage1Controller *page = welcome.welcomePage1ViewController();
            EXPECT_TRUE(page->ask->isVisible());
            EXPECT_TRUE(QTest::qWaitFor([page] {
                return page->height() >= page->layout()->totalHeightForWidth(page->width());
            }));
            EXPECT_EQ(memory.consent.timesAsked(), 0);
            page->ask->setChecked(isWanted);
            welcome.nextClicked();
        });
        EXPECT_EQ(memory.consent.timesAsked(), isWanted ? 1 : 0);
    }
    memory.consent.setState(Consent::State::Given);
    launchAnd([this] { EXPECT_FALSE(welcome.welcomePage1ViewController()->ask->isVisible()); });
}

struct Close
{
    const char *name;
    void (*close)(WelcomeWindowController &);
};

void press(const WelcomeWindowController &welcome, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(welcome.window()->windowHandle(), key, modifiers);
}

const Close kCloses[] = {
    {"button", [](WelcomeWindowController &welcome) { welcome.view()->closeButton->click(); }},
    {"escape", [](WelcomeWindowController &welcome) { press(welcome, Qt::Key_Escape, {}); }},
    {"superW",
     [](WelcomeWindowController &welcome) { press(welcome, Qt::Key_W, Qt::MetaModifier); }},
    {"windowManager", [](WelcomeWindowController &welcome) { welcome.window()->close(); }},
};

class WelcomeClose : public WelcomeRig, public testing::WithParamInterface<Close>
{
};

TEST_P(WelcomeClose, beforeTheLastPageBringsItBackFromTheFirst)
{
    for (int page = 0; page < 3; ++page) {
        launchAnd([&] {
            EXPECT_EQ(welcome.currentPageIdx(), 0);
            EXPECT_EQ(welcome.window()->isVisible(), true);
            for (int step = 0; step < page; ++step)
                welcome.nextClicked();
            GetParam().close(welcome);
            EXPECT_FALSE(welcome.isModal()) << page;
            EXPECT_FALSE(welcome.window()->isVisible()) << page;
        });
        // The end of the session counts as open, even though its window was closed.
        EXPECT_TRUE(welcome.isWindowOpen());
        EXPECT_FALSE(memory.settings.contains(SettingsKeys::kWelcomeWindowShown));
    }
}

TEST_P(WelcomeClose, onTheLastPageLeavesItCompleted)
{
    complete();
    GetParam().close(welcome);
    EXPECT_FALSE(welcome.window()->isVisible());
    EXPECT_FALSE(welcome.isWindowOpen());
    delegate.launch();
    EXPECT_TRUE(delegate.window()->isVisible());
}

INSTANTIATE_TEST_SUITE_P(By, WelcomeClose, testing::ValuesIn(kCloses),
                         [](const auto &row) { return row.param.name; });

TEST_F(WelcomeRig, theShortcutDuringTheSessionKeepsThePageAndStartsNoSecondSession)
{
    launchAnd([this] {
        welcome.nextClicked();
        welcome.window()->showMinimized();
        EXPECT_TRUE(delegate.handleWelcomeWindow());
        EXPECT_FALSE(welcome.window()->isMinimized());
        EXPECT_EQ(welcome.currentPageIdx(), 1);
        EXPECT_TRUE(welcome.isModal());
        welcome.closeWindow();
    });
    EXPECT_FALSE(welcome.isModal());
    EXPECT_FALSE(delegate.window()->isVisible());
}

TEST_F(WelcomeRig, noOtherWindowOpensOrTakesInputDuringTheSession)
{
    QLineEdit other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    launchAnd([&] {
        QTest::keyClick(other.windowHandle(), Qt::Key_A);
        EXPECT_EQ(other.text(), QString());
        delegate.swop();
        EXPECT_FALSE(delegate.window()->isVisible());
        delegate.openPreferences();
        EXPECT_FALSE(delegate.preferences()->window()->isVisible());
        QTest::keyClick(welcome.window()->windowHandle(), Qt::Key_Right);
        EXPECT_EQ(welcome.currentPageIdx(), 1);
    });
    QTest::keyClick(other.windowHandle(), Qt::Key_A);
    EXPECT_EQ(other.text(), QStringLiteral("a"));
}

TEST_F(WelcomeRig, whatIsWishedForDuringTheSessionComesOnceWhenTheWelcomeIsClosed)
{
    const CCNPreferencesWindow *preferences = delegate.preferences()->window();
    launchAnd([&] {
        delegate.openPreferences();
        delegate.openPreferences();
        for (int page = 0; page < 3; ++page)
            welcome.nextClicked();
    });
    QCoreApplication::processEvents();
    EXPECT_FALSE(preferences->isVisible());
    welcome.closeWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return preferences->isVisible(); }));
    delegate.preferences()->dismissPreferencesWindow();
    QCoreApplication::processEvents();
    EXPECT_FALSE(preferences->isVisible());
}

TEST_F(WelcomeRig, theShortcutEndsAWelcomeThatIsShownAgain)
{
    delegate.generalPane().setWelcomeWindowShown(true);
    QTimer::singleShot(0, &welcome, [this] {
        EXPECT_TRUE(welcome.isModal());
        delegate.launch();
        EXPECT_FALSE(welcome.window()->isVisible());
        EXPECT_TRUE(delegate.window()->isVisible());
    });
    delegate.showWelcomeWindow(true);
    EXPECT_FALSE(welcome.isModal());
    EXPECT_TRUE(delegate.window()->isVisible());
}

TEST_F(WelcomeRig, itsPagesSayOfAShortcutThatIsTurnedOffThatItIs)
{
    const auto shown = [this] {
        QStringList keys;
        launchAnd([&] {
            for (int page = 1; page < 3; ++page) {
                welcome.nextClicked();
                keys.append(
                    welcome.view()->mainContentView->page()->findChild<KeyCaps *>()->text());
            }
        });
        return keys;
    };
    EXPECT_EQ(shown(), (QStringList{QStringLiteral("Super + Shift + V"),
                                    QStringLiteral("Super + Shift + X")}));
    memory.settings.setValue(SettingsKeys::kOpenShortCut, QByteArray());
    memory.settings.setValue(SettingsKeys::kSwopShortCut, QByteArray());
    EXPECT_EQ(shown(),
              (QStringList{QStringLiteral("(turned off)"), QStringLiteral("(turned off)")}));
}

TEST_F(WelcomeRig, eachLeavingOfTheFirstPageAppliesTheLoginBox)
{
    const QString us = memory.loginItems.applicationPath().value();
    launchAnd([&] {
        QCheckBox *box = welcome.welcomePage1ViewController()->openAtLogin;
        EXPECT_TRUE(box->isChecked());
        EXPECT_TRUE(memory.loginItems.programs().isEmpty());
        welcome.nextClicked();
        EXPECT_EQ(memory.loginItems.programs(), QStringList{us});
        welcome.previousClicked();
        box->setChecked(false);
        EXPECT_EQ(memory.loginItems.programs(), QStringList{us});
        welcome.nextClicked();
        EXPECT_TRUE(memory.loginItems.programs().isEmpty());
        EXPECT_EQ(memory.settings.value(SettingsKeys::kOpenAtLogin), false);
    });
    launchAnd(
        [&] { EXPECT_FALSE(welcome.welcomePage1ViewController()->openAtLogin->isChecked()); });
}

TEST_F(WelcomeRig, goingBackFromTheLastPageShowsNextAgainAndHidesTheShortcut)
{
    complete();
    welcome.previousClicked();
    EXPECT_TRUE(welcome.view()->nextButton->isVisible());
    EXPECT_FALSE(welcome.view()->doneButton->isVisible());
    EXPECT_FALSE(welcome.view()->cmdShiftVLabel->isVisible());
    welcome.previousClicked();
    welcome.previousClicked();
    EXPECT_FALSE(welcome.view()->previousButton->isVisible());
    welcome.previousClicked();
    QList<bool> states;
    for (const PageIndicator *indicator : welcome.view()->pageIndicators)
        states.append(indicator->isChecked());
    EXPECT_EQ(states, (QList<bool>{true, false, false, false}));
}

TEST_F(WelcomeRig, theKeyboardLeadsThroughAllPages)
{
    launchAnd([this] {
        const QList<std::pair<Qt::Key, int>> steps{
            {Qt::Key_Left, 0},  {Qt::Key_Right, 1}, {Qt::Key_Return, 2},
            {Qt::Key_Left, 1},  {Qt::Key_Left, 0},  {Qt::Key_Enter, 1},
            {Qt::Key_Right, 2}, {Qt::Key_Right, 3}, {Qt::Key_Right, 3}};
        for (const auto &[key, page] : steps) {
            press(key);
            EXPECT_EQ(welcome.currentPageIdx(), page);
        }
        press(Qt::Key_Return);
        EXPECT_FALSE(welcome.window()->isVisible());
    });
}

TEST_F(WelcomeRig, whereOneReadsFromTheRightTheArrowsGoTheOtherWay)
{
    const auto wayBack = qScopeGuard([] { QApplication::setLayoutDirection(Qt::LeftToRight); });
    for (const bool isRightToLeft : {false, true}) {
        SCOPED_TRACE(isRightToLeft);
        QApplication::setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
        launchAnd([&] {
            press(isRightToLeft ? Qt::Key_Left : Qt::Key_Right);
            EXPECT_EQ(welcome.currentPageIdx(), 1);
            press(isRightToLeft ? Qt::Key_Right : Qt::Key_Left);
            EXPECT_EQ(welcome.currentPageIdx(), 0);
        });
    }
}

TEST(PageSliderDirection, thePageSlidesInFromWhereItLies)
{
    constexpr int kWidth = 200;
    for (const bool isRightToLeft : {false, true}) {
        SCOPED_TRACE(isRightToLeft);
        PageSlider slider;
        slider.setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
        slider.resize(kWidth, 100);
        auto *first = new QWidget;
        auto *second = new QWidget;
        for (QWidget *page : {first, second})
            slider.addPage(page);
        slider.setPage(first, PageSlider::Movement::None);
        slider.show();
        // No event is handled in between, so nothing has moved yet.
        slider.setPage(second, PageSlider::Movement::Forward);
        EXPECT_EQ(second->x(), isRightToLeft ? -kWidth : kWidth);
        slider.setPage(first, PageSlider::Movement::Back);
        EXPECT_EQ(first->x(), isRightToLeft ? kWidth : -kWidth);
    }
}

TEST_F(WelcomeRig, theFocusedPreviousButtonTakesReturnForItself)
{
    launchAnd([this] {
        welcome.nextClicked();
        welcome.nextClicked();
        welcome.view()->previousButton->setFocus();
        press(Qt::Key_Return);
        press(Qt::Key_Return);
        EXPECT_EQ(welcome.currentPageIdx(), 0);
        EXPECT_TRUE(welcome.view()->nextButton->hasFocus());
    });
}

TEST_F(WelcomeRig, theLabelNamesTheDefaultShortcutAndBesideItTheUsersOwn)
{
    const QString usual = QStringLiteral("⇧⌘V (Super + Shift + V)");
    const QString own = QStringLiteral("⌃⌥H (Ctrl + Alt + H)");
    const auto label = [this] {
        complete();
        memory.settings.setValue(SettingsKeys::kWelcomeWindowShown, false);
        delegate.generalPane().setWelcomeWindowShown(false);
        return welcome.view()->cmdShiftVLabel->text();
    };
    const auto warnings = [this] {
        const auto labels = welcome.view()->findChildren<QLabel *>();
        return std::count_if(labels.begin(), labels.end(), [](const QLabel *one) {
            return !one->isHidden() &&
                   one->text().startsWith(QStringLiteral("This desktop lets no program"));
        });
    };
    EXPECT_TRUE(label().contains(usual));
    EXPECT_EQ(warnings(), 0);
    memory.hotKeys.setControl(HotKeys::Control::Nobody);
    EXPECT_TRUE(label().startsWith(QStringLiteral("This desktop lets no program")));
    EXPECT_EQ(warnings(), 3) << "the pages with keys, and the last";
    memory.hotKeys.setControl(HotKeys::Control::Ours);
    memory.settings.setValue(
        SettingsKeys::kOpenShortCut,
        MASShortcut(VirtualKey::kH, ModifierFlags::kControl | ModifierFlags::kOption).archive());
    EXPECT_TRUE(label().contains(usual));
    EXPECT_TRUE(label().contains(own));
    memory.settings.setValue(SettingsKeys::kOpenShortCut, QByteArray());
    EXPECT_TRUE(label().contains(usual));
    EXPECT_FALSE(label().contains(own));
}

TEST_F(WelcomeRig, thePageSlidesInUnlessTheDesktopWantsNothingToMove)
{
    launchAnd([this] {
        const PageSlider *slider = welcome.view()->mainContentView;
        welcome.nextClicked();
        EXPECT_EQ(slider->page()->x(), slider->width());
        EXPECT_TRUE(QTest::qWaitFor([&] { return slider->page()->x() == 0; }));
        memory.windowSpace.setAnimationsEnabled(false);
        welcome.previousClicked();
        EXPECT_EQ(slider->page()->x(), 0);
        EXPECT_TRUE(slider->page()->isVisible());
    });
}

TEST_F(WelcomeRig, itsControlsHaveTheirNames)
{
    complete();
    EXPECT_EQ(welcome.window()->windowTitle(), QStringLiteral("Welcome to Quillmarsh"));
    const WelcomeWindowView *view = welcome.view();
    EXPECT_EQ(view->previousButton->accessibleName(), QStringLiteral("Previous"));
    EXPECT_EQ(view->nextButton->accessibleName(), QStringLiteral("Next"));
    const WelcomePage1Controller *page = welcome.welcomePage1ViewController();
    EXPECT_EQ(page->openAtLogin->accessibleName(), QStringLiteral("Open at login"));
    EXPECT_EQ(page->checkForUpdates->accessibleName(), QStringLiteral("Check for updates"));
}

} // namespace
