#include "platform/wayland/PlainWindowSpace.h"

#include "platform/PointerScreen.h"

#include <QScreen>

#include <utility>

PlainWindowSpace::PlainWindowSpace(std::function<bool()> areAnimationsWanted, QObject *parent)
    : WindowSpace(parent), m_areAnimationsWanted(std::move(areAnimationsWanted))
{
}

QRect PlainWindowSpace::visibleFrame(const QScreen &screen) const
{
    return screen.availableGeometry();
}

QRect PlainWindowSpace::placeUtilityWindow(QWindow *, const QSize &size, const QMargins &)
{
    return PointerScreen::utilityFrame(PointerScreen::visibleFrame(*this), size);
}
