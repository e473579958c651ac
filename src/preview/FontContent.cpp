#include "preview/FontContent.h"

FontContent::FontContent(QString family, std::vector<Line> lines)
    : m_family(std::move(family)), m_lines(std::move(lines))
{
}

qint64 FontContent::byteCount() const
{
    qint64 bytes = 0;
    for (const Line &line : m_lines)
        bytes += line.outline.elementCount() * qint64(sizeof(QPainterPath::Element));
    return bytes;
}
