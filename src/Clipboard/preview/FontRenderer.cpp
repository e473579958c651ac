#include "Clipboard/preview/FontRenderer.h"

#include "Clipboard/preview/FontBody.h"
#include "Clipboard/preview/PreviewFile.h"

#include <QMimeType>
#include <QRawFont>

namespace {

constexpr qint64 kMostBytes = 40 << 20;

FontContent::Line lineOf(const QRawFont &font, const QString &text)
{
    FontContent::Line line;
    const QList<quint32> glyphs = font.glyphIndexesForString(text);
    const QList<QPointF> advances = font.advancesForGlyphIndexes(glyphs);
    qreal x = 0;
    for (qsizetype i = 0; i < qMin(glyphs.size(), advances.size()); ++i) {
        line.outline.addPath(font.pathForGlyph(glyphs.at(i)).translated(x, 0));
        x += advances.at(i).x();
    }
    line.width = qMax(x, line.outline.boundingRect().right());
    line.ascent = qBound(0.0, font.ascent(), 4 * font.pixelSize());
    line.height = qBound(font.pixelSize(), line.ascent + font.descent(), 6 * font.pixelSize());
    return line;
}

} // namespace

bool FontRenderer::accepts(const QMimeType &type) const
{
    for (const char *name : {"font/ttf", "font/otf", "font/collection"})
        if (type.inherits(QLatin1String(name)))
            return true;
    return false;
}

std::shared_ptr<const PreviewContent> FontRenderer::read(PreviewFile &file, const QMimeType &,
                                                         QSize, const PreviewStop &) const
{
    if (file.size() > kMostBytes)
        return nullptr;
    QRawFont font(file.readAll(), 40);
    if (!font.isValid())
        return nullptr;
    std::vector<FontContent::Line> lines;
    lines.push_back(lineOf(font, font.familyName()));
    const QStringList texts = {
        QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), QStringLiteral("abcdefghijklmnopqrstuvwxyz"),
        QStringLiteral("0123456789 .,;:!?&@#%()[]{}"), QStringLiteral("äöüß éèçñ åøæ ŁŽŠ")};
    font.setPixelSize(22);
    for (const QString &text : texts)
        lines.push_back(lineOf(font, text));
    // The larger, the shorter, so that each fits beside the list.
    const QString sentence = QStringLiteral("The quick brown fox jumps over the lazy dog");
    for (const auto &[size, length] : {std::pair(12, 43), {16, 43}, {24, 25}, {36, 19}}) {
        font.setPixelSize(size);
        lines.push_back(lineOf(font, sentence.left(length)));
    }
    return std::make_shared<FontContent>(font.familyName(), std::move(lines));
}

FontContent::FontContent(QString family, std::vector<Line> lines)
    : m_family(std::move(family)), m_lines(std::move(lines))
{
}

PreviewBody *FontContent::makeBody(PreviewThreads &, QWidget *parent) const
{
    return new FontBody(*this, parent);
}

qint64 FontContent::byteCount() const
{
    qint64 bytes = 0;
    for (const Line &line : m_lines)
        bytes += line.outline.elementCount() * qint64(sizeof(QPainterPath::Element));
    return bytes;
}
