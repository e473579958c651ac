#include "Clipboard/window/ClipboardView.h"

#include "Clipboard/window/ClipboardWindow.h"

#include <QPainter>

ClipboardView::ClipboardView(QWidget *parent) : QWidget(parent) {}

void ClipboardView::setColors(const ClipColors &colors)
{
    m_colors = colors;
    update();
}

void ClipboardView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colors.panel);
    painter.drawRoundedRect(rect(), ClipboardWindow::kCornerRadius, ClipboardWindow::kCornerRadius);
}

void ClipboardView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Q_EMIT resized();
}
