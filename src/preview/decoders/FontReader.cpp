#include "preview/decoders/FontReader.h"

#include "preview/FontContent.h"
#include "preview/PreviewFile.h"

#include <QRawFont>

#include <algorithm>

namespace {

constexpr qint64 kMaxBytes = 40 << 20;

FontContent::Line lineOf(const QRawFont &font, QString text)
{
    FontContent::Line line;
    text.removeIf([&font](QChar c) { return !c.isSurrogate() && !font.supportsCharacter(c); });
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

std::vector<FontContent::Line> latinLines(QRawFont &font)
{
    std::vector<FontContent::Line> lines{lineOf(font, font.familyName())};
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
    return lines;
}

/// Of a font for other scripts or for icons: the first characters that it has.
std::vector<FontContent::Line> otherLines(QRawFont &font)
{
    constexpr char32_t kFirst = 0xA1; ///< Almost every font has those below.
    constexpr qsizetype kRow = 12;
    constexpr size_t kRows = 7;
    std::vector<FontContent::Line> lines;
    QString row;
    font.setPixelSize(28);
    for (char32_t character = kFirst;
         character <= QChar::LastValidCodePoint && lines.size() < kRows; ++character) {
        if (QChar::isPrint(character) && !QChar::isMark(character) && !QChar::isSpace(character) &&
            font.supportsCharacter(character))
            row += QChar::fromUcs4(character);
        if (row.size() >= kRow || (character == QChar::LastValidCodePoint && !row.isEmpty())) {
            lines.push_back(lineOf(font, row));
            row.clear();
        }
    }
    return lines;
}

} // namespace

bool FontReader::accepts(const PreviewType &type) const
{
    for (const char *name : {"font/ttf", "font/otf", "font/collection", "font/woff", "font/woff2"})
        if (type.inherits(QLatin1String(name)))
            return true;
    return false;
}

std::shared_ptr<const PreviewContent> FontReader::read(PreviewFile &file, const PreviewType &,
                                                       QSize, const Patience &) const
{
    if (file.size() > kMaxBytes)
        return nullptr;
    QRawFont font(file.readAll(), 40);
    if (!font.isValid())
        return nullptr;
    std::vector<FontContent::Line> lines =
        font.supportsCharacter(QChar(u'a')) ? latinLines(font) : otherLines(font);
    // One line of letters as fine as lace can be more than is painted in a moment.
    qsizetype elements = 0;
    const auto tooMany = std::find_if(lines.begin(), lines.end(), [&elements](const auto &line) {
        return (elements += line.outline.elementCount()) > FontContent::kMaxElements;
    });
    lines.erase(tooMany, lines.end());
    if (lines.empty())
        return nullptr;
    return std::make_shared<FontContent>(font.familyName(), std::move(lines));
}
