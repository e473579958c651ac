#include "Clipboard/preferences/HistorySizeSlider.h"

#include "looks/Looks.h"

#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <iterator>

namespace {

struct Stop
{
    int number;
    int position; ///< On the groove, in hundredths of an ordinary stop's width.
    int halfWidth;
};

constexpr std::array kPowers{1, 10, 100, 1'000, 10'000, 100'000};

const std::vector<Stop> &stops()
{
    static const std::vector<Stop> kStops = [] {
        std::vector<Stop> made;
        const auto add = [&made](int number, int halfWidth) {
            const int position =
                made.empty() ? 0 : made.back().position + made.back().halfWidth + halfWidth;
            made.push_back({number, position, halfWidth});
        };
        for (const int power : kPowers) {
            add(power, 100);
            for (const int quarters : {6, 8, 10, 12, 16, 20, 30})
                if (power < HistorySizeSlider::kMaximum && power * quarters % 4 == 0)
                    add(power * quarters / 4, 50);
        }
        return made;
    }();
    return kStops;
}

/// Between two stops the way is linear.
int positionOf(int number)
{
    const auto above = std::find_if(stops().begin(), stops().end(),
                                    [number](const Stop &stop) { return stop.number >= number; });
    if (above == stops().begin())
        return above->position;
    if (above == stops().end())
        return stops().back().position;
    const Stop &below = *std::prev(above);
    return below.position +
           static_cast<int>(qint64(above->position - below.position) * (number - below.number) /
                            (above->number - below.number));
}

int nextStop(int number, int steps)
{
    const auto from = [number](const Stop &stop) { return stop.number >= number; };
    auto index = std::find_if(stops().begin(), stops().end(), from) - stops().begin();
    const bool isBetweenStops = stops()[static_cast<size_t>(index)].number != number;
    index += steps > 0 && isBetweenStops ? steps - 1 : steps;
    index = std::clamp<std::ptrdiff_t>(index, 0, std::ssize(stops()) - 1);
    return stops()[static_cast<size_t>(index)].number;
}

int nextPower(int number, bool isUp)
{
    if (isUp) {
        const auto found = std::upper_bound(kPowers.begin(), kPowers.end(), number);
        return found == kPowers.end() ? kPowers.back() : *found;
    }
    const auto found = std::lower_bound(kPowers.begin(), kPowers.end(), number);
    return found == kPowers.begin() ? kPowers.front() : *std::prev(found);
}

} // namespace

HistorySizeSlider::HistorySizeSlider(QWidget *parent) : QSlider(Qt::Horizontal, parent)
{
    setRange(kMinimum, kMaximum);
    setTracking(false);
    setFocusPolicy(Qt::StrongFocus);
}

void HistorySizeSlider::initStyleOption(QStyleOptionSlider *option) const
{
    QSlider::initStyleOption(option);
    option->minimum = 0;
    option->maximum = stops().back().position;
    option->sliderPosition = positionOf(sliderPosition());
    option->sliderValue = positionOf(value());
    option->rect.setHeight(height() - tickHeight());
}

void HistorySizeSlider::paintEvent(QPaintEvent *event)
{
    QSlider::paintEvent(event);
    QPainter painter(this);
    painter.setFont(tickFont());
    QColor colour = palette().color(QPalette::WindowText);
    colour.setAlphaF(0.65F);
    painter.setPen(colour);
    const QFontMetrics metrics(tickFont());
    const int top = height() - tickHeight();
    const auto boxOf = [&](int power) {
        // The outermost numbers are wider than what is left beside their ticks.
        const int half = metrics.horizontalAdvance(QLocale().toString(power)) / 2 + 1;
        const int middle = std::clamp(xOf(power), half, std::max(half, width() - half));
        return QRect(middle - half, top + 3, 2 * half, metrics.height());
    };
    // With a large font not every number has room. The largest is told in any case.
    QRegion taken;
    for (auto power = kPowers.rbegin(); power != kPowers.rend(); ++power) {
        const int x = xOf(*power);
        painter.drawLine(x, top - 2, x, top + 1);
        const QRect box = boxOf(*power);
        if (taken.intersects(box))
            continue;
        painter.drawText(box, Qt::AlignHCenter | Qt::AlignTop, QLocale().toString(*power));
        taken += box;
    }
}

void HistorySizeSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    setSliderDown(true);
    setSliderPosition(stopAt(event->position().toPoint().x()));
}

void HistorySizeSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (isSliderDown())
        setSliderPosition(stopAt(event->position().toPoint().x()));
}

void HistorySizeSlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        setSliderDown(false);
}

void HistorySizeSlider::keyPressEvent(QKeyEvent *event)
{
    const int forward = layoutDirection() == Qt::RightToLeft ? -1 : 1;
    switch (event->key()) {
    case Qt::Key_Left:
        return setValue(nextStop(value(), -forward));
    case Qt::Key_Right:
        return setValue(nextStop(value(), forward));
    case Qt::Key_Down:
        return setValue(nextStop(value(), -1));
    case Qt::Key_Up:
        return setValue(nextStop(value(), 1));
    case Qt::Key_PageDown:
        return setValue(nextPower(value(), false));
    case Qt::Key_PageUp:
        return setValue(nextPower(value(), true));
    case Qt::Key_Home:
        return setValue(kMinimum);
    case Qt::Key_End:
        return setValue(kMaximum);
    default:
        event->ignore();
    }
}

void HistorySizeSlider::wheelEvent(QWheelEvent *event)
{
    // A pointer that only passes by while somebody scrolls must not change the history's size.
    if (!hasFocus()) {
        event->ignore();
        return;
    }
    m_wheelDelta += event->angleDelta().y();
    const int steps = m_wheelDelta / QWheelEvent::DefaultDeltasPerStep;
    m_wheelDelta -= steps * QWheelEvent::DefaultDeltasPerStep;
    if (steps != 0)
        setValue(nextStop(value(), steps));
}

QFont HistorySizeSlider::tickFont() const
{
    return Looks::scaled(font(), 0.85);
}

int HistorySizeSlider::tickHeight() const
{
    return QFontMetrics(tickFont()).height() + 4;
}

/// Where the handle's middle stands for a number.
int HistorySizeSlider::xOf(int number) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const QRect groove =
        style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, this);
    const int handle =
        style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this).width();
    return groove.x() + handle / 2 +
           QStyle::sliderPositionFromValue(0, option.maximum, positionOf(number),
                                           groove.width() - handle, option.upsideDown);
}

int HistorySizeSlider::stopAt(int x) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    const int start = std::min(xOf(kMinimum), xOf(kMaximum));
    const int length = std::abs(xOf(kMaximum) - xOf(kMinimum));
    const int position =
        QStyle::sliderValueFromPosition(0, option.maximum, x - start, length, option.upsideDown);
    const auto found = std::find_if(stops().begin(), stops().end(), [position](const Stop &stop) {
        return position <= stop.position + stop.halfWidth;
    });
    return found == stops().end() ? kMaximum : found->number;
}
