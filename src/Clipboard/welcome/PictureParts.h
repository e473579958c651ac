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

/// A line of writing too small to read, its left end at `start`.
void drawWriting(QPainter &painter, const QPointF &start, qreal width, const QColor &color);

/// An arrow that rises in a bow from one point to the other.
void drawArrow(QPainter &painter, const QPointF &from, const QPointF &to, const QColor &color);

} // namespace PictureParts
