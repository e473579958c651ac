#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

/// Our own vector icons, drawn in any colour at any scale.
namespace WindowIcons {

/// The icon `name` (a file of data/icons/ without its suffix) in a square of `extent` points for a
/// screen of `scale` pixels a point. A name that does not exist is a programming error.
QPixmap pixmap(const QString &name, int extent, const QColor &color, qreal scale);

/// The standard picture of preferences: the desktop's own, else ours.
QIcon preferences();

} // namespace WindowIcons
