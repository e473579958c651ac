#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QRectF>
#include <QString>

struct ClipColors;
class QPainter;

/// Our own vector icons and pictures, drawn in any colour at any scale.
namespace WindowIcons {

/// The icon `name` (a file of data/icons/ without its suffix) in a square of `extent` points for a
/// screen of `scale` pixels a point. A name that does not exist is a programming error.
QPixmap pixmap(const QString &name, int extent, const QColor &color, qreal scale);

/// Draws the picture `name` of data/pictures/ in the colours of a scheme: its file names them in
/// braces. It fills `place`, which should have the shape of its view box.
void drawPicture(QPainter &painter, const QString &name, const QRectF &place,
                 const ClipColors &colors);

/// The standard picture of preferences: the desktop's own, else ours.
QIcon preferences();

} // namespace WindowIcons
