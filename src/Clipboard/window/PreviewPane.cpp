#include "Clipboard/window/PreviewPane.h"

#include "Clipboard/window/ClipInfoLine.h"
#include "Clipboard/window/ClipTextView.h"
#include "Clipboard/window/ClipboardWindow.h"

#include <QPainter>

PreviewPane::PreviewPane(Clock &clock, QWidget *parent)
    : QWidget(parent), m_textView(new ClipTextView(this)), m_infoLine(new ClipInfoLine(clock, this))
{
}

void PreviewPane::setColors(const ClipColors &colors)
{
    m_colors = colors;
    m_textView->setColors(colors);
    m_infoLine->setColors(colors);
    update();
}

void PreviewPane::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_colors.paper);
    // Of the window's round corners only the one below at the outer side lies here.
    constexpr int kRadius = ClipboardWindow::kCornerRadius;
    painter.setClipRect(rect());
    const int left = isRightToLeft() ? 0 : -kRadius;
    const int right = isRightToLeft() ? kRadius : 0;
    painter.drawRoundedRect(rect().adjusted(left, -kRadius, right, 0), kRadius, kRadius);
}

void PreviewPane::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const int lineHeight = m_infoLine->sizeHint().height();
    m_textView->setGeometry(0, 0, width(), height() - lineHeight);
    m_infoLine->setGeometry(0, height() - lineHeight, width(), lineHeight);
    Q_EMIT resized();
}
