#include "platform/PointerScreen.h"

#include "platform/WindowSpace.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

std::optional<qsizetype> PointerScreen::screenAt(const QList<QRect> &frames,
                                                 const std::optional<QPoint> &point)
{
    if (!point)
        return std::nullopt;
    // Both edges belong to a frame, so a point between two screens is the first one's.
    const auto found = std::find_if(frames.begin(), frames.end(), [&](const QRect &frame) {
        return frame.adjusted(0, 0, 1, 1).contains(*point);
    });
    return found == frames.end() ? std::nullopt : std::optional<qsizetype>(found - frames.begin());
}

QRect PointerScreen::visibleFrame(const WindowSpace &space)
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    QList<QRect> frames;
    for (const QScreen *screen : screens)
        frames.append(screen->geometry());
    const std::optional<qsizetype> index = screenAt(frames, space.pointerPosition());
    const QScreen *screen = index ? screens.at(*index) : QGuiApplication::primaryScreen();
    return screen ? space.visibleFrame(*screen) : QRect();
}

QRect PointerScreen::utilityFrame(const QRect &visibleFrame, const QSize &size)
{
    const double x = visibleFrame.x() + (visibleFrame.width() - size.width()) * 0.5;
    const double y = visibleFrame.y() + (visibleFrame.height() - size.height()) / 3.0;
    return {QPoint(qRound(x), qRound(y)), size};
}
