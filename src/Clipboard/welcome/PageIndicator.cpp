#include "Clipboard/welcome/PageIndicator.h"

#include <QPainter>

PageIndicator::PageIndicator(const QString &name, QWidget *parent) : QAbstractButton(parent)
{
    setAccessibleName(name);
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFixedSize(PageIndicator::sizeHint());
}

void PageIndicator::setColors(const ClipColors &colors)
{
    m_colors = colors;
    update();
}

void PageIndicator::paintEvent(QPaintEvent *)
{
    QColor colour = m_colors.selected;
    if (!isChecked()) {
        colour = m_colors.quietText;
        colour.setAlphaF(0.75F); // as much as a sign needs to be told from its ground
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(rect());
}
