#include "Clipboard/welcome/TourPopover.h"

#include "Clipboard/welcome/TourViewController.h"
#include "looks/Looks.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QShortcut>

#include <algorithm>

namespace {

constexpr int kArrow = 11;  ///< Length of the arrow, and half the width of its foot.
constexpr int kShadow = 10; ///< Room for the shadow around the bubble.
constexpr int kPadding = 16;
constexpr int kRadius = Looks::kSurfaceRadius;
constexpr int kAway = kShadow + kArrow; ///< From our edge to the bubble's.

} // namespace

TourPopover::TourPopover(QWidget *window, TourViewController *content)
    : QWidget(window), m_window(*window), m_content(content)
{
    hide();
    content->setParent(this);
    content->move(kAway + kPadding, kAway + kPadding);
    setAccessibleName(content->title());
    connect(content, &TourViewController::nextRequested, this, &TourPopover::nextRequested);
    // Ahead of the button, which takes the arrow keys for moving on to other controls.
    const auto *onward = new QShortcut(isRightToLeft() ? Qt::Key_Left : Qt::Key_Right, this,
                                       nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    connect(onward, &QShortcut::activated, this, &TourPopover::nextRequested);
    applyTheme();
}

void TourPopover::showRelativeTo(QWidget *anchor, const QRect &part, Side side)
{
    m_anchor = anchor;
    m_part = part;
    m_side = side;
    // The list and the preview have changed places.
    if (isRightToLeft() && side != Side::Below)
        m_side = side == Side::Left ? Side::Right : Side::Left;
    anchor->installEventFilter(this);
    place();
    show();
    raise();
    m_content->focusNext();
}

void TourPopover::close()
{
    if (m_anchor)
        m_anchor->removeEventFilter(this);
    m_anchor = nullptr;
    hide();
}

bool TourPopover::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        place();
    return QWidget::eventFilter(watched, event);
}

/// Lays the arrow's tip on the middle of the anchor's edge, and keeps the bubble within the window.
void TourPopover::place()
{
    QWidget *const anchor = m_anchor;
    if (!anchor)
        return;
    const int width = m_content->minimumWidth();
    const QSize content(width, m_content->heightForWidth(width));
    m_content->resize(content);
    const int around = 2 * (kAway + kPadding);
    const QSize whole(content.width() + around, content.height() + around);
    const QRect part = m_part.isNull() ? anchor->rect() : m_part & anchor->rect();
    const QRect target(anchor->mapTo(&m_window, part.topLeft()), part.size());

    QRect place(QPoint(), whole);
    QPoint tip;
    switch (m_side) {
    case Side::Below:
        tip = QPoint(target.center().x(), target.bottom());
        place.moveTopLeft(tip - QPoint(whole.width() / 2, kShadow));
        break;
    case Side::Right:
        tip = QPoint(target.right(), target.center().y());
        place.moveTopLeft(tip - QPoint(kShadow, whole.height() / 2));
        break;
    case Side::Left:
        tip = QPoint(target.left(), target.center().y());
        place.moveTopLeft(tip - QPoint(whole.width() - kShadow, whole.height() / 2));
        break;
    }
    QRect room = m_window.rect();
    // What lies above the part that is spoken of stays in sight.
    if (m_side != Side::Below)
        room.setTop(anchor->mapTo(&m_window, QPoint()).y() - kAway);
    place.moveLeft(
        std::clamp(place.left(), room.left(), std::max(room.left(), room.right() - place.width())));
    place.moveTop(
        std::clamp(place.top(), room.top(), std::max(room.top(), room.bottom() - place.height())));
    setGeometry(place);
    m_tip = tip - place.topLeft();
    update();
}

void TourPopover::paintEvent(QPaintEvent *)
{
    const QRectF bubble = QRectF(rect()).adjusted(kAway, kAway, -kAway, -kAway);
    const auto along = [](qreal tip, qreal low, qreal high) {
        constexpr qreal kCorner = kRadius + kArrow;
        return std::clamp(tip, low + kCorner, high - kCorner);
    };
    QPainterPath arrow;
    if (m_side == Side::Below) {
        const qreal x = along(m_tip.x(), bubble.left(), bubble.right());
        arrow.addPolygon(
            QPolygonF({QPointF(x - kArrow, bubble.top() + 1), QPointF(x, bubble.top() - kArrow),
                       QPointF(x + kArrow, bubble.top() + 1)}));
    } else {
        const bool isRight = m_side == Side::Right;
        const qreal y = along(m_tip.y(), bubble.top(), bubble.bottom());
        const qreal foot = isRight ? bubble.left() + 1 : bubble.right() - 1;
        const qreal tip = isRight ? bubble.left() - kArrow : bubble.right() + kArrow;
        arrow.addPolygon(
            QPolygonF({QPointF(foot, y - kArrow), QPointF(tip, y), QPointF(foot, y + kArrow)}));
    }
    arrow.closeSubpath();
    QPainterPath shape;
    shape.addRoundedRect(bubble, kRadius, kRadius);
    shape = shape.united(arrow);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (int step = kShadow; step > 0; --step) {
        painter.setPen(
            QPen(QColor(0, 0, 0, 3), 2 * step, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(shape.translated(0, 2));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colors.selected);
    painter.drawPath(shape);
}

void TourPopover::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyTheme();
}

void TourPopover::applyTheme()
{
    m_colors = ClipColors::ofPalette(palette());
    m_content->setColors(m_colors);
    update();
}

void TourPopover::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        Q_EMIT cancelled();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT nextRequested();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}
