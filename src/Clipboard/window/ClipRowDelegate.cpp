#include "Clipboard/window/ClipRowDelegate.h"

#include "Clipboard/window/EmojiFont.h"
#include "Clipboard/window/VisibleCharacters.h"
#include "history/FoundPlaces.h"
#include "looks/Looks.h"
#include "looks/WindowIcons.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace {

constexpr int kPaddingLeft = 10;
constexpr int kPaddingRight = Looks::kTextMargin;
constexpr int kNumberGap = 12;
constexpr int kIconExtent = Looks::kIconExtent;
constexpr int kIconGap = 6;
constexpr int kPinExtent = 13;

/// More characters than a row can show at any width; the rest is not even looked at.
constexpr qsizetype kShownCharacters = 400;

constexpr QChar kLineBreak(0x23CE);
constexpr QChar kEllipsis(0x2026);

bool isLineBreak(QChar character)
{
    return character == u'\n' || character == u'\r' || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

bool isBlank(QChar character)
{
    return character.isSpace() || character.category() == QChar::Other_Control;
}

} // namespace

void ClipRowDelegate::setColors(const ClipColors &colors)
{
    m_colors = colors;
    m_pins = {};
}

void ClipRowDelegate::setFont(const QFont &font)
{
    m_font = font;
    m_numberFont = font;
    m_numberFont.setPointSizeF(font.pointSizeF() > 0 ? font.pointSizeF() * 0.85 : 9.0);
}

int ClipRowDelegate::rowHeight() const
{
    return QFontMetrics(m_font).height() + Looks::kLinePadding;
}

int ClipRowDelegate::numberWidth(int rowCount) const
{
    const auto digits = std::max<qsizetype>(2, QString::number(rowCount).size());
    return kPaddingLeft + kNumberGap +
           QFontMetrics(m_numberFont).horizontalAdvance(QString(digits, u'0'));
}

QString ClipRowDelegate::recognisableText(const QString &displayText)
{
    const auto *first = std::find_if_not(displayText.begin(), displayText.end(), isBlank);
    const auto start = static_cast<qsizetype>(first - displayText.begin());
    QString shown = displayText.mid(start, kShownCharacters);
    if (!shown.isEmpty() && shown.back().isHighSurrogate())
        shown.chop(1);
    // A line separator, a tabulator or a control character would break or distort the one line.
    std::replace_if(shown.begin(), shown.end(), isBlank, QChar(u' '));
    return shown.isEmpty() ? QCoreApplication::translate("ClipRowDelegate", "(blank)") : shown;
}

QString ClipRowDelegate::textOnOneLine(const QString &text)
{
    QString shown = text.left(kShownCharacters);
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    const auto last = std::find_if_not(shown.crbegin(), shown.crend(), isBlank);
    shown.truncate(shown.crend() - last);
    auto *first = std::find_if_not(shown.begin(), shown.end(), isBlank);
    std::replace_if(first, shown.end(), isLineBreak, kLineBreak);
    // A key's cap is a picture anyway; asked for one, the text engine would take it apart.
    shown.replace(QStringLiteral("\uFE0F\u20E3"), QStringLiteral("\u20E3"));
    return recognisableText(shown);
}

QString ClipRowDelegate::elided(const QString &text, int width) const
{
    /// Most characters are wider than so many points, so that a text's rest need not be measured.
    constexpr int kNarrow = 4;
    const QFontMetrics metrics(m_font);
    const QString start = text.left(qMax(width, 0) / kNarrow);
    if (start.size() < text.size()) {
        const QString shown = metrics.elidedText(start, Qt::ElideRight, width);
        if (shown != start)
            return shown;
    }
    return metrics.elidedText(text, Qt::ElideRight, width);
}

void ClipRowDelegate::drawText(QPainter &painter, const QRect &rect, const Row &row) const
{
    QString text = textOnOneLine(row.value);
    const bool isRightToLeft = text.isRightToLeft();
    const bool hasLooks = text.contains(kLineBreak) || !VisibleCharacters::emoji(text).isEmpty();
    // The end of a path tells more than its middle.
    if (row.filepath)
        text = QFontMetrics(m_font).elidedText(text, Qt::ElideMiddle, rect.width());
    else if (!hasLooks)
        text = elided(text, rect.width());
    if (!hasLooks && matches(row, text).isEmpty()) {
        // Nearly all rows are, and a layout of their own would take as long again as drawing them.
        painter.setFont(m_font);
        painter.setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
        painter.drawText(rect, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine, text);
        return;
    }
    drawFormatted(painter, rect, row, text, isRightToLeft);
}

void ClipRowDelegate::drawFormatted(QPainter &painter, const QRect &rect, const Row &row,
                                    QString text, bool isRightToLeft) const
{
    QTextOption option;
    option.setTextDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(QTextOption::WrapAnywhere);
    QTextLayout layout;
    layout.setFont(m_font);
    layout.setTextOption(option);
    // Colour fonts are wider than what fonts of letters draw instead, so the layout measures.
    const auto lineOf = [&](int width) {
        QList<QTextLayout::FormatRange> formats;
        for (const VisibleCharacters::Run &run : VisibleCharacters::emoji(text))
            formats.append(
                {static_cast<int>(run.start), static_cast<int>(run.length), EmojiFont::format()});
        QTextCharFormat thin;
        thin.setFontWeight(QFont::Light);
        if (!row.isSelected)
            thin.setForeground(m_colors.quietText);
        for (qsizetype at = text.indexOf(kLineBreak); at >= 0;
             at = text.indexOf(kLineBreak, at + 1))
            formats.append({static_cast<int>(at), 1, thin});
        layout.setText(text);
        layout.setFormats(formats);
        layout.beginLayout();
        QTextLine line = layout.createLine();
        line.setLineWidth(width);
        layout.endLayout();
        return line;
    };
    QTextLine line = lineOf(rect.width());
    if (line.textLength() < text.size()) {
        const int room = rect.width() - QFontMetrics(m_font).horizontalAdvance(kEllipsis);
        text.truncate(lineOf(std::max(room, 0)).textLength());
        text.append(kEllipsis);
        line = lineOf(rect.width());
    }
    const double top = rect.top() + (rect.height() - QFontMetrics(m_font).height()) / 2.0 +
                       QFontMetrics(m_font).ascent() - line.ascent();
    layout.draw(&painter, QPointF(rect.left(), top), matches(row, text));
}

QList<QTextLayout::FormatRange> ClipRowDelegate::matches(const Row &row, const QString &text) const
{
    /// More than fit into a row.
    constexpr qsizetype kMost = 100;
    QList<QTextLayout::FormatRange> matches;
    if (!row.found)
        return matches;
    QTextCharFormat format;
    // Darker on the selected row, because the text on it is light.
    format.setBackground(row.isSelected ? ClipColors::mixed(m_colors.selected, Qt::black, 0.4)
                                        : m_colors.match);
    format.setForeground(row.isSelected ? m_colors.selectedText : m_colors.text);
    // A file's row begins with what kind of clip it is, and that was not sought.
    const qsizetype begin = row.filepath ? text.indexOf(u'/') : 0;
    for (const FoundPlaces::Place &place : row.found->in(text, kMost))
        if (place.start >= begin)
            matches.append({static_cast<int>(place.start), static_cast<int>(place.length), format});
    return matches;
}

void ClipRowDelegate::drawPin(QPainter &painter, const QRect &rect, bool isSelected)
{
    const qreal scale = painter.device()->devicePixelRatioF();
    QPixmap &pin = m_pins[isSelected ? 1 : 0];
    if (pin.isNull() || !qFuzzyCompare(pin.devicePixelRatio(), scale))
        pin = WindowIcons::pixmap(QStringLiteral("pinned"), kPinExtent,
                                  isSelected ? m_colors.selectedText : m_colors.quietText, scale);
    painter.drawPixmap(rect.topLeft(), pin);
}

template <typename Placed>
QRect ClipRowDelegate::drawEnd(QPainter &painter, QRect rect, const Row &row, const Placed &placed)
{
    const QFontMetrics noteMetrics(m_numberFont);
    if (row.mark > 0) {
        const QString mark = QString::number(row.mark);
        const int height = noteMetrics.height() + 2;
        const int width = qMax(height, noteMetrics.horizontalAdvance(mark) + height / 2);
        const QRect pill(rect.right() + 1 - width, rect.top() + (rect.height() - height) / 2, width,
                         height);
        painter.setPen(Qt::NoPen);
        painter.setBrush(row.isSelected ? m_colors.selectedText : m_colors.selected);
        painter.drawRoundedRect(placed(pill), height / 2.0, height / 2.0);
        painter.setPen(row.isSelected ? m_colors.selected : m_colors.selectedText);
        painter.setFont(m_numberFont);
        painter.drawText(placed(pill), Qt::AlignCenter | Qt::TextSingleLine, mark);
        rect.setRight(pill.left() - kIconGap);
    }
    if (!row.note.isEmpty()) {
        const int width = noteMetrics.horizontalAdvance(row.note);
        QRect note = rect;
        note.setLeft(rect.right() + 1 - width);
        painter.setPen(row.isSelected ? m_colors.selectedText : m_colors.quietText);
        painter.setFont(m_numberFont);
        painter.drawText(placed(note), Qt::AlignCenter | Qt::TextSingleLine, row.note);
        rect.setRight(note.left() - kIconGap);
    }
    if (row.isPinned) {
        const QRect pin(rect.right() + 1 - kPinExtent,
                        rect.top() + (rect.height() - kPinExtent) / 2, kPinExtent, kPinExtent);
        drawPin(painter, placed(pin), row.isSelected);
        rect.setRight(pin.left() - kIconGap);
    }
    return rect;
}

void ClipRowDelegate::drawKeyCap(QPainter &painter, const QRect &rect, const Row &row) const
{
    const int extent = QFontMetrics(m_numberFont).height() + 2;
    QRect cap(0, 0, extent, extent);
    // Around where the last digit of a number stands.
    const int digit = QFontMetrics(m_numberFont).horizontalAdvance(u'0');
    const bool isMirrored = row.valueRect.left() < row.numberRect.left();
    cap.moveCenter(
        {isMirrored ? rect.left() + digit / 2 : rect.right() - digit / 2, rect.center().y()});
    painter.setBrush(row.isSelected ? QBrush(Qt::NoBrush) : m_colors.control);
    painter.setPen(row.isSelected ? m_colors.selectedText : m_colors.outline);
    painter.drawRoundedRect(QRectF(cap).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.setPen(row.isSelected ? m_colors.selectedText : m_colors.text);
    painter.drawText(cap, Qt::AlignCenter | Qt::TextSingleLine, row.number);
}

void ClipRowDelegate::paint(QPainter &painter, const Row &row)
{
    painter.setFont(m_numberFont);
    painter.setPen(row.isSelected ? m_colors.selectedText : m_colors.quietText);
    // Places are given as in a window that begins at the left.
    const Qt::LayoutDirection direction = painter.layoutDirection();
    const QRect whole = row.numberRect.united(row.valueRect);
    const auto placed = [&](const QRect &place) {
        return QStyle::visualRect(direction, whole, place);
    };
    painter.setLayoutDirection(Qt::LeftToRight);
    const QRect number = placed(placed(row.numberRect).adjusted(0, 0, -kNumberGap, 0));
    if (row.isKeyCap)
        drawKeyCap(painter, number, row);
    else
        painter.drawText(number,
                         (direction == Qt::LeftToRight ? Qt::AlignRight : Qt::AlignLeft) |
                             Qt::AlignVCenter | Qt::TextSingleLine,
                         row.number.trimmed());

    QRect rect = placed(row.valueRect).adjusted(0, 0, -kPaddingRight, 0);
    if (row.filepath) {
        const QColor color = row.isSelected ? m_colors.selectedText : m_colors.quietText;
        const QRect icon(rect.left(), rect.top() + (rect.height() - kIconExtent) / 2, kIconExtent,
                         kIconExtent);
        painter.drawPixmap(placed(icon).topLeft(),
                           m_fileIcons.pixmap(*row.filepath, row.isFolder, kIconExtent, color,
                                              painter.device()->devicePixelRatioF()));
        rect.setLeft(rect.left() + kIconExtent + kIconGap);
    }
    rect = placed(drawEnd(painter, rect, row, placed));
    painter.setPen(row.isSelected ? m_colors.selectedText : m_colors.text);
    drawText(painter, rect, row);
    painter.setLayoutDirection(direction);
}
