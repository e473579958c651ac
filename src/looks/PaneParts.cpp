#include "looks/PaneParts.h"

#include "looks/Looks.h"

#include <QPainter>
#include <QStyle>

namespace {

constexpr float kNoteOpacity = 0.7F;
constexpr float kLineOpacity = 0.15F;

} // namespace

QLabel *makeWrappedLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

PaneNote::PaneNote(const QString &text, QWidget *parent) : QLabel(text, parent)
{
    setFont(Looks::scaled(font(), Looks::kSmallScale));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

void PaneNote::setEmphasised(bool isEmphasised)
{
    m_isEmphasised = isEmphasised;
    QFont changed = font();
    changed.setBold(isEmphasised);
    setFont(changed);
    update();
}

void PaneNote::paintEvent(QPaintEvent *)
{
    // Dimmed while painting and not in the palette, so that it follows a change of the colours.
    QColor colour = palette().color(QPalette::WindowText);
    if (!m_isEmphasised)
        colour.setAlphaF(kNoteOpacity);
    QPainter painter(this);
    painter.setPen(colour);
    const int wrap = wordWrap() ? Qt::TextWordWrap : 0;
    painter.drawText(
        contentsRect(),
        static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())) | wrap, text());
}

PaneSeparator::PaneSeparator(QWidget *parent) : QWidget(parent)
{
    setFixedHeight(1);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void PaneSeparator::paintEvent(QPaintEvent *)
{
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(kLineOpacity);
    QPainter(this).fillRect(rect(), line);
}
