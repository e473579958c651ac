#include "Clipboard/window/ClipRowDelegate.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int kPaddingLeft = 10;
constexpr int kPaddingRight = 14;
constexpr int kNumberGap = 12;
constexpr int kIconExtent = 16;
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
    return QFontMetrics(m_font).height() + 12;
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
    return shown;
}

void ClipRowDelegate::paint(QPainter &painter, const Row &row)
{
    QColor numberColor = m_colors.quietText;
    if (row.isSelected) {
        numberColor = m_colors.selectedText;
        numberColor.setAlphaF(0.8F);
    }
    painter.setFont(m_numberFont);
    painter.setPen(numberColor);
    painter.setLayoutDirection(Qt::LeftToRight);
    painter.drawText(row.numberRect.adjusted(0, 0, -kNumberGap, 0),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, row.number);

    QRect rect = row.valueRect.adjusted(0, 0, -kPaddingRight, 0);
    if (row.filepath) {
        const QColor color = row.isSelected ? m_colors.selectedText : m_colors.quietText;
        painter.drawPixmap(rect.left(), rect.top() + (rect.height() - kIconExtent) / 2,
                           m_fileIcons.pixmap(*row.filepath, kIconExtent, color,
                                              painter.device()->devicePixelRatioF()));
        rect.setLeft(rect.left() + kIconExtent + kIconGap);
    }
    const QString text = recognisableText(row.value);
    const bool isRightToLeft = text.isRightToLeft();
    painter.setFont(m_font);
    painter.setPen(row.isSelected ? m_colors.selectedText : m_colors.text);
    painter.setLayoutDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    // The end of a path tells more than its middle.
    painter.drawText(rect, Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetrics(m_font).elidedText(
                         text, row.filepath ? Qt::ElideMiddle : Qt::ElideRight, rect.width()));
}
