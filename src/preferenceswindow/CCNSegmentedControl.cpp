#include "preferenceswindow/CCNSegmentedControl.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QScopedValueRollback>
#include <QStyle>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kHorizontalPadding = 36;
constexpr int kVerticalPadding = 12;
constexpr int kMinimumWidth = 42;
constexpr qreal kRadius = 5;

QColor mixed(const QColor &first, const QColor &second, qreal share)
{
    const auto channel = [share](float a, float b) {
        return static_cast<float>(a * (1 - share) + b * share);
    };
    return QColor::fromRgbF(channel(first.redF(), second.redF()),
                            channel(first.greenF(), second.greenF()),
                            channel(first.blueF(), second.blueF()));
}

class Segment : public QAbstractButton
{
public:
    Segment(const QString &title, bool isFirst, bool isLast, QWidget *parent)
        : QAbstractButton(parent), m_isFirst(isFirst), m_isLast(isLast)
    {
        setText(title);
        setAccessibleName(title);
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_Hover);
    }

    QSize sizeHint() const override { return size(); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QPalette &colours = palette();
        const QPainterPath outline = shape();

        QColor fill = colours.color(QPalette::Button);
        if (isChecked())
            fill = colours.color(QPalette::Highlight);
        if (isDown() || underMouse())
            fill = mixed(fill, colours.color(QPalette::WindowText), isDown() ? 0.15 : 0.05);
        painter.fillPath(outline, fill);
        painter.setPen(QPen(
            mixed(colours.color(QPalette::Window), colours.color(QPalette::WindowText), 0.3), 1));
        painter.drawPath(outline);

        const QColor text =
            colours.color(isChecked() ? QPalette::HighlightedText : QPalette::ButtonText);
        if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange)) {
            painter.setPen(QPen(text, 1, Qt::DotLine));
            painter.drawRoundedRect(QRectF(rect()).adjusted(4.5, 4.5, -4.5, -4.5), 2, 2);
        }
        painter.setPen(text);
        painter.drawText(rect(), Qt::AlignCenter, this->text());
    }

private:
    /// Rounded at the ends of the control only; neighbours share their dividing line.
    QPainterPath shape() const
    {
        const QRectF box =
            QRectF(rect()).adjusted(m_isFirst ? 0.5 : -0.5, 0.5, m_isLast ? -0.5 : 0.5, -0.5);
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        path.addRoundedRect(box, kRadius, kRadius);
        if (!m_isFirst)
            path.addRect(QRectF(box.topLeft(), QSizeF(kRadius, box.height())));
        if (!m_isLast)
            path.addRect(box.adjusted(box.width() - kRadius, 0, 0, 0));
        return path.simplified();
    }

    const bool m_isFirst;
    const bool m_isLast;
};

} // namespace

CCNSegmentedControl::CCNSegmentedControl(const QStringList &titles, QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("CCNPreferencesToolbarSegmentedControl"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    measure(titles);
    for (qsizetype i = 0; i < titles.size(); ++i) {
        const qsizetype place = isRightToLeft() ? titles.size() - 1 - i : i;
        auto *segment = new Segment(titles[i], place == 0, place == titles.size() - 1, this);
        // One point between two segments, and one on either side of the row.
        segment->setGeometry(static_cast<int>(1 + place * (m_segmentSize.width() + 1)), 0,
                             m_segmentSize.width(), m_segmentSize.height());
        m_segments.append(segment);
        // Not its click: assistive technology turns a segment on without one.
        connect(segment, &QAbstractButton::toggled, this, [this, i](bool isOn) {
            if (isOn && !m_isSelecting)
                Q_EMIT segmentClicked(static_cast<int>(i));
        });
    }
    resize(sizeHint());
}

QString CCNSegmentedControl::label(int segment) const
{
    return m_segments.at(segment)->text();
}

int CCNSegmentedControl::selectedSegment() const
{
    const auto found = std::find_if(m_segments.begin(), m_segments.end(),
                                    [](const auto *segment) { return segment->isChecked(); });
    return found == m_segments.end() ? -1 : static_cast<int>(found - m_segments.begin());
}

void CCNSegmentedControl::setSelectedSegment(int segment)
{
    const QScopedValueRollback<bool> selecting(m_isSelecting, true);
    if (segment >= 0 && segment < m_segments.size())
        m_segments[segment]->setChecked(true);
}

QSize CCNSegmentedControl::sizeHint() const
{
    return {segmentCount() * m_segmentSize.width() + segmentCount() + 1, m_segmentSize.height()};
}

void CCNSegmentedControl::measure(const QStringList &titles)
{
    m_segmentSize = {kMinimumWidth, 0};
    const QFontMetricsF metrics(font());
    for (const QString &title : titles) {
        const qreal width = metrics.horizontalAdvance(title);
        // The height is taken only from a title that makes the segments wider.
        if (width + kHorizontalPadding > m_segmentSize.width())
            m_segmentSize = {static_cast<int>(std::ceil(width)) + kHorizontalPadding,
                             static_cast<int>(std::ceil(metrics.height())) + kVerticalPadding};
    }
}
