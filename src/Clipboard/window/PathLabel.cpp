#include "Clipboard/window/PathLabel.h"

#include <QPainter>

#include <algorithm>

PathLabel::PathLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void PathLabel::setPath(const QString &path)
{
    setText(path);
    // Plain text in a tool tip would be taken for markup when it looks like it.
    setToolTip(QStringLiteral("<span>%1</span>").arg(path.toHtmlEscaped()));
}

QSize PathLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void PathLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    // A line break in a file's name must not break the line.
    QString line = text();
    std::replace_if(
        line.begin(), line.end(), [](QChar c) { return c.isSpace() || !c.isPrint(); }, QChar(u' '));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(line, Qt::ElideMiddle, width()));
}
