#include "Clipboard/window/RichTextLooks.h"

#include "Clipboard/window/VisibleCharacters.h"
#include "looks/Looks.h"

#include <QFontMetricsF>
#include <QHash>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

#include <algorithm>
#include <array>
#include <vector>

namespace {

/// The format that a fitted one stands in for.
constexpr int kCopiedFormat = QTextFormat::UserProperty + 2;

constexpr double kUsualPoints = 12; ///< Of a page's text that has no size.

// Parts of the font's height
constexpr double kIndent = 1.4;
constexpr double kParagraphGap = 0.5;
constexpr double kItemGap = 0.15;
constexpr double kGapBeforeHeading = 0.9;
constexpr double kGapAfterHeading = 0.35;
constexpr double kCellPadding = 0.2;

constexpr std::array kHeadingScales{Looks::kHeadlineScale, Looks::kLargeScale, 1.15, 1.0, 1.0,
                                    Looks::kSmallScale};

struct Piece
{
    int start;
    int end;
    QTextCharFormat format;
};

template <typename Format>
Format remembering(Format fitted, const Format &copied)
{
    if (fitted != copied)
        fitted.setProperty(kCopiedFormat, QVariant::fromValue<QTextFormat>(copied));
    return fitted;
}

/// How much a page's size differs from that of most of its text, in the classes that are shown.
double scaleOf(double ratio)
{
    if (ratio < 0.9)
        return Looks::kSmallScale;
    if (ratio < 1.12)
        return 1;
    if (ratio < 1.3)
        return 1.15;
    return ratio < 1.7 ? Looks::kLargeScale : Looks::kHeadlineScale;
}

bool hasPoints(const QTextCharFormat &format)
{
    return format.hasProperty(QTextFormat::FontPointSize) && format.fontPointSize() > 0;
}

bool isNeutral(const QColor &color)
{
    constexpr int kMaxChroma = 24;
    const auto [least, most] = std::minmax({color.red(), color.green(), color.blue()});
    return most - least < kMaxChroma;
}

/// The copied colour where it can be read, else as dark as it was light, and more if need be.
QColor readable(const QColor &color, const QColor &ground)
{
    if (ClipColors::contrast(color, ground) >= ClipColors::kMinContrast)
        return color;
    const QColor shown = color.toHsl();
    const QColor mirrored =
        QColor::fromHsl(shown.hslHue(), shown.hslSaturation(), 255 - shown.lightness());
    return ClipColors::readable(ClipColors::contrast(mirrored, ground) >
                                        ClipColors::contrast(color, ground)
                                    ? mirrored.toRgb()
                                    : color,
                                ground);
}

template <typename Operation>
void forEachCell(const QTextTable &table, Operation operation)
{
    for (int row = 0; row < table.rows(); ++row)
        for (int column = 0; column < table.columns(); ++column)
            // One that spans several places is at each of them.
            if (QTextTableCell cell = table.cellAt(row, column);
                cell.row() == row && cell.column() == column)
                operation(cell);
}

class Fitting
{
public:
    Fitting(QTextDocument &document, const RichTextLooks &looks)
        : m_document(document), m_looks(looks), m_cursor(&document),
          m_height(QFontMetricsF(looks.font).height())
    {
    }

    void fit()
    {
        m_usualPoints = usualPoints();
        m_cursor.beginEditBlock();
        for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next()) {
            fitBlock(block);
            fitText(block);
        }
        fitFrames(*m_document.rootFrame());
        m_cursor.endEditBlock();
    }

private:
    /// The size that most characters have which are no headings.
    double usualPoints() const
    {
        QHash<int, int> characters; // by half points
        for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next()) {
            if (block.blockFormat().headingLevel() > 0)
                continue;
            for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
                const QTextCharFormat format = piece.fragment().charFormat();
                const double points = hasPoints(format) ? format.fontPointSize() : kUsualPoints;
                characters[qRound(points * 2)] += piece.fragment().length();
            }
        }
        int usual = qRound(kUsualPoints * 2);
        for (auto size = characters.cbegin(); size != characters.cend(); ++size)
            if (*size > characters.value(usual))
                usual = size.key();
        return usual / 2.0;
    }

    void fitBlock(const QTextBlock &block)
    {
        const QTextBlockFormat copied = block.blockFormat();
        QTextBlockFormat fitted = copied;
        fitted.clearBackground();
        fitted.clearProperty(QTextFormat::TextIndent);
        // Each paragraph finds its own, as without formatting.
        fitted.clearProperty(QTextFormat::LayoutDirection);
        fitted.setNonBreakableLines(false);
        const bool isApart = copied.topMargin() > 0 || copied.bottomMargin() > 0;
        const QTextList *list = block.textList();
        double above = 0;
        double below = isApart ? kParagraphGap : 0;
        if (copied.headingLevel() > 0) {
            above = block.position() > 0 ? kGapBeforeHeading : 0;
            below = kGapAfterHeading;
        } else if (list) {
            below = isApart && list->item(list->count() - 1) == block ? kParagraphGap : kItemGap;
        }
        fitted.setTopMargin(above * m_height);
        fitted.setBottomMargin(below * m_height);
        fitted.setLeftMargin(copied.leftMargin() > 0 ? kIndent * m_height : 0);
        fitted.setRightMargin(copied.rightMargin() > 0 ? kIndent * m_height : 0);
        m_cursor.setPosition(block.position());
        m_cursor.setBlockFormat(remembering(fitted, copied));
    }

    void fitText(const QTextBlock &block)
    {
        std::vector<Piece> pieces;
        const int level = block.blockFormat().headingLevel();
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextFragment fragment = piece.fragment();
            const QTextCharFormat copied = fragment.charFormat();
            const QTextCharFormat fitted = fittedText(copied, level);
            addPieces(fragment, fitted, copied, pieces);
        }
        for (const Piece &piece : pieces) {
            m_cursor.setPosition(piece.start);
            m_cursor.setPosition(piece.end, QTextCursor::KeepAnchor);
            m_cursor.setCharFormat(piece.format);
        }
    }

    void addPieces(const QTextFragment &fragment, const QTextCharFormat &fitted,
                   const QTextCharFormat &copied, std::vector<Piece> &pieces) const
    {
        const int start = fragment.position();
        if (fitted != copied)
            pieces.push_back({start, start + fragment.length(), remembering(fitted, copied)});
        if (!m_looks.emoji.hasProperty(QTextFormat::FontFamilies))
            return;
        for (const VisibleCharacters::Run &run : VisibleCharacters::emoji(fragment.text())) {
            QTextCharFormat emoji = fitted;
            emoji.merge(m_looks.emoji);
            const int begin = start + static_cast<int>(run.start);
            pieces.push_back(
                {begin, begin + static_cast<int>(run.length), remembering(emoji, copied)});
        }
    }

    QTextCharFormat fittedText(const QTextCharFormat &copied, int headingLevel) const
    {
        QTextCharFormat fitted = copied;
        fitSize(fitted, headingLevel);
        fitColors(fitted);
        if (fitted.isAnchor())
            fitted.setFontUnderline(true);
        return fitted;
    }

    void fitSize(QTextCharFormat &format, int headingLevel) const
    {
        double scale = 1;
        if (headingLevel > 0)
            scale = kHeadingScales.at(
                static_cast<size_t>(std::min<int>(headingLevel, kHeadingScales.size()) - 1));
        else if (hasPoints(format))
            scale = scaleOf(format.fontPointSize() / m_usualPoints);
        else if (format.hasProperty(QTextFormat::FontSizeAdjustment))
            scale = scaleOf(1 + 0.2 * format.intProperty(QTextFormat::FontSizeAdjustment));
        format.clearProperty(QTextFormat::FontPointSize);
        format.clearProperty(QTextFormat::FontPixelSize);
        format.clearProperty(QTextFormat::FontSizeAdjustment);
        if (scale != 1)
            format.setFontPointSize(m_looks.font.pointSizeF() * scale);
    }

    void fitColors(QTextCharFormat &format) const
    {
        const ClipColors &colors = m_looks.colors;
        QColor ground = colors.paper;
        if (format.background().style() != Qt::NoBrush) {
            const QColor copied = format.background().color();
            // Nearly white or black it is what the page was written on.
            const bool isPage = copied.lightnessF() > 0.9F || copied.lightnessF() < 0.2F;
            format.clearBackground();
            if (!isNeutral(copied))
                ground = copied;
            else if (!isPage)
                ground = colors.control;
            if (ground != colors.paper)
                format.setBackground(ground);
        }
        QColor text = format.isAnchor() ? colors.accentText : colors.text;
        if (!format.isAnchor() && format.foreground().style() != Qt::NoBrush) {
            const QColor copied = format.foreground().color();
            // Nearly black it is what pages are written in.
            if (!isNeutral(copied) || copied.lightnessF() > 0.25F)
                text = copied;
        }
        text = readable(text, ground);
        if (text == colors.text)
            format.clearForeground();
        else
            format.setForeground(text);
    }

    void fitFrames(const QTextFrame &parent)
    {
        const QList<QTextFrame *> frames = parent.childFrames();
        for (QTextFrame *frame : frames) {
            fitFrames(*frame);
            if (auto *table = qobject_cast<QTextTable *>(frame))
                fitTable(*table);
        }
    }

    /// The hairlines are the table's ground, seen between its cells: borders that share a line take
    /// the engine twice the time to lay out.
    void fitTable(QTextTable &table)
    {
        const QTextTableFormat copied = table.format();
        QTextTableFormat fitted = copied;
        // One that is there to place what is in it has a single row or column.
        const bool isGrid = table.rows() > 1 && table.columns() > 1;
        fitted.setBorder(0);
        fitted.setBorderCollapse(false);
        fitted.setCellSpacing(isGrid ? 1 : 0);
        fitted.setCellPadding(isGrid ? kCellPadding * m_height : 0);
        fitted.setMargin(0);
        fitted.setTopMargin(kGapAfterHeading * m_height);
        fitted.setBottomMargin(kParagraphGap * m_height);
        fitted.clearProperty(QTextFormat::FrameWidth);
        fitted.clearBackground();
        if (isGrid)
            fitted.setBackground(m_looks.colors.separator);
        if (table.firstCursorPosition().block().text().isRightToLeft()) {
            fitted.setLayoutDirection(Qt::RightToLeft);
            fitted.setAlignment(Qt::AlignRight);
            // The engine forgets the document's margin at that side.
            fitted.setRightMargin(m_document.documentMargin());
        }
        table.setFormat(remembering(fitted, copied));
        if (!isGrid)
            return;
        forEachCell(table, [this](QTextTableCell &cell) {
            const QTextCharFormat before = cell.format();
            QTextCharFormat after = before;
            after.setBackground(m_looks.colors.paper);
            cell.setFormat(remembering(after, before));
        });
    }

    QTextDocument &m_document;
    const RichTextLooks &m_looks;
    QTextCursor m_cursor;
    const double m_height; ///< Of a line.
    double m_usualPoints = kUsualPoints;
};

QTextFormat copiedFormat(const QTextFormat &fitted)
{
    return fitted.hasProperty(kCopiedFormat) ? fitted.property(kCopiedFormat).value<QTextFormat>()
                                             : fitted;
}

void unfitFrames(const QTextFrame &parent)
{
    const QList<QTextFrame *> frames = parent.childFrames();
    for (QTextFrame *frame : frames) {
        unfitFrames(*frame);
        auto *table = qobject_cast<QTextTable *>(frame);
        if (!table)
            continue;
        table->setFormat(copiedFormat(table->format()).toTableFormat());
        forEachCell(*table, [](QTextTableCell &cell) {
            cell.setFormat(copiedFormat(cell.format()).toCharFormat());
        });
    }
}

} // namespace

void RichTextLooks::fit(QTextDocument &document) const
{
    document.setDefaultFont(font);
    document.setDocumentMargin(Looks::kTextMargin);
    document.setIndentWidth(kIndent * QFontMetricsF(font).height());
    QTextOption option = document.defaultTextOption();
    option.setTextDirection(Qt::LayoutDirectionAuto);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document.setDefaultTextOption(option);
    Fitting(document, *this).fit();
}

void RichTextLooks::unfit(QTextDocument &document)
{
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        std::vector<Piece> pieces;
        for (auto piece = block.begin(); !piece.atEnd(); ++piece)
            if (const QTextFragment fragment = piece.fragment();
                fragment.charFormat().hasProperty(kCopiedFormat))
                pieces.push_back({fragment.position(), fragment.position() + fragment.length(),
                                  copiedFormat(fragment.charFormat()).toCharFormat()});
        cursor.setPosition(block.position());
        if (QTextBlockFormat copied = copiedFormat(block.blockFormat()).toBlockFormat();
            copied != block.blockFormat()) {
            // The list it was in is another one in a part of the document.
            copied.setObjectIndex(block.blockFormat().objectIndex());
            cursor.setBlockFormat(copied);
        }
        for (const Piece &piece : pieces) {
            cursor.setPosition(piece.start);
            cursor.setPosition(piece.end, QTextCursor::KeepAnchor);
            cursor.setCharFormat(piece.format);
        }
    }
    unfitFrames(*document.rootFrame());
    cursor.endEditBlock();
}
