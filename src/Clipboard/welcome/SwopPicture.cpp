#include "Clipboard/welcome/SwopPicture.h"

#include "Clipboard/welcome/PictureParts.h"

#include <QPainter>
#include <QtMath>

namespace {

constexpr int kSideMargin = 22;
constexpr int kAroundKeys = 12; ///< Points on either side of the keys.
constexpr int kPadding = 12;
constexpr int kGap = 10; ///< Points between the document and the clips.
constexpr int kClips = 3;

} // namespace

SwopPicture::SwopPicture(QWidget *parent) : WelcomeStage(parent), m_keys(new KeyCaps({}, this)) {}

void SwopPicture::setKeys(const QStringList &keys)
{
    m_keys->setKeys(keys);
    placeKeys();
    update();
}

void SwopPicture::setColors(const ClipColors &colors)
{
    WelcomeStage::setColors(colors);
    m_keys->setColors(KeyCapColors::ofScheme(colors));
    setMinimumHeight(qMax(minimumHeight(), qCeil(stateHeight()) + 2 * kSideMargin));
    placeKeys();
}

qreal SwopPicture::lineHeight() const
{
    return fontMetrics().height() + 10;
}

qreal SwopPicture::stateHeight() const
{
    // The heading, two lines of the document, the clips.
    return (1 + 2 + kClips) * lineHeight() + kPadding + kGap;
}

void SwopPicture::placeKeys()
{
    m_keys->resize(m_keys->sizeHint());
    m_keys->move((width() - m_keys->width()) / 2, height() / 2 + 8);
}

void SwopPicture::resizeEvent(QResizeEvent *event)
{
    WelcomeStage::resizeEvent(event);
    placeKeys();
}

void SwopPicture::paintEvent(QPaintEvent *event)
{
    WelcomeStage::paintEvent(event);
    const QString monday = tr("Monday");
    const QString thursday = tr("Thursday");
    const QString time = tr("at half past two");
    const QString place = tr("Reed Lane 7");
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal side = (width() - m_keys->width()) / 2.0 - kAroundKeys - kSideMargin;
    const QRectF left(kSideMargin, 0, side, height());
    const QRectF right(width() - kSideMargin - side, 0, side, height());
    const bool isMirrored = isRightToLeft();
    drawState(painter, isMirrored ? right : left,
              {tr("Before"), monday, {time, thursday, place}, 1});
    drawState(painter, isMirrored ? left : right,
              {tr("After"), thursday, {monday, time, thursday}, 0});
    const QPointF middle = QRectF(rect()).center();
    const qreal reach = isMirrored ? -26 : 26;
    PictureParts::drawArrow(painter, middle - QPointF(reach, 8), middle + QPointF(reach, -8),
                            colors().selected);
}

void SwopPicture::drawState(QPainter &painter, const QRectF &place, const State &state) const
{
    const qreal line = lineHeight();
    const qreal documentHeight = 2 * line + kPadding;
    const QRectF heading(place.left(), place.center().y() - stateHeight() / 2, place.width(), line);
    painter.setPen(colors().quietText);
    painter.drawText(heading, Qt::AlignLeft | Qt::AlignVCenter, state.heading);

    const QRectF document(place.left(), heading.bottom(), place.width(), documentHeight);
    PictureParts::drawCard(painter, document, colors());
    // Placed as in a document that begins at the left.
    const auto placed = [&](const QRectF &rect) {
        if (isRightToLeft())
            return rect.translated(document.left() + document.right() - rect.left() - rect.right(),
                                   0);
        return rect;
    };
    const QPointF writing = document.topLeft() + QPointF(kPadding, kPadding / 2.0);
    const QString words = tr("See you on") + QLatin1Char(' ');
    const qreal wordsWidth = fontMetrics().horizontalAdvance(words);
    const qreal markedWidth = fontMetrics().horizontalAdvance(state.inDocument);
    painter.setPen(colors().text);
    painter.drawText(placed(QRectF(writing, QSizeF(wordsWidth, line))), Qt::AlignVCenter, words);
    const QRectF marked =
        placed(QRectF(writing + QPointF(wordsWidth, 0), QSizeF(markedWidth, line)));
    QColor mark = colors().selected;
    mark.setAlphaF(0.28F);
    painter.fillRect(marked.adjusted(-2, 3, 2, -3), mark);
    painter.drawText(marked, Qt::AlignVCenter, state.inDocument);
    const QSizeF secondLine(document.width() - 2 * kPadding, line);
    painter.drawText(placed(QRectF(writing + QPointF(0, line), secondLine)), Qt::AlignVCenter,
                     tr("by the old mill."));

    const QRectF clips(place.left(), document.bottom() + kGap, place.width(), kClips * line);
    PictureParts::drawCard(painter, clips, colors());
    for (int row = 0; row < kClips; ++row) {
        const QRectF rowPlace(clips.left() + 1, clips.top() + row * line, clips.width() - 2, line);
        if (row == state.marked)
            painter.fillRect(rowPlace.adjusted(0, 1, 0, -1), colors().selected);
        painter.setPen(row == state.marked ? colors().selectedText : colors().text);
        painter.drawText(rowPlace.adjusted(kPadding, 0, -kPadding, 0), Qt::AlignVCenter,
                         QStringLiteral("%1   %2").arg(row + 1).arg(state.clips.at(row)));
    }
}
