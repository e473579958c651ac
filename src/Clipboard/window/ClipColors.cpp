#include "Clipboard/window/ClipColors.h"

#include "Clipboard/window/ClipTableView.h"

#include <QPalette>

namespace {

ClipColors lightColors()
{
    ClipColors colors;
    colors.panel = ClipTableView::myGray();
    colors.paper = QColor(0xff, 0xff, 0xff);
    colors.border = QColor(0, 0, 0, 46);
    colors.separator = QColor(0xe2, 0xe2, 0xe5);
    colors.text = QColor(0x1d, 0x1d, 0x1f);
    colors.quietText = QColor(0x71, 0x71, 0x77);
    colors.selected = ClipTableView::defaultSelectedBlue();
    colors.selectedText = Qt::white;
    colors.control = QColor(0xef, 0xef, 0xf2);
    colors.controlHover = QColor(0xe4, 0xe4, 0xe9);
    colors.warning = QColor(0xc9, 0x6a, 0x00);
    return colors;
}

ClipColors darkColors()
{
    ClipColors colors;
    colors.isDark = true;
    colors.panel = QColor(0x26, 0x27, 0x2a);
    colors.paper = QColor(0x1e, 0x1f, 0x22);
    colors.border = QColor(255, 255, 255, 40);
    colors.separator = QColor(0x38, 0x39, 0x3e);
    colors.text = QColor(0xec, 0xec, 0xee);
    colors.quietText = QColor(0x9b, 0x9b, 0xa3);
    // The light scheme's blue glares on a dark ground; this one keeps white text readable on it.
    colors.selected = QColor(0x2a, 0x6f, 0xcf);
    colors.selectedText = Qt::white;
    colors.control = QColor(0x32, 0x34, 0x39);
    colors.controlHover = QColor(0x3d, 0x40, 0x46);
    colors.warning = QColor(0xff, 0xb2, 0x4d);
    return colors;
}

} // namespace

ClipColors ClipColors::ofPalette(const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Window).lightness() <
                        palette.color(QPalette::WindowText).lightness();
    return isDark ? darkColors() : lightColors();
}
