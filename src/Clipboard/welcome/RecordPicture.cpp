#include "Clipboard/welcome/RecordPicture.h"

#include "looks/WindowIcons.h"

#include <QPainter>

namespace {

/// Of the picture, in points.
constexpr QSizeF kSize(580, 256);

} // namespace

void RecordPicture::paintEvent(QPaintEvent *event)
{
    WelcomeStage::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect()).center());
    if (isRightToLeft())
        painter.scale(-1, 1);
    const QPointF corner(-kSize.width() / 2, -kSize.height() / 2);
    WindowIcons::drawPicture(painter, QStringLiteral("record"), QRectF(corner, kSize), colors());
}
