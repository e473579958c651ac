#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>

struct ClipColors;
class QPainter;

/// What the welcome's pictures are drawn from.
namespace PictureParts {

/// A sheet of paper or a window, with its shadow.
void drawCard(QPainter &painter, const QRectF &frame, const ClipColors &colors);

/// An arrow that rises in a bow from one point to the other.
void drawArrow(QPainter &painter, const QPointF &from, const QPointF &to, const QColor &color);

} // namespace PictureParts
