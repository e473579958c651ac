#include "updates/QuietLabel.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr qreal kScale = 0.9;
constexpr float kOpacity = 0.7F;

} // namespace

QuietLabel::QuietLabel(const QString &text, QWidget *parent) : QLabel(text, parent)
{
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * kScale);
    setFont(small);
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void QuietLabel::paintEvent(QPaintEvent *)
{
    // Dimmed while painting and not in the palette, so that it follows a change of the colours.
    QColor colour = palette().color(QPalette::WindowText);
    colour.setAlphaF(kOpacity);
    QPainter painter(this);
    painter.setPen(colour);
    painter.drawText(contentsRect(),
                     static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())) |
                         Qt::TextWordWrap,
                     text());
}
