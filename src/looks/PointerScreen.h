#pragma once

#include <QList>
#include <QRect>

#include <optional>

class WindowSpace;

/// The screen under the pointer, where a window that is called comes up.
namespace PointerScreen {

/// Index of the first of the screens' frames that contains `point`, edges included; absent when
/// none does or the point is unknown.
std::optional<qsizetype> screenAt(const QList<QRect> &frames, const std::optional<QPoint> &point);

/// The free part of that screen, else of the main screen.
QRect visibleFrame(const WindowSpace &space);

} // namespace PointerScreen
