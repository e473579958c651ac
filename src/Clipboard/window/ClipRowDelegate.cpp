#include "Clipboard/window/ClipRowDelegate.h"

#include "Clipboard/window/Looks.h"

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

/// More characters than a row can show at any width; the rest is not even looked at.
constexpr qsizetype kShownCharacters = 400;

bool isBlank(QChar character)
{
    return character.isSpace() || character.category() == QChar::Other_Control;
}

} // namespace

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
    painter.drawText(placed(placed(row.numberRect).adjusted(0, 0, -kNumberGap, 0)),
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
    rect = placed(rect);
    const QString text = recognisableText(row.value);
    const bool isRightToLeft = text.isRightToLeft();
    painter.setFont(m_font);
    painter.setPen(row.isSelected ? m_colors.selectedText : m_colors.text);
    painter.setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    // The end of a path tells more than its middle.
    painter.drawText(rect, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetrics(m_font).elidedText(
                         text, row.filepath ? Qt::ElideMiddle : Qt::ElideRight, rect.width()));
    painter.setLayoutDirection(direction);
}
