#include "Clipboard/window/PaneButton.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int kSidePadding = 14;
constexpr int kRadius = 5;

} // namespace

PaneButton::PaneButton(const QString &text, QWidget *parent) : QPushButton(text, parent)
{
    setAccessibleName(text);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
}

void PaneButton::setColors(const ClipColors &colors)
{
    m_colors = colors;
    update();
}

QSize PaneButton::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * kSidePadding,
            fontMetrics().height() + 12};
}

void PaneButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF shape = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.setPen(hasFocus() ? QPen(m_colors.selected, 2) : QPen(m_colors.separator, 1));
    painter.setBrush(isDown() ? m_colors.separator
                              : (underMouse() ? m_colors.controlHover : m_colors.control));
    painter.drawRoundedRect(shape, kRadius, kRadius);
    painter.setPen(m_colors.text);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideRight, width() - kSidePadding));
}

void PaneButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}
