#include "looks/PaneButton.h"

#include "looks/Looks.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

constexpr int kSidePadding = Looks::kTextMargin;
constexpr int kRadius = Looks::kControlRadius;

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

void PaneButton::setEmphasised(bool isEmphasised)
{
    m_isEmphasised = isEmphasised;
    update();
}

QColor PaneButton::faceColor() const
{
    if (m_isEmphasised)
        return isDown() ? m_colors.selected.darker(120)
                        : (underMouse() ? m_colors.selected.lighter(112) : m_colors.selected);
    return isDown() ? m_colors.separator
                    : (underMouse() ? m_colors.controlHover : m_colors.control);
}

QSize PaneButton::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(text()) + 2 * kSidePadding,
            fontMetrics().height() + Looks::kLinePadding};
}

void PaneButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF shape = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.setPen(hasFocus() && !m_isEmphasised ? QPen(m_colors.selected, 2)
                                                 : QPen(m_colors.separator, 1));
    painter.setBrush(faceColor());
    painter.drawRoundedRect(shape, kRadius, kRadius);
    if (hasFocus() && m_isEmphasised) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(m_colors.selectedText, 1.5));
        painter.drawRoundedRect(shape.adjusted(2, 2, -2, -2), kRadius - 1.5, kRadius - 1.5);
    }
    painter.setPen(m_isEmphasised ? m_colors.selectedText : m_colors.text);
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
