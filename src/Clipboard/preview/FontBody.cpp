#include "Clipboard/preview/FontBody.h"

#include <QPainter>

namespace {

constexpr int kMargin = 18;
constexpr int kGap = 6;

} // namespace

FontBody::FontBody(const FontContent &content, QWidget *parent)
    : PreviewBody(parent), m_lines(content.lines())
{
    setAccessibleName(tr("Specimen of the font %1").arg(content.family()));
}

void FontBody::setColors(const ClipColors &colors)
{
    m_colors = colors;
    update();
}

void FontBody::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    qreal y = kMargin;
    for (const FontContent::Line &line : m_lines) {
        // A line that is too long for the view becomes smaller as a whole.
        const qreal scale = qMin(1.0, (width() - 2 * kMargin) / qMax(1.0, line.width));
        painter.save();
        painter.translate(kMargin, y + line.ascent * scale);
        painter.scale(scale, scale);
        painter.fillPath(line.outline, m_colors.text);
        painter.restore();
        y += line.height * scale + kGap;
    }
}
