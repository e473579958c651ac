#include "platform/richtext/RtfWriter.h"

#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

namespace {

constexpr int kMaxColours = 250;
constexpr int kTwipsAPixel = 15;
constexpr int kWidthOfTable = 9000;
constexpr int kMinWidth = 300;
constexpr int kUsualHalfPoints = 24;
constexpr int kHeadingHalfPoints[] = {48, 36, 28, 24, 20, 16};
/// As word processors show links.
constexpr QRgb kLinkColour = qRgb(0x05, 0x63, 0xC1);

QByteArray word(const char *name, int number)
{
    return name + QByteArray::number(number);
}

/// The size of text in half points.
int halfPoints(const QTextCharFormat &format)
{
    if (format.hasProperty(QTextFormat::FontPointSize))
        return static_cast<int>(std::lround(format.fontPointSize() * 2));
    static constexpr int kSizes[] = {16, 20, 24, 28, 36, 48, 60};
    const int step = format.intProperty(QTextFormat::FontSizeAdjustment);
    return kSizes[std::clamp(step + 2, 0, int(std::size(kSizes)) - 1)];
}

/// What is white like paper needs no ground.
bool isPaper(QRgb colour)
{
    return std::min({qRed(colour), qGreen(colour), qBlue(colour)}) >= 0xF8;
}

QByteArray alignmentWord(const QTextBlockFormat &format)
{
    if (!format.hasProperty(QTextFormat::BlockAlignment))
        return {};
    const Qt::Alignment alignment = format.alignment();
    if (alignment & Qt::AlignHCenter)
        return "\\qc";
    if (alignment & Qt::AlignRight)
        return "\\qr";
    return alignment & Qt::AlignJustify ? QByteArray("\\qj") : QByteArray();
}

/// The toolkit has empty paragraphs around a table that stand in no source.
bool isBesideTable(QTextFrame::iterator piece)
{
    if (piece.currentBlock().length() > 1)
        return false;
    QTextFrame::iterator next = piece;
    ++next;
    QTextFrame::iterator previous = piece;
    --previous;
    return next.currentFrame() || previous.currentFrame();
}

/// What stands for a character that RTF has markup for, or that is none.
struct Special
{
    QByteArray markup;
    bool isWord;
};

std::optional<Special> specialOf(char16_t character)
{
    switch (character) {
    case QChar::LineSeparator:
    case QChar::ParagraphSeparator:
        return Special{"\\line", true};
    case QChar::Tabulation:
        return Special{"\\tab", true};
    case QChar::Nbsp:
        return Special{"\\~", false};
    case QChar::SoftHyphen:
        return Special{"\\-", false};
    case QChar::ObjectReplacementCharacter:
        return Special{{}, false};
    default:
        return character < 0x20 ? std::optional(Special{{}, false}) : std::nullopt;
    }
}

/// Mails are laid out in tables of one column, which the tables in them are worth more than.
bool isFrameOnly(const QTextTable &table)
{
    return table.columns() == 1 && !table.childFrames().isEmpty();
}

bool isFixed(const QTextCharFormat &format)
{
    const QStringList families = format.fontFamilies().toStringList();
    return format.fontFixedPitch() || families.contains(QStringLiteral("monospace"));
}

} // namespace

void RtfWriter::write(const QTextDocument &document)
{
    // Said once more than needed: for some scripts readers have another usual size.
    m_body.addWord("\\pard\\plain\\fs24");
    writeFrame(document.rootFrame()->begin(), Place::Page);
}

void RtfWriter::writeFrame(QTextFrame::iterator begin, Place place)
{
    for (QTextFrame::iterator piece = begin; !piece.atEnd(); ++piece) {
        const QTextFrame *frame = piece.currentFrame();
        if (!frame && !isBesideTable(piece))
            writeBlock(piece.currentBlock(), place);
        else if (!frame)
            continue;
        else if (const auto *table = qobject_cast<const QTextTable *>(frame))
            writeTable(*table, place);
        else
            writeFrame(frame->begin(), place);
    }
}

void RtfWriter::writeBlock(const QTextBlock &block, Place place)
{
    if (!m_isFirst)
        m_body.addWord("\\par");
    m_isFirst = false;
    const QByteArray words = paragraphWords(block, place);
    if (words != m_paragraphWords) {
        m_body.addWord("\\pard" + words);
        m_paragraphWords = words;
    }
    if (const QTextList *list = block.textList()) {
        m_body.addRaw("{\\listtext ");
        m_body.addText(RtfLists::marker(*list, block));
        m_body.addWord("\\tab");
        m_body.addRaw("}");
    }
    writeText(block);
}

void RtfWriter::writeTable(const QTextTable &table, Place place)
{
    if (place == Place::Page && isFrameOnly(table)) {
        for (int row = 0; row < table.rows(); ++row)
            writeFrame(table.cellAt(row, 0).begin(), place);
        return;
    }
    if (place == Place::Page) {
        if (!m_isFirst)
            m_body.addWord("\\par");
        m_rowWords.clear();
        for (int row = 0; row < table.rows(); ++row)
            writeRow(table, row);
        m_body.addWord("\\pard");
        m_paragraphWords.clear();
        m_isFirst = true;
        return;
    }
    for (int row = 0; row < table.rows(); ++row)
        for (int column = 0; column < table.columns(); ++column)
            if (const QTextTableCell cell = table.cellAt(row, column);
                cell.row() == row && cell.column() == column)
                writeFrame(cell.begin(), place);
}

void RtfWriter::writeRow(const QTextTable &table, int row)
{
    const int width = std::max(kWidthOfTable / std::max(table.columns(), 1), kMinWidth);
    const QByteArray border = table.format().border() > 0
                                  ? QByteArray("\\clbrdrt\\brdrs\\clbrdrl\\brdrs"
                                               "\\clbrdrb\\brdrs\\clbrdrr\\brdrs")
                                  : QByteArray();
    QByteArray words("\\trowd\\trgaph108");
    QList<QTextTableCell> cells;
    for (int column = 0; column < table.columns();) {
        const QTextTableCell cell = table.cellAt(row, column);
        if (cell.rowSpan() > 1)
            words += cell.row() == row ? "\\clvmgf" : "\\clvmrg";
        column = cell.column() + std::max(cell.columnSpan(), 1);
        words += border + word("\\cellx", width * column);
        cells.append(cell);
    }
    // They hold until others are said.
    if (words != m_rowWords)
        m_body.addWord(words);
    m_rowWords = words;
    for (const QTextTableCell &cell : std::as_const(cells)) {
        m_isFirst = true;
        if (cell.row() == row)
            writeFrame(cell.begin(), Place::Cell);
        m_body.addWord("\\cell");
    }
    m_body.addWord("\\row");
    m_body.addRaw("\n");
}

QByteArray RtfWriter::paragraphWords(const QTextBlock &block, Place place)
{
    const QTextBlockFormat format = block.blockFormat();
    QByteArray words(place == Place::Cell ? "\\intbl" : "");
    if (const int level = std::min(format.headingLevel(), 6); level > 0) {
        m_headings.insert(level);
        words += word("\\s", level) + word("\\outlinelevel", level - 1);
    } else if (!m_headings.isEmpty()) {
        // \pard should say so, but there are readers to which the heading goes on.
        words += "\\s0";
    }
    if (const QTextList *list = block.textList()) {
        // The table of lists has their indents.
        words += word("\\ls", m_lists.numberOf(*list)) + word("\\ilvl", RtfLists::levelOf(*list));
    } else if (const int space = std::clamp(int(format.leftMargin()), 0, 400); space > 0) {
        words += word("\\li", space * kTwipsAPixel);
    }
    if (format.layoutDirection() == Qt::RightToLeft)
        words += "\\rtlpar";
    if (format.hasProperty(QTextFormat::BlockTrailingHorizontalRulerWidth))
        words += "\\brdrb\\brdrs\\brdrw10";
    // Between the items of a list the last one's would be another paragraph's.
    if (const int space = std::clamp(int(format.bottomMargin()), 0, 40);
        space > 0 && !block.textList())
        words += word("\\sa", space * kTwipsAPixel);
    return words + alignmentWord(format);
}

QByteArray RtfWriter::characterWords(const QTextCharFormat &format, bool isHeading)
{
    QByteArray words;
    if (isFixed(format))
        words += "\\f1";
    if (format.fontWeight() >= QFont::DemiBold)
        words += "\\b";
    if (format.fontItalic())
        words += "\\i";
    const bool isLink = !format.anchorHref().isEmpty();
    if (format.fontUnderline() || isLink)
        words += "\\ul";
    if (format.fontStrikeOut())
        words += "\\strike";
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        words += "\\super";
    else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        words += "\\sub";
    const int size = halfPoints(format);
    if (size != kUsualHalfPoints || isHeading)
        words += word("\\fs", size);
    if (format.foreground().style() == Qt::SolidPattern)
        words += word("\\cf", colourNumber(format.foreground().color().rgb()));
    else if (isLink)
        words += word("\\cf", colourNumber(kLinkColour));
    if (format.background().style() == Qt::SolidPattern &&
        !isPaper(format.background().color().rgb())) {
        const int number = colourNumber(format.background().color().rgb());
        words += word("\\chcbpat", number) + word("\\cb", number);
    }
    return words;
}

QByteArray RtfWriter::linkStart(const QString &address) const
{
    // In ASCII, and without what RTF or the quotes mean something by.
    QByteArray escaped;
    for (const char byte : address.toUtf8()) {
        const bool isPlain = byte > ' ' && byte < 0x7F && !QByteArray("\\{}\"").contains(byte);
        escaped += isPlain ? QByteArray(1, byte) : '%' + QByteArray(1, byte).toHex().toUpper();
    }
    return "{\\field{\\*\\fldinst HYPERLINK \"" + escaped + "\"}{\\fldrslt ";
}

void RtfWriter::writeText(const QTextBlock &block)
{
    const bool isHeading = block.blockFormat().headingLevel() > 0;
    QByteArray words;
    QString address;
    const auto endWords = [&] {
        if (!words.isEmpty())
            m_body.addRaw("}");
        words.clear();
    };
    const auto endLink = [&] {
        if (!address.isEmpty())
            m_body.addRaw("}}");
        address.clear();
    };
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
        const QTextFragment fragment = piece.fragment();
        const QTextCharFormat format = fragment.charFormat();
        const QByteArray next = characterWords(format, isHeading);
        const bool isOtherLink = format.anchorHref() != address;
        if (isOtherLink || next != words)
            endWords();
        if (isOtherLink) {
            endLink();
            address = format.anchorHref();
            if (!address.isEmpty())
                m_body.addRaw(linkStart(address));
        }
        if (words.isEmpty() && !next.isEmpty()) {
            m_body.addRaw("{");
            m_body.addWord(next);
            words = next;
        }
        writeFragment(fragment.text());
    }
    endWords();
    endLink();
}

void RtfWriter::writeFragment(QStringView text)
{
    qsizetype start = 0;
    for (qsizetype place = 0; place < text.size(); ++place) {
        const std::optional<Special> special = specialOf(text[place].unicode());
        if (!special)
            continue;
        m_body.addText(text.sliced(start, place - start));
        start = place + 1;
        if (special->isWord)
            m_body.addWord(special->markup);
        else
            m_body.addRaw(special->markup);
    }
    m_body.addText(text.sliced(start));
}

int RtfWriter::colourNumber(QRgb colour)
{
    // 0 is the reader's own.
    const qsizetype known = m_colours.indexOf(colour);
    if (known >= 0)
        return static_cast<int>(known) + 1;
    if (m_colours.size() >= kMaxColours)
        return 0;
    m_colours.append(colour);
    return static_cast<int>(m_colours.size());
}

QByteArray RtfWriter::tables() const
{
    const QByteArray charset = QByteArray::number(CodePage::fontCharsetOf(m_body.codePage()));
    QByteArray tables = "{\\fonttbl{\\f0\\fswiss\\fcharset" + charset +
                        " Arial;}{\\f1\\fmodern\\fcharset" + charset + " Courier New;}}";
    if (!m_colours.isEmpty()) {
        tables += "{\\colortbl;";
        for (const QRgb colour : m_colours)
            tables += word("\\red", qRed(colour)) + word("\\green", qGreen(colour)) +
                      word("\\blue", qBlue(colour)) + ';';
        tables += '}';
    }
    tables += "{\\stylesheet{\\fs24 Normal;}";
    QList<int> levels = m_headings.values();
    std::sort(levels.begin(), levels.end());
    for (const int level : levels)
        tables += word("{\\s", level) + word("\\outlinelevel", level - 1) + "\\b" +
                  word("\\fs", kHeadingHalfPoints[level - 1]) + word(" Heading ", level) + ";}";
    return tables + '}' + m_lists.tables();
}
