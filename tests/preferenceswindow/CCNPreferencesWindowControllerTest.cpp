#include "preferenceswindow/CCNPreferencesWindowController.h"

#include "platform/memory/MemoryPlatform.h"
#include "preferenceswindow/CCNPreferencesWindow.h"
#include "preferenceswindow/CCNSegmentedControl.h"
#include "preferenceswindow/FakePane.h"

#include <QAbstractButton>
#include <QFontMetricsF>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr QSize kTall(500, 400);
constexpr QSize kShort(300, 200);

class PreferencesController : public testing::Test
{
protected:
    void showPanes()
    {
        controller.setPreferencesViewControllers({&tall, &low});
        controller.showPreferencesWindow();
    }

    CCNPreferencesWindow &window() { return *controller.window(); }
    QSize contentSize() { return window().contentSizeOf(window().geometry()); }
    bool waitForPane(FakePane &pane)
    {
        return QTest::qWaitFor([&] { return controller.activeViewController() == &pane; });
    }
    QAction *item(const FakePane &pane)
    {
        return controller.toolbar()->findChild<QAction *>(pane.preferenceIdentifier());
    }

    MemoryPlatform memory;
    FakePane tall{QStringLiteral("tall"), QStringLiteral("Tall"), kTall};
    FakePane low{QStringLiteral("low"), QStringLiteral("Low"), kShort};
    CCNPreferencesWindowController controller{memory.settings, memory.windowSpace,
                                              memory.frontApplication};
};

TEST_F(PreferencesController, theWindowFitsThePaneItShows)
{
    showPanes();
    EXPECT_EQ(controller.activeViewController(), &tall);
    EXPECT_EQ(contentSize(), kTall);
    EXPECT_EQ(tall.view()->size(), kTall);
    EXPECT_TRUE(tall.view()->isVisible());
    EXPECT_EQ(memory.frontApplication.activatedWindow(), window().windowHandle());
}

TEST_F(PreferencesController, aSwitchKeepsTheTopEdgeAndTheMiddle)
{
    showPanes();
    const QRect before = window().geometry();
    controller.toolbarItemAction(QStringLiteral("low"));
    ASSERT_TRUE(waitForPane(low));
    const QRect after = window().geometry();
    EXPECT_EQ(after.top(), before.top());
    EXPECT_EQ(after.left() + after.width() / 2, before.left() + before.width() / 2);
    EXPECT_EQ(contentSize(), kShort);
    EXPECT_FALSE(tall.view()->isVisible());
}

TEST_F(PreferencesController, itemsThatAreNotCentredKeepTheLeftEdge)
{
    controller.setCenterToolbarItems(false);
    showPanes();
    const QPoint before = window().geometry().topLeft();
    controller.toolbarItemAction(QStringLiteral("low"));
    ASSERT_TRUE(waitForPane(low));
    EXPECT_EQ(window().geometry().topLeft(), before);
}

TEST_F(PreferencesController, thePaneIsActiveOnlyWhenItsAnimationHasEnded)
{
    showPanes();
    controller.toolbarItemAction(QStringLiteral("low"));
    EXPECT_EQ(controller.activeViewController(), &tall);
    EXPECT_TRUE(low.view()->isVisible());
    EXPECT_TRUE(waitForPane(low));
    memory.windowSpace.setAnimationsEnabled(false);
    controller.toolbarItemAction(QStringLiteral("tall"));
    EXPECT_EQ(controller.activeViewController(), &tall);
}

TEST_F(PreferencesController, choosingTheLeavingPaneTurnsBack)
{
    showPanes();
    controller.toolbarItemAction(QStringLiteral("low"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return contentSize().height() < kTall.height(); }));
    controller.toolbarItemAction(QStringLiteral("tall"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return contentSize() == kTall; }));
    EXPECT_EQ(controller.activeViewController(), &tall);
    EXPECT_TRUE(tall.view()->isVisible());
}

TEST_F(PreferencesController, choosingTheActivePaneChangesNothing)
{
    showPanes();
    const QRect frame = window().geometry();
    const QImage picture = window().grab().toImage();
    controller.toolbarItemAction(QStringLiteral("tall"));
    // A switch would begin with an invisible pane.
    EXPECT_EQ(window().grab().toImage(), picture);
    EXPECT_EQ(window().geometry(), frame);
    controller.toolbarItemAction(QStringLiteral("low"));
    EXPECT_NE(window().grab().toImage(), picture);
}

TEST_F(PreferencesController, closingTheWindowEndsAnAnimationAtItsGoal)
{
    showPanes();
    controller.toolbarItemAction(QStringLiteral("low"));
    controller.dismissPreferencesWindow();
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(controller.activeViewController(), &low);
    EXPECT_EQ(contentSize(), kShort);
}

TEST_F(PreferencesController, showingBeginsWithTheFirstPaneAgain)
{
    showPanes();
    item(low)->trigger();
    ASSERT_TRUE(waitForPane(low));
    controller.dismissPreferencesWindow();
    controller.showPreferencesWindow();
    EXPECT_EQ(controller.activeViewController(), &tall);
    EXPECT_TRUE(item(tall)->isChecked());
    EXPECT_FALSE(item(low)->isChecked());
}

TEST_F(PreferencesController, escapeHidesTheWindowAndOtherKeysDoNot)
{
    showPanes();
    QTest::keyClick(&window(), Qt::Key_Return);
    EXPECT_TRUE(window().isVisible());
    QTest::keyClick(&window(), Qt::Key_Escape);
    EXPECT_FALSE(window().isVisible());
    EXPECT_EQ(controller.activeViewController(), &tall);
}

TEST_F(PreferencesController, theTitleIsThePanesUnlessThereAreSegments)
{
    showPanes();
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Tall"));
    controller.setShowToolbarItemsAsSegmentedControl(true);
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Preferences"));
    controller.segmentedControlAction(1);
    EXPECT_EQ(window().windowTitle(), QStringLiteral("Preferences"));
}

TEST_F(PreferencesController, segmentsAreAsWideAsTheWidestTitleNeeds)
{
    controller.setShowToolbarItemsAsSegmentedControl(true);
    FakePane wide(QStringLiteral("wide"), QStringLiteral("A rather long title"), kShort);
    controller.setPreferencesViewControllers({&low, &wide});
    const CCNSegmentedControl &segments = *controller.segmentedControl();
    const QFontMetricsF metrics(segments.font());
    const int width =
        static_cast<int>(std::ceil(metrics.horizontalAdvance(wide.preferenceTitle()))) + 36;
    EXPECT_EQ(segments.segmentWidth(), width);
    EXPECT_EQ(segments.size(),
              QSize(2 * width + 3, static_cast<int>(std::ceil(metrics.height())) + 12));
    EXPECT_EQ(segments.label(1), wide.preferenceTitle());
}

TEST_F(PreferencesController, segmentsWithoutTitlesKeepTheLeastWidthAndNoHeight)
{
    const CCNSegmentedControl segments({QString(), QString()});
    EXPECT_EQ(segments.size(), QSize(2 * 42 + 3, 0));
}

TEST_F(PreferencesController, aClickedSegmentBringsItsPane)
{
    controller.setShowToolbarItemsAsSegmentedControl(true);
    showPanes();
    EXPECT_EQ(controller.segmentedControl()->selectedSegment(), 0);
    const auto segments = controller.segmentedControl()->findChildren<QAbstractButton *>();
    QTest::mouseClick(segments.at(1), Qt::LeftButton);
    ASSERT_TRUE(waitForPane(low));
    EXPECT_EQ(controller.segmentedControl()->selectedSegment(), 1);
}

TEST_F(PreferencesController, segmentsCentreTheItems)
{
    controller.setCenterToolbarItems(false);
    controller.setShowToolbarItemsAsSegmentedControl(true);
    EXPECT_TRUE(controller.centerToolbarItems());
}

TEST_F(PreferencesController, panesAreFoundByTheirIdentifiers)
{
    FakePane namesake(QStringLiteral("tall"), QStringLiteral("Other"), kShort);
    controller.setPreferencesViewControllers({&tall, &low, &namesake});
    EXPECT_EQ(controller.viewControllerWithIdentifier(QStringLiteral("tall")), &tall);
    EXPECT_EQ(controller.viewControllerWithIdentifier(QStringLiteral("absent")), nullptr);
}

TEST(PreferencesPanes, outliveTheWindowThatShowsThem)
{
    MemoryPlatform memory;
    FakePane pane(QStringLiteral("a"), QStringLiteral("A"), kShort);
    {
        CCNPreferencesWindowController controller(memory.settings, memory.windowSpace,
                                                  memory.frontApplication);
        controller.setPreferencesViewControllers({&pane});
        controller.showPreferencesWindow();
    }
    EXPECT_EQ(pane.view()->parentWidget(), nullptr);
}

struct Items
{
    const char *name;
    bool isSegmented;
    bool isCentred;
    int panes;
    QStringList expected;
};

using ToolbarItems = testing::TestWithParam<Items>;

TEST_P(ToolbarItems, standInTheirOrder)
{
    MemoryPlatform memory;
    FakePane first(QStringLiteral("first"), QStringLiteral("1"), kShort);
    FakePane second(QStringLiteral("second"), QStringLiteral("2"), kShort);
    CCNPreferencesWindowController controller(memory.settings, memory.windowSpace,
                                              memory.frontApplication);
    controller.setShowToolbarItemsAsSegmentedControl(GetParam().isSegmented);
    controller.setCenterToolbarItems(GetParam().isCentred);
    const QList<CCNPreferencesWindowController::Pane *> panes{&first, &second};
    controller.setPreferencesViewControllers(panes.first(GetParam().panes));
    EXPECT_EQ(controller.toolbarDefaultItemIdentifiers(), GetParam().expected);
    QStringList shown;
    for (const QAction *action : controller.toolbar()->actions())
        shown.append(action->objectName());
    EXPECT_EQ(shown, GetParam().expected);
}

const QString kSpace = QStringLiteral("NSToolbarFlexibleSpaceItem");
const QString kSegments = QStringLiteral("CCNPreferencesToolbarSegmentedControl");
const QString kFirst = QStringLiteral("first");
const QString kSecond = QStringLiteral("second");

INSTANTIATE_TEST_SUITE_P(
    Flags, ToolbarItems,
    testing::Values(Items{"noPanes", false, true, 0, {}}, Items{"noSegments", true, true, 0, {}},
                    Items{"centred", false, true, 2, {kSpace, kFirst, kSecond, kSpace}},
                    Items{"notCentred", false, false, 2, {kFirst, kSecond}},
                    Items{"segmented", true, true, 2, {kSpace, kSegments, kSpace}},
                    Items{"segmentedNotCentred", true, false, 2, {kSpace, kSegments, kSpace}}),
    [](const auto &row) { return std::string(row.param.name); });

struct SinglePane
{
    const char *name;
    bool isSegmented;
    bool showsWithSingle;
    int panes;
    bool hasToolbar;
};

using ToolbarOfFewPanes = testing::TestWithParam<SinglePane>;

TEST_P(ToolbarOfFewPanes, isThereOnlyWhenWanted)
{
    MemoryPlatform memory;
    FakePane first(kFirst, QStringLiteral("1"), kShort);
    FakePane second(kSecond, QStringLiteral("2"), kShort);
    CCNPreferencesWindowController controller(memory.settings, memory.windowSpace,
                                              memory.frontApplication);
    controller.setShowToolbarWithSingleViewController(GetParam().showsWithSingle);
    controller.setShowToolbarItemsAsSegmentedControl(GetParam().isSegmented);
    const QList<CCNPreferencesWindowController::Pane *> panes{&first, &second};
    controller.setPreferencesViewControllers(panes.first(GetParam().panes));
    controller.showPreferencesWindow();
    EXPECT_EQ(controller.toolbar() != nullptr, GetParam().hasToolbar);
    const int above = controller.window()->height() - kShort.height();
    EXPECT_EQ(above > 0, GetParam().hasToolbar);
}

INSTANTIATE_TEST_SUITE_P(Flags, ToolbarOfFewPanes,
                         testing::Values(SinglePane{"onePane", false, true, 1, true},
                                         SinglePane{"onePaneWithout", false, false, 1, false},
                                         SinglePane{"oneSegmentWithout", true, false, 1, true},
                                         SinglePane{"twoPanesWithout", false, false, 2, true}),
                         [](const auto &row) { return std::string(row.param.name); });

} // namespace
