#include "shortcut/MASShortcutCell.h"

#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kFontPoints = 11;

QColor mixed(const QColor &from, const QColor &to, double share)
{
    const auto mix = [share](float a, float b) { return static_cast<float>(a + (b - a) * share); };
    return QColor::fromRgbF(mix(from.redF(), to.redF()), mix(from.greenF(), to.greenF()),
                            mix(from.blueF(), to.blueF()), mix(from.alphaF(), to.alphaF()));
}

/// Whole device pixels, so that lines are sharp at fractional scales too.
class PixelGrid
{
public:
    explicit PixelGrid(const QPainter &painter) : m_toDevice(painter.deviceTransform()) {}

    /// The nearest width of whole device pixels, one at least.
    double lineWidth(double width) const
    {
        return std::max(1.0, std::round(width * m_toDevice.m11())) / m_toDevice.m11();
    }

    QRectF aligned(const QRectF &rect) const
    {
        const QRectF device = m_toDevice.mapRect(rect);
        const QPointF topLeft(std::round(device.left()), std::round(device.top()));
        const QPointF bottomRight(std::round(device.right()), std::round(device.bottom()));
        return m_toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
    }

private:
    QTransform m_toDevice;
};

/// The colours of one drawing, all from the palette.
struct Colors
{
    Colors(MASShortcutCell::Style style, const MASShortcutCell::State &state)
    {
        const QPalette &palette = state.palette;
        const auto group = state.isEnabled ? QPalette::Normal : QPalette::Disabled;
        const QColor window = palette.color(group, QPalette::Window);
        const QColor text = palette.color(group, QPalette::WindowText);
        const QColor button = palette.color(group, QPalette::Button);
        accent = palette.color(QPalette::Normal, QPalette::Highlight);
        isDark = text.lightnessF() > window.lightnessF();
        // Most dark themes give a button the window's own colour; it must still stand out.
        fill = isDark ? mixed(button, text, 0.07) : mixed(button, QColor(Qt::white), 0.55);
        if (state.isPressed)
            fill = mixed(palette.color(group, QPalette::Base), accent, isDark ? 0.16 : 0.07);
        else if (state.isUnderMouse && state.isEnabled)
            fill = mixed(fill, text, 0.05);
        border = mixed(window, text, state.isEnabled ? 0.3 : 0.15);
        title = palette.color(group, QPalette::ButtonText);
        prompt = state.isPressed ? mixed(title, fill, 0.38) : title;
        if (state.isPressed && style == MASShortcutCell::Style::Borderless)
            prompt = mixed(accent, title, 0.25);
        glyph = mixed(title, fill, state.isHinting ? 0.0 : 0.4);
        disc = mixed(fill, title, 0.13);
    }

    QColor accent;
    QColor fill;
    QColor border;
    QColor title;
    QColor prompt;
    QColor glyph;
    QColor disc;
    bool isDark = false;
};

double radius(MASShortcutCell::Style style, const QRectF &rect)
{
    switch (style) {
    case MASShortcutCell::Style::TexturedRounded:
        return 4;
    case MASShortcutCell::Style::Rounded:
        return rect.height() / 2;
    default:
        return 6;
    }
}

QBrush fillBrush(MASShortcutCell::Style style, const QRectF &rect, const Colors &colors,
                 bool isPressed)
{
    if (style != MASShortcutCell::Style::TexturedRounded || isPressed)
        return colors.fill;
    QLinearGradient gradient(rect.topLeft(), rect.bottomLeft());
    gradient.setColorAt(0, mixed(colors.fill, QColor(Qt::white), colors.isDark ? 0.08 : 0.7));
    gradient.setColorAt(1, mixed(colors.fill, QColor(Qt::black), colors.isDark ? 0.12 : 0.06));
    return gradient;
}

void drawBezel(QPainter &painter, MASShortcutCell::Style style, const MASShortcutCell::State &state,
               const Colors &colors)
{
    const PixelGrid grid(painter);
    const bool isAccented = state.isPressed || state.hasFocusRing;
    const double line = grid.lineWidth(isAccented ? 1.6 : 1);
    const QRectF outer = grid.aligned(state.bounds);
    const QRectF middle = outer.adjusted(line / 2, line / 2, -line / 2, -line / 2);
    const double corner = radius(style, middle);
    if (style == MASShortcutCell::Style::Borderless) {
        if (state.hasFocusRing) {
            painter.setPen(QPen(colors.accent, line));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(middle, corner, corner);
        }
        return;
    }
    painter.setPen(QPen(isAccented ? colors.accent : colors.border, line));
    painter.setBrush(fillBrush(style, middle, colors, state.isPressed));
    painter.drawRoundedRect(middle, corner, corner);
}

QPainterPath crossPath(const QPointF &center, double size)
{
    const double half = size * 0.33;
    QPainterPath path(center + QPointF(-half, -half));
    path.lineTo(center + QPointF(half, half));
    path.moveTo(center + QPointF(half, -half));
    path.lineTo(center + QPointF(-half, half));
    return path;
}

/// A circle that an arrow leaves to the top left.
QPainterPath escapePath(const QPointF &center, double size)
{
    const double half = size * 0.5;
    const QPointF tip = center + QPointF(-half, -half);
    const QPointF middle = center + QPointF(half * 0.08, half * 0.08);
    const double head = half * 0.62;
    QPainterPath path;
    const QRectF circle(middle.x() - half * 0.9, middle.y() - half * 0.9, size * 0.9, size * 0.9);
    constexpr double kGapStart = 88;
    constexpr double kGapEnd = 182;
    path.arcMoveTo(circle, kGapEnd);
    path.arcTo(circle, kGapEnd, 360 - (kGapEnd - kGapStart));
    path.moveTo(middle);
    path.lineTo(tip);
    path.moveTo(tip + QPointF(0, head));
    path.lineTo(tip);
    path.lineTo(tip + QPointF(head, 0));
    return path;
}

/// Drawn rather than typed: few fonts have both characters, and none at this size sharp.
void drawGlyph(QPainter &painter, const MASShortcutCell::State &state, const Colors &colors)
{
    if (state.glyph == MASShortcutCell::Glyph::None)
        return;
    constexpr double kGlyphSize = 11;
    constexpr double kDiscSize = 17;
    const PixelGrid grid(painter);
    const double room = std::min(state.glyphRect.width(), state.glyphRect.height());
    const double disc = std::min(kDiscSize, room);
    const double size = std::min(kGlyphSize, room - 2);
    const double margin = std::max(0.0, std::min(5.0, state.glyphRect.width() - disc));
    QRectF box(0, 0, disc, disc);
    box.moveCenter(state.glyphRect.center());
    box.moveRight(state.glyphRect.right() - margin);
    box = grid.aligned(box);
    if (state.isHinting && state.isEnabled) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.disc);
        painter.drawEllipse(box);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colors.glyph, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(state.glyph == MASShortcutCell::Glyph::Delete
                         ? crossPath(box.center(), size)
                         : escapePath(box.center(), size));
}

void drawTitle(QPainter &painter, QFont font, const MASShortcutCell::State &state,
               const Colors &colors)
{
    constexpr double kGlyphSpacing = 1;
    QRectF rect = state.titleRect;
    if (!state.isPrompt) {
        font.setLetterSpacing(QFont::AbsoluteSpacing, kGlyphSpacing);
        rect.translate(kGlyphSpacing / 2, 0);
    }
    // Signs and keys keep their order in every language.
    if (!state.isPrompt)
        painter.setLayoutDirection(Qt::LeftToRight);
    painter.setFont(font);
    painter.setPen(state.isPrompt ? colors.prompt : colors.title);
    const QString text =
        QFontMetricsF(font).elidedText(state.title, Qt::ElideRight, rect.width() - 4);
    painter.drawText(rect, Qt::AlignCenter, text);
}

} // namespace

void MASShortcutCell::setFont(const QFont &font)
{
    m_font = font;
    m_font.setPointSizeF(kFontPoints);
}

int MASShortcutCell::buttonWidth() const
{
    switch (m_style) {
    case Style::Recessed:
        return 23;
    case Style::TexturedRounded:
        return 25;
    case Style::Rounded:
        return 26;
    case Style::Borderless:
        break;
    }
    return static_cast<int>(m_font.pointSizeF()) + 4;
}

void MASShortcutCell::draw(QPainter &painter, const State &state) const
{
    const Colors colors(m_style, state);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBezel(painter, m_style, state, colors);
    drawTitle(painter, m_font, state, colors);
    drawGlyph(painter, state, colors);
}
