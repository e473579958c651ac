#include "shortcut/MASShortcutCell.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <set>

namespace {

using Style = MASShortcutCell::Style;

struct StyleRow
{
    const char *name;
    Style style;
    int buttonWidth;
};

using CellStyle = testing::TestWithParam<StyleRow>;

TEST_P(CellStyle, hasItsButtonWidthInTheFontOfElevenPoints)
{
    MASShortcutCell cell;
    QFont font;
    font.setPointSize(30);
    cell.setFont(font);
    cell.setStyle(GetParam().style);
    EXPECT_EQ(cell.font().pointSize(), 11);
    EXPECT_EQ(cell.buttonWidth(), GetParam().buttonWidth);
}

INSTANTIATE_TEST_SUITE_P(Styles, CellStyle,
                         testing::Values(StyleRow{"recessed", Style::Recessed, 23},
                                         StyleRow{"texturedRounded", Style::TexturedRounded, 25},
                                         StyleRow{"rounded", Style::Rounded, 26},
                                         StyleRow{"borderless", Style::Borderless, 15}),
                         [](const auto &row) { return std::string(row.param.name); });

/// The colours met on the way down through the middle of a recessed cell of 100 x 30 that lies at
/// a place off the device pixels.
QList<QRgb> columnAt(double scale)
{
    MASShortcutCell cell;
    MASShortcutCell::State state;
    state.bounds = {0, 0, 100, 30};
    state.titleRect = state.glyphRect = state.bounds;
    state.palette = QApplication::palette();
    QImage image(QSize(qRound(120 * scale), qRound(50 * scale)), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(state.palette.window().color());
    QPainter painter(&image);
    painter.translate(7, 7);
    cell.draw(painter, state);
    QList<QRgb> colors;
    for (int y = 0; y < image.height(); ++y)
        colors.append(image.pixel(image.width() / 2, y));
    return colors;
}

TEST(Cell, linesAreSharpAtEveryScale)
{
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        const QList<QRgb> column = columnAt(scale);
        // Window, border and fill, without the blends of a line between two pixels.
        EXPECT_EQ(std::set<QRgb>(column.begin(), column.end()).size(), 3U) << scale;
    }
}

} // namespace
