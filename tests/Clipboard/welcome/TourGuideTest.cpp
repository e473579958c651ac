#include "Clipboard/welcome/WelcomeRig.h"

#include "Clipboard/preferences/PreferencesGeneralViewController.h"
#include "Clipboard/welcome/TourGuide.h"
#include "Clipboard/welcome/TourPopover.h"
#include "Clipboard/welcome/TourViewController.h"
#include "Clipboard/window/ClipTableView.h"
#include "Clipboard/window/PreviewPane.h"
#include "Clipboard/window/SearchField.h"
#include "Clipboard/window/ViewController.h"

namespace {

class TourGuideTest : public WelcomeRig
{
protected:
    TourGuideTest() : guide(delegate.tourGuide())
    {
        delegate.generalPane().setWelcomeWindowShown(true);
        copy(QStringLiteral("one"));
        copy(QStringLiteral("two"));
        delegate.startTour();
        EXPECT_TRUE(QTest::qWaitForWindowActive(delegate.window()));
    }

    void key(Qt::Key key) const { QTest::keyClick(delegate.window()->windowHandle(), key); }

    /// In the history window's coordinates.
    QRect placeOf(const QWidget *part) const
    {
        return {part->mapTo(delegate.window(), QPoint()), part->size()};
    }

    TourGuide &guide;
};

TEST_F(TourGuideTest, thePopoversComeOneByOneBesideWhatTheySpeakOf)
{
    const ViewController *history = delegate.viewController();
    const QRect search = placeOf(history->searchTextField());
    const QRect list = placeOf(history->clipTableView());
    const QRect preview = placeOf(history->textFieldView());
    const QStringList titles{QStringLiteral("Find"), QStringLiteral("Choose"),
                             QStringLiteral("Look"), QStringLiteral("Paste")};
    for (int index = 0; index < TourGuide::kPopovers; ++index) {
        EXPECT_EQ(guide.activePopoverIdx(), index);
        const TourPopover *popover = guide.activePopover();
        ASSERT_TRUE(popover);
        EXPECT_EQ(popover->content()->title(), titles.at(index));
        EXPECT_EQ(delegate.window()->findChildren<TourPopover *>().size(), 4);
        const QRect bubble = placeOf(popover->content());
        EXPECT_TRUE(delegate.window()->rect().contains(bubble)) << index;
        EXPECT_FALSE(bubble.intersects(index == 0 ? search : index == 2 ? preview : list)) << index;
        int shown = 0;
        for (const TourPopover *other : delegate.window()->findChildren<TourPopover *>())
            shown += other->isVisible() ? 1 : 0;
        EXPECT_EQ(shown, 1);
        key(Qt::Key_Tab); // stays
        key(index % 2 == 0 ? Qt::Key_Return : Qt::Key_Right);
    }
    EXPECT_EQ(guide.activePopoverIdx(), -1);
    EXPECT_FALSE(guide.activePopover());
    EXPECT_TRUE(delegate.window()->isVisible());
    EXPECT_TRUE(history->searchTextField()->hasFocus());
}

TEST_F(TourGuideTest, escapeEndsTheTourAndLeavesTheHistoryOpen)
{
    guide.nextClicked();
    key(Qt::Key_Escape);
    EXPECT_FALSE(guide.activePopover());
    EXPECT_TRUE(delegate.window()->isVisible());
    key(Qt::Key_Escape);
    EXPECT_FALSE(delegate.window()->isVisible());
}

TEST_F(TourGuideTest, closingTheHistoryEndsTheTour)
{
    delegate.viewController()->hide();
    EXPECT_EQ(guide.activePopoverIdx(), -1);
    delegate.launch();
    EXPECT_FALSE(guide.activePopover());
}

TEST_F(TourGuideTest, theOpenShortcutStepsDownAndTheTourGoesOn)
{
    guide.nextClicked();
    delegate.launch();
    EXPECT_EQ(delegate.viewController()->clipTableView()->selectedIdx(), 1);
    EXPECT_EQ(guide.activePopoverIdx(), 1);
    EXPECT_TRUE(guide.activePopover()->isVisible());
}

TEST_F(TourGuideTest, aTourBegunAnewBeginsWithTheFirst)
{
    guide.nextClicked();
    guide.nextClicked();
    delegate.startTour();
    EXPECT_EQ(guide.activePopoverIdx(), 0);
    EXPECT_TRUE(guide.activePopover()->isVisible());
}

TEST_F(TourGuideTest, thePopoverStaysBesideAListThatIsMadeNarrower)
{
    guide.nextClicked();
    const int before = guide.activePopover()->x();
    QWidget *list = delegate.viewController()->clipTableView();
    const int width = list->width();
    list->resize(width - 50, list->height());
    EXPECT_EQ(guide.activePopover()->x(), before - 50);
}

} // namespace
