#include "Clipboard/welcome/PictureParts.h"

#include "looks/ClipColors.h"
#include "looks/Looks.h"

#include <QLineF>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr qreal kRadius = Looks::kControlRadius;
constexpr int kShadowSteps = 6;
constexpr qreal kBow = 18; ///< Points that an arrow rises above its straight line.
constexpr qreal kHead = 7; ///< Points of an arrow head's sides.

} // namespace

void PictureParts::drawCard(QPainter &painter, const QRectF &frame, const ClipColors &colors)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, colors.isDark ? 16 : 4));
    for (int step = kShadowSteps; step > 0; --step)
        painter.drawRoundedRect(frame.adjusted(-step, 1 - step, step, step + 3), kRadius + step,
                                kRadius + step);
    painter.setBrush(colors.paper);
    painter.setPen(QPen(colors.separator, 1));
    painter.drawRoundedRect(frame, kRadius, kRadius);
}

void PictureParts::drawArrow(QPainter &painter, const QPointF &from, const QPointF &to,
                             const QColor &color)
{
    const QPointF bend = (from + to) / 2 - QPointF(0, kBow);
    QPainterPath path(from);
    path.quadTo(bend, to);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(path);

    QLineF side(to, bend);
    side.setLength(kHead);
    const qreal angle = side.angle();
    QPainterPath head;
    side.setAngle(angle + 36);
    head.moveTo(side.p2());
    head.lineTo(to);
    side.setAngle(angle - 36);
    head.lineTo(side.p2());
    painter.drawPath(head);
}
