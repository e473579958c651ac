#include "Clipboard/welcome/SwopPicture.h"

#include "looks/WindowIcons.h"

#include <QPainter>
#include <QStyle>
#include <QtMath>

namespace {

constexpr int kSideMargin = 22;
constexpr int kAroundKeys = 12; ///< Points on either side of the keys.

// Of a state, in points, with text of so many pixels. Below its heading are the cards of the
// picture "swop".
constexpr QRect kState(0, 0, 168, 166);
constexpr QRectF kCards(-6, 18, 180, 158);
constexpr int kTextPixels = 12;
constexpr int kLine = 24;
constexpr int kPadding = 12;
constexpr int kDocument = 30; ///< Where its first line begins.
constexpr int kClips = 94;
constexpr QRectF kArrow(-30, -24, 60, 24);

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
    setMinimumHeight(qMax(minimumHeight(), qCeil(kState.height() * textScale()) + 2 * kSideMargin));
    placeKeys();
}

qreal SwopPicture::textScale() const
{
    return qreal(fontInfo().pixelSize()) / kTextPixels;
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
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect().center());
    const qreal forward = isRightToLeft() ? -1 : 1;
    const qreal side = (width() - m_keys->width()) / 2.0 - kAroundKeys - kSideMargin;
    const qreal reach = forward * ((width() - side) / 2 - kSideMargin);
    // Keys with long names leave less room.
    const qreal scale = qMin(textScale(), side / kState.width());
    drawState(painter, -reach, scale,
              {tr("Before"), monday, {time, thursday, tr("Reed Lane 7")}, 1});
    drawState(painter, reach, scale, {tr("After"), thursday, {monday, time, thursday}, 0});
    painter.scale(forward, 1);
    WindowIcons::drawPicture(painter, QStringLiteral("arrow"), kArrow, colors());
}

void SwopPicture::drawState(QPainter &painter, qreal middle, qreal scale, const State &state) const
{
    painter.save();
    painter.translate(qRound(middle), 0);
    painter.scale(scale, scale);
    painter.translate(-kState.center());
    WindowIcons::drawPicture(painter, QStringLiteral("swop"), kCards, colors());

    QFont font = this->font();
    font.setPixelSize(kTextPixels);
    painter.setFont(font);
    const QFontMetrics metrics(font);
    const auto line = [this](int left, int top, int width) {
        return QStyle::visualRect(layoutDirection(), kState, {left, top, width, kLine});
    };
    const auto write = [&](const QRect &where, const QString &words, const QColor &color) {
        painter.setPen(color);
        painter.drawText(where, Qt::AlignVCenter, words);
    };
    const int textWidth = kState.width() - 2 * kPadding;
    const QString words = tr("See you on") + u' ';
    const int wordsWidth = metrics.horizontalAdvance(words);
    const QRect marked =
        line(kPadding + wordsWidth, kDocument, metrics.horizontalAdvance(state.inDocument));
    QColor mark = colors().selected;
    mark.setAlphaF(0.28F);
    painter.fillRect(marked.adjusted(-2, 3, 2, -3), mark);
    write(line(0, 0, kState.width()), state.heading, colors().quietText);
    write(line(kPadding, kDocument, wordsWidth), words, colors().text);
    write(marked, state.inDocument, colors().text);
    write(line(kPadding, kDocument + kLine, textWidth), tr("by the old mill."), colors().text);
    for (int row = 0; row < state.clips.size(); ++row) {
        const bool isMarked = row == state.marked;
        const int top = kClips + row * kLine;
        if (isMarked)
            painter.fillRect(1, top + 1, kState.width() - 2, kLine - 2, colors().selected);
        write(line(kPadding, top, textWidth),
              QStringLiteral("%1   %2").arg(row + 1).arg(state.clips.at(row)),
              isMarked ? colors().selectedText : colors().text);
    }
    painter.restore();
}
