#pragma once

#include <QList>
#include <QRect>
#include <QSize>

#include <optional>

class WindowSpace;

/// The screen under the pointer, where a window that is called comes up.
namespace PointerScreen {

/// Index of the first of the screens' frames that contains `point`, edges included; absent when
/// none does or the point is unknown.
std::optional<qsizetype> screenAt(const QList<QRect> &frames, const std::optional<QPoint> &point);

/// The free part of that screen, else of the main screen.
QRect visibleFrame(const WindowSpace &space);

/// Where a utility window of `size` stands on a screen whose free part is `visibleFrame`: centred
/// horizontally, with one third of the free height above it.
QRect utilityFrame(const QRect &visibleFrame, const QSize &size);

} // namespace PointerScreen
