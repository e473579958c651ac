#include "Clipboard/window/PathLabel.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace {

constexpr int kInnerMargin = 2; ///< That a line edit keeps beside its text.

} // namespace

PathLabel::PathLabel(QWidget *parent) : QLineEdit(parent)
{
    setReadOnly(true);
    setFrame(false);
    setFocusPolicy(Qt::ClickFocus);
    setTextMargins(-kInnerMargin, 0, 0, 0);
    setAccessibleName(tr("Path of the file"));
}

void PathLabel::setPath(const QString &path)
{
    setText(path);
    setCursorPosition(0);
    // Plain text in a tool tip would be taken for markup when it looks like it.
    setToolTip(QStringLiteral("<span>%1</span>").arg(path.toHtmlEscaped()));
}

void PathLabel::focusInEvent(QFocusEvent *event)
{
    QLineEdit::focusInEvent(event);
    m_isEntered = true;
}

void PathLabel::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    deselect();
    setCursorPosition(0);
}

void PathLabel::mouseReleaseEvent(QMouseEvent *event)
{
    QLineEdit::mouseReleaseEvent(event);
    // Whoever drags wants a part; a mere click is for the whole.
    if (std::exchange(m_isEntered, false) && !hasSelectedText())
        selectAll();
}

void PathLabel::paintEvent(QPaintEvent *event)
{
    if (hasFocus()) {
        QLineEdit::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    // A line break in a file's name must not break the line.
    QString line = text();
    std::replace_if(
        line.begin(), line.end(), [](QChar c) { return c.isSpace() || !c.isPrint(); }, QChar(u' '));
    const Qt::Alignment side = isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft;
    painter.setLayoutDirection(Qt::LeftToRight); // of the path, in every language
    painter.drawText(rect(), side | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(line, Qt::ElideMiddle, width()));
}
