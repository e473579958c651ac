#include "Clipboard/window/NoticeLine.h"

#include "looks/Looks.h"

#include <QAccessible>
#include <QApplication>
#include <QPainter>

namespace {

constexpr int kMargin = Looks::kTextMargin;
/// Of the colour that marks selections, on the window's ground.
constexpr qreal kTint = 0.14;

} // namespace

NoticeLine::NoticeLine(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("noticeLine"));
    hide();
}

void NoticeLine::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    setAccessibleName(text);
    setVisible(!text.isEmpty());
    update();
    if (!text.isEmpty()) {
        // The keyboard is in the search field, so nobody would come across the line.
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

void NoticeLine::setColors(const ClipColors &colors)
{
    m_colors = colors;
    setFont(Looks::scaled(QApplication::font(), Looks::kSmallScale));
    setFixedHeight(fontMetrics().height() + Looks::kLinePadding);
    update();
}

void NoticeLine::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), ClipColors::mixed(m_colors.panel, m_colors.selected, kTint));
    painter.fillRect(0, height() - 1, width(), 1, m_colors.separator);
    painter.setPen(m_colors.text);
    const QRect line = rect().adjusted(kMargin, 0, -kMargin, -1);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(m_text, Qt::ElideRight, line.width()));
}
