#include "looks/ClipColors.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

ClipColors lightColors()
{
    ClipColors colors;
    colors.panel = ClipColors::lightPanel();
    colors.paper = QColor(0xff, 0xff, 0xff);
    colors.border = QColor(0, 0, 0, 46);
    colors.outline = QColor(0x8a, 0x8a, 0x90);
    colors.separator = QColor(0xe2, 0xe2, 0xe5);
    colors.text = QColor(0x1d, 0x1d, 0x1f);
    colors.quietText = QColor(0x62, 0x62, 0x69);
    colors.selected = ClipColors::lightSelected();
    colors.selectedText = Qt::white;
    colors.match = QColor(0xff, 0xe4, 0x8a);
    colors.control = QColor(0xef, 0xef, 0xf2);
    colors.controlHover = QColor(0xe4, 0xe4, 0xe9);
    colors.warning = QColor(0xa8, 0x57, 0x00);
    colors.disabledText = QColor(0xa3, 0xa3, 0xa9);
    return colors;
}

ClipColors darkColors()
{
    ClipColors colors;
    colors.isDark = true;
    colors.panel = QColor(0x26, 0x27, 0x2a);
    colors.paper = QColor(0x1e, 0x1f, 0x22);
    colors.border = QColor(255, 255, 255, 40);
    colors.outline = QColor(0x7a, 0x7b, 0x82);
    colors.separator = QColor(0x38, 0x39, 0x3e);
    colors.text = QColor(0xec, 0xec, 0xee);
    colors.quietText = QColor(0xab, 0xab, 0xb3);
    // The light scheme's blue glares on a dark ground; this one keeps white text readable on it.
    colors.selected = QColor(0x2a, 0x6f, 0xcf);
    colors.selectedText = Qt::white;
    colors.match = QColor(0x66, 0x52, 0x16);
    colors.control = QColor(0x32, 0x34, 0x39);
    colors.controlHover = QColor(0x3d, 0x40, 0x46);
    colors.warning = QColor(0xff, 0xb2, 0x4d);
    colors.disabledText = QColor(0x85, 0x86, 0x8e);
    return colors;
}

double luminance(const QColor &color)
{
    const auto linear = [](float part) {
        return part <= 0.04045F ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// Absent when the colour is merely what the style has brought along.
std::optional<QColor> chosenHighlight(const QPalette &palette)
{
    const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
    const QStyle *style = QApplication::style();
    if (style && highlight == style->standardPalette().color(QPalette::Active, QPalette::Highlight))
        return std::nullopt;
    return highlight;
}

} // namespace

ClipColors ClipColors::ofPalette(const QPalette &palette)
{
    return ofScheme(isDarkPalette(palette), palette);
}

ClipColors ClipColors::ofScheme(bool isDark, const QPalette &palette)
{
    ClipColors colors = isDark ? darkColors() : lightColors();
    colors.selected =
        readable(chosenHighlight(palette).value_or(colors.selected), colors.selectedText);
    colors.accentText = readable(colors.selected, colors.paper);
    return colors;
}

QPalette ClipColors::inkPalette(const QColor &ink)
{
    QPalette palette;
    palette.setColor(QPalette::WindowText, ink);
    return palette;
}

QPalette ClipColors::textPalette() const
{
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Highlight, selected);
    palette.setColor(QPalette::HighlightedText, selectedText);
    return palette;
}

bool ClipColors::isDarkPalette(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

QColor ClipColors::mixed(const QColor &ground, const QColor &tint, qreal amount)
{
    const auto part = [amount](int below, int above) {
        return qRound(below + (above - below) * amount);
    };
    return {part(ground.red(), tint.red()), part(ground.green(), tint.green()),
            part(ground.blue(), tint.blue())};
}

double ClipColors::contrast(const QColor &first, const QColor &second)
{
    const auto [dark, light] = std::minmax({luminance(first), luminance(second)});
    return (light + 0.05) / (dark + 0.05);
}

QColor ClipColors::readable(QColor color, const QColor &other)
{
    constexpr int kStep = 104; // per cent
    const bool darkens = contrast(Qt::black, other) > contrast(Qt::white, other);
    // Black would become no lighter.
    color = color.toHsl();
    if (color.lightness() == 0)
        color.setHsl(color.hslHue(), color.hslSaturation(), 1);
    for (int step = 0; step < 120; ++step) {
        if (contrast(color, other) >= kMinContrast)
            break;
        color = darkens ? color.darker(kStep) : color.lighter(kStep);
    }
    return color.toRgb();
}
