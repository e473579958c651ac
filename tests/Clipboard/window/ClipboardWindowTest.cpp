#include "Clipboard/window/WindowDelegate.h"
#include "WindowRig.h"
#include "looks/ClipColors.h"
#include "looks/DesktopLooks.h"
#include "platform/PointerScreen.h"

#include <QWindow>

namespace {

using ClipboardWindowTest = WindowRig;

TEST(WindowPlacement, oneThirdOfTheFreeHeightStaysAbove)
{
    struct Row
    {
        const char *name;
        QRect visible;
        QRect frame;
    };
    const Row kRows[] = {
        {"a plain screen", {0, 0, 1280, 800}, {250, 105, 780, 486}},
        {"a panel at the top", {0, 30, 1280, 770}, {250, 125, 780, 486}},
        {"a second screen to the left and higher",
         {-1920, -200, 1920, 1080},
         {-1350, -2, 780, 486}},
        {"a screen smaller than the window", {0, 0, 640, 480}, {-70, -2, 780, 486}},
    };
    for (const Row &row : kRows)
        EXPECT_EQ(PointerScreen::utilityFrame(row.visible, {780, 486}), row.frame) << row.name;
}

TEST(WindowPlacement, theFirstScreenThatHoldsThePointerIsTaken)
{
    const QList<QRect> frames{{0, 0, 1000, 800}, {1000, 0, 500, 400}};
    EXPECT_EQ(PointerScreen::screenAt(frames, QPoint(999, 799)), 0);
    EXPECT_EQ(PointerScreen::screenAt(frames, QPoint(1000, 10)), 0) << "a shared edge";
    EXPECT_EQ(PointerScreen::screenAt(frames, QPoint(1001, 10)), 1);
    EXPECT_EQ(PointerScreen::screenAt(frames, QPoint(1200, 700)), std::nullopt);
    EXPECT_EQ(PointerScreen::screenAt(frames, std::nullopt), std::nullopt);
}

TEST_F(ClipboardWindowTest, theWindowStandsOnThePointersScreenWithItsHeight)
{
    memory.windowSpace.setVisibleFrame(QRect(100, 50, 1000, 700));
    delegate.launch();
    EXPECT_EQ(delegate.window()->frame(), QRect(210, 50 + 71, 780, 486));
    EXPECT_EQ(memory.frontApplication.activatedWindow(), delegate.window()->windowHandle());
}

TEST_F(ClipboardWindowTest, theShadowComesAndGoesWithCompositingAndTheFrameStays)
{
    delegate.launch();
    const QRect frame = delegate.window()->frame();
    EXPECT_TRUE(delegate.window()->mask().isEmpty());
    EXPECT_TRUE(delegate.window()->geometry().contains(frame.adjusted(-10, -10, 10, 10)));

    memory.windowSpace.setCompositing(false);
    EXPECT_EQ(delegate.window()->geometry(), frame);
    EXPECT_EQ(delegate.window()->frame(), frame);
    const QRegion mask = delegate.window()->mask();
    EXPECT_FALSE(mask.contains(QPoint(0, 0)));
    EXPECT_TRUE(mask.contains(QPoint(5, 0)));
    EXPECT_TRUE(mask.contains(QPoint(frame.width() - 6, frame.height() - 1)));
    const QImage image = delegate.window()->grab().toImage();
    const QColor inside = image.pixelColor(50, 3);
    for (const QPoint &edge : {QPoint(50, 0), QPoint(0, 300), QPoint(image.width() - 1, 300),
                               QPoint(50, image.height() - 1)})
        EXPECT_GT(ClipColors::contrast(image.pixelColor(edge), inside), 3) << edge.x();

    memory.windowSpace.setCompositing(true);
    EXPECT_EQ(delegate.window()->frame(), frame);
    EXPECT_TRUE(delegate.window()->mask().isEmpty());
}

TEST_F(ClipboardWindowTest, aClickIntoTheShadowIsAClickBesideTheWindow)
{
    delegate.launch();
    QTest::mouseClick(delegate.window(), Qt::LeftButton, {}, QPoint(4, 4));
    EXPECT_FALSE(delegate.window()->isVisible());
    EXPECT_FALSE(controller->isWindowKey());
}

TEST_F(ClipboardWindowTest, losingTheKeyboardClosesUnlessTheWindowStaysInFront)
{
    add(QStringLiteral("a"));
    open();
    memory.frontApplication.setInFront(true);
    QEvent deactivated(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(delegate.window(), &deactivated);
    EXPECT_TRUE(delegate.window()->isVisible()) << "somebody grabbed the keyboard";
    EXPECT_TRUE(controller->isWindowKey());
    memory.frontApplication.setInFront(false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !delegate.window()->isVisible(); }))
        << "the grab ended in another window";
    EXPECT_FALSE(controller->isWindowKey());

    open();
    QWidget menu(delegate.window(), Qt::Popup);
    menu.show();
    menu.hide();
    QCoreApplication::sendEvent(delegate.window(), &deactivated);
    EXPECT_TRUE(delegate.window()->isVisible()) << "it may be given back after a menu";
    EXPECT_TRUE(controller->isWindowKey());

    QWidget other;
    other.show();
    other.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !delegate.window()->isVisible(); }))
        << "another window was clicked";
}

TEST_F(ClipboardWindowTest, theShortcutOpensAgainALostWindowBeforeTheToolkitKnowsOfTheLoss)
{
    add(QStringLiteral("a"));
    add(QStringLiteral("b"));
    delegate.launch();
    ASSERT_TRUE(QTest::qWaitForWindowActive(delegate.window()));
    controller->searchTextField()->setText(QStringLiteral("a"));
    memory.frontApplication.setInFront(false);
    delegate.launch();
    EXPECT_TRUE(delegate.window()->isVisible());
    EXPECT_TRUE(controller->isWindowKey());
    EXPECT_EQ(controller->searchTextField()->text(), QString());
    EXPECT_EQ(controller->clipTableView()->selectedIdx(), 0);
}

TEST_F(ClipboardWindowTest, aDialogOfTheWindowDoesNotCloseIt)
{
    open();
    QWidget dialog(delegate.window(), Qt::Dialog);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    EXPECT_TRUE(delegate.window()->isVisible());
}

TEST_F(ClipboardWindowTest, otherWindowsOfOursGetTheKeyboardBesideItAsLongAsTheyAreThere)
{
    QWidget before;
    before.show();
    open();
    const MemoryWindowSpace &space = memory.windowSpace;
    EXPECT_FALSE(space.sharesKeyboard()) << "it came up over a window that was there";
    before.raise();
    EXPECT_TRUE(space.sharesKeyboard());
    QWidget dialog(delegate.window(), Qt::Dialog);
    dialog.show();
    before.hide();
    EXPECT_TRUE(space.sharesKeyboard()) << "there is still the other";
    dialog.hide();
    EXPECT_FALSE(space.sharesKeyboard());
    QWidget menu(delegate.window(), Qt::Popup);
    menu.show();
    EXPECT_FALSE(space.sharesKeyboard());
    menu.hide();
    dialog.show();
    delegate.window()->hide();
    EXPECT_FALSE(space.sharesKeyboard()) << "hidden meanwhile";
}

TEST_F(ClipboardWindowTest, aClickOnTheDesktopsCatcherClosesIt)
{
    open();
    Q_EMIT memory.windowSpace.outsideClicked();
    EXPECT_FALSE(delegate.window()->isVisible());
    EXPECT_FALSE(controller->isWindowKey());
}

TEST_F(ClipboardWindowTest, otherWindowsStayForAPasteWhereTheyWouldTakeTheKeyboardAsTheyComeBack)
{
    for (const bool can : {true, false}) {
        memory.windowSpace.setCanShowWithoutKeyboard(can);
        QWidget other;
        other.show();
        open();
        delegate.hideApp();
        EXPECT_EQ(other.isVisible(), !can);
        EXPECT_FALSE(delegate.window()->isVisible());
    }
}

TEST_F(ClipboardWindowTest, theColoursFollowTheDesktopLiveAndStayReadable)
{
    using Scheme = Appearance::ColorScheme;
    struct Row
    {
        const char *name;
        Scheme scheme;
        std::optional<QColor> accent;
        bool isDark;
    };
    const std::array rows{
        Row{"nothing said", Scheme::Unspecified, std::nullopt, false},
        Row{"dark", Scheme::Dark, std::nullopt, true},
        Row{"dark with yellow", Scheme::Dark, QColor(0xe5, 0xc1, 0x00), true},
        Row{"light with yellow", Scheme::Light, QColor(0xe5, 0xc1, 0x00), false},
        Row{"black", Scheme::Light, QColor(Qt::black), false},
        Row{"light again", Scheme::Light, std::nullopt, false},
    };
    add(QStringLiteral("a"));
    delegate.launch();
    const QPalette before = QApplication::palette();
    const DesktopLooks looks(memory.appearance);
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        memory.appearance.setColorScheme(row.scheme);
        memory.appearance.setAccentColor(row.accent);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            const QImage shown = delegate.window()->grab().toImage();
            const QPoint place = delegate.window()->rect().center() - QPoint(200, 0);
            return (shown.pixelColor(place).lightness() < 80) == row.isDark;
        }));
        const ClipColors colors = ClipColors::ofPalette(QApplication::palette());
        const std::array<std::pair<QColor, QColor>, 7> pairs{
            {{colors.text, colors.paper},
             {colors.text, colors.panel},
             {colors.quietText, colors.panel},
             {colors.quietText, colors.paper},
             {colors.selectedText, colors.selected},
             {colors.accentText, colors.paper},
             {colors.warning, colors.paper}}};
        for (const auto &[text, ground] : pairs)
            EXPECT_GE(ClipColors::contrast(text, ground), ClipColors::kMinContrast)
                << qUtf8Printable(text.name() + u' ' + ground.name());
        if (row.accent) {
            EXPECT_NEAR(colors.selected.hslHueF(), row.accent->hslHueF(), 0.02);
        } else if (!row.isDark) {
            EXPECT_EQ(colors.selected.rgb(), ClipTableView::defaultSelectedBlue().rgb());
        }
    }
    QApplication::setPalette(before);
}

TEST_F(ClipboardWindowTest, theSelectedRowIsDrawnInItsColourAndNoOther)
{
    addAll({QStringLiteral("b"), QStringLiteral("a")});
    delegate.launch();
    controller->next();
    const auto colourOf = [this](int row) {
        const QRect rect = table->visualRect(table->model()->index(row, 1));
        return table->viewport()->grab().toImage().pixelColor(rect.center() + QPoint(60, 0)).rgb();
    };
    EXPECT_EQ(colourOf(1), ClipTableView::defaultSelectedBlue().rgb());
    EXPECT_NE(colourOf(0), ClipTableView::defaultSelectedBlue().rgb());
    table->setSelectedBlue(Qt::darkGreen);
    EXPECT_EQ(colourOf(1), QColor(Qt::darkGreen).rgb());
}

} // namespace
