#include "Clipboard/preferences/HistorySizeSlider.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <map>

namespace {

class HistorySize : public testing::Test
{
protected:
    HistorySize()
    {
        slider.resize(slider.sizeHint());
        slider.show();
        slider.setFocus();
    }

    int valueAt(int x)
    {
        QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(x, slider.grooveHeight() / 2));
        return slider.value();
    }

    HistorySizeSlider slider;
};

TEST_F(HistorySize, risesFromOneToAHundredThousandAndGivesThePowersOfTenTheMostRoom)
{
    std::map<int, int> widths;
    int last = 0;
    for (int x = 0; x < slider.width(); ++x) {
        const int value = valueAt(x);
        EXPECT_GE(value, last);
        last = value;
        ++widths[value];
    }
    EXPECT_EQ(widths.begin()->first, 1);
    EXPECT_EQ(last, 100'000);
    EXPECT_GE(widths[1000], 12);
    EXPECT_LT(widths[750], widths[1000]);
    EXPECT_LT(widths[1500], widths[1000]);
}

struct Key
{
    const char *name;
    Qt::Key key;
    int from;
    int to;
};

using HistorySizeKeys = testing::TestWithParam<Key>;

TEST_P(HistorySizeKeys, goFromStopToStop)
{
    HistorySizeSlider slider;
    slider.setValue(GetParam().from);
    QTest::keyClick(&slider, GetParam().key);
    EXPECT_EQ(slider.value(), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, HistorySizeKeys,
    testing::Values(Key{"up", Qt::Key_Up, 1000, 1500}, Key{"right", Qt::Key_Right, 1, 2},
                    Key{"down", Qt::Key_Down, 1000, 750}, Key{"left", Qt::Key_Left, 10, 5},
                    Key{"upFromBetween", Qt::Key_Up, 1234, 1500},
                    Key{"downFromBetween", Qt::Key_Down, 1234, 1000},
                    Key{"upAtTheEnd", Qt::Key_Up, 100'000, 100'000},
                    Key{"downAtTheEnd", Qt::Key_Down, 1, 1},
                    Key{"pageUp", Qt::Key_PageUp, 1234, 10'000},
                    Key{"pageDown", Qt::Key_PageDown, 1000, 100},
                    Key{"home", Qt::Key_Home, 1000, 1}, Key{"end", Qt::Key_End, 1000, 100'000}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(HistorySize, countsOnlyWhereADragEnds)
{
    slider.setValue(1000);
    const QSignalSpy moves(&slider, &QSlider::sliderMoved);
    const int y = slider.grooveHeight() / 2;
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(slider.width() / 2, y));
    QTest::mouseMove(&slider, QPoint(1, y));
    EXPECT_EQ(slider.value(), 1000);
    EXPECT_EQ(moves.last().first().toInt(), 1);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(1, y));
    EXPECT_EQ(slider.value(), 1);
}

TEST_F(HistorySize, isReadAndSetAsANumberOfClipsByAssistiveTechnology)
{
    slider.setValue(1234);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&slider);
    ASSERT_TRUE(accessible && accessible->valueInterface());
    EXPECT_EQ(accessible->valueInterface()->currentValue().toInt(), 1234);
    accessible->valueInterface()->setCurrentValue(77);
    EXPECT_EQ(slider.value(), 77);
}

TEST_F(HistorySize, ignoresTheWheelWithoutTheFocus)
{
    slider.setValue(1000);
    const auto wheel = [this] {
        QWheelEvent event(QPointF(9, 9), slider.mapToGlobal(QPointF(9, 9)), {}, {0, 120},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&slider, &event);
    };
    slider.clearFocus();
    wheel();
    EXPECT_EQ(slider.value(), 1000);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&slider));
    slider.setFocus();
    wheel();
    EXPECT_EQ(slider.value(), 1500);
}

} // namespace
