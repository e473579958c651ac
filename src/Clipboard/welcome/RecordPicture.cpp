#include "Clipboard/welcome/RecordPicture.h"

#include "Clipboard/welcome/PictureParts.h"

#include <QPainter>

#include <array>

namespace {

// The picture is drawn around its middle, in points.
constexpr QSizeF kSource(104, 72);
constexpr QRectF kHistory(-92, -84, 184, 172);
constexpr QRectF kTarget(154, -58, 116, 126);
constexpr std::array<qreal, 4> kWriting{70, 82, 54, 66};

QColor faded(QColor color)
{
    color.setAlphaF(0.35F);
    return color;
}

} // namespace

void RecordPicture::paintEvent(QPaintEvent *event)
{
    WelcomeStage::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    if (isRightToLeft())
        painter.scale(-1, 1);
    drawSource(painter, {-212, -44}, -6, 1);
    drawSource(painter, {-206, 54}, 5, 2);
    drawTarget(painter);
    drawHistory(painter);
    PictureParts::drawArrow(painter, {-150, -54}, {-100, -46}, colors().selected);
    PictureParts::drawArrow(painter, {-144, 56}, {-100, 34}, colors().selected);
    PictureParts::drawArrow(painter, {100, -28}, {150, -20}, colors().selected);
}

void RecordPicture::drawSource(QPainter &painter, const QPointF &centre, qreal degrees,
                               int marked) const
{
    painter.save();
    painter.translate(centre);
    painter.rotate(degrees);
    const QRectF frame(QPointF(-kSource.width() / 2, -kSource.height() / 2), kSource);
    PictureParts::drawCard(painter, frame, colors());
    for (int line = 0; line < 4; ++line)
        PictureParts::drawWriting(painter, frame.topLeft() + QPointF(14, 16 + 13 * line),
                                  kWriting[static_cast<size_t>(line)],
                                  line == marked ? colors().selected : faded(colors().quietText));
    painter.restore();
}

void RecordPicture::drawHistory(QPainter &painter) const
{
    PictureParts::drawCard(painter, kHistory, colors());
    const QPointF lens = kHistory.topLeft() + QPointF(17, 16);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colors().quietText, 1.8, Qt::SolidLine, Qt::RoundCap));
    painter.drawEllipse(lens, 4.2, 4.2);
    painter.drawLine(lens + QPointF(3.2, 3.2), lens + QPointF(6.5, 6.5));
    PictureParts::drawWriting(painter, lens + QPointF(16, 1), 44, faded(colors().quietText));

    constexpr qreal kRow = 27;
    for (int row = 0; row < 5; ++row) {
        const QRectF place(kHistory.left() + 1, kHistory.top() + 33 + kRow * row,
                           kHistory.width() - 2, kRow);
        const bool isSelected = row == 1;
        if (isSelected)
            painter.fillRect(place, colors().selected);
        const QColor ink = isSelected ? colors().selectedText : faded(colors().quietText);
        const QPointF start = place.topLeft() + QPointF(17, kRow / 2);
        PictureParts::drawWriting(painter, start, 2, ink);
        PictureParts::drawWriting(painter, start + QPointF(17, 0),
                                  1.5 * kWriting[static_cast<size_t>(row) % kWriting.size()], ink);
    }
}

void RecordPicture::drawTarget(QPainter &painter) const
{
    PictureParts::drawCard(painter, kTarget, colors());
    for (int line = 0; line < 7; ++line)
        PictureParts::drawWriting(painter, kTarget.topLeft() + QPointF(16, 18 + 15 * line),
                                  kWriting[static_cast<size_t>(line + 1) % kWriting.size()],
                                  line == 2 ? colors().selected : faded(colors().quietText));
}
