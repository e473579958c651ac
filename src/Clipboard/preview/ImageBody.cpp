#include "Clipboard/preview/ImageBody.h"

#include <QPainter>

namespace {

constexpr int kMargin = 12;
constexpr int kSquare = 8;

void paintCheckerboard(QPainter &painter, const QRectF &rect, bool isDark)
{
    const QColor first = isDark ? QColor(60, 60, 60) : QColor(255, 255, 255);
    const QColor second = isDark ? QColor(80, 80, 80) : QColor(224, 224, 224);
    QPixmap tile(2 * kSquare, 2 * kSquare);
    tile.fill(first);
    QPainter tilePainter(&tile);
    tilePainter.fillRect(0, 0, kSquare, kSquare, second);
    tilePainter.fillRect(kSquare, kSquare, kSquare, kSquare, second);
    tilePainter.end();
    painter.drawTiledPixmap(rect, tile);
}

} // namespace

ImageBody::ImageBody(std::vector<ImageContent::Frame> frames, QWidget *parent)
    : PreviewBody(parent), m_frames(std::move(frames))
{
    setAccessibleName(tr("Picture"));
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &ImageBody::showNextFrame);
    if (m_frames.size() > 1)
        m_timer.start(m_frames.front().milliseconds);
}

void ImageBody::showNextFrame()
{
    m_frame = (m_frame + 1) % m_frames.size();
    m_timer.start(m_frames[m_frame].milliseconds);
    // Hidden, the frames go on, but nothing is painted.
    update();
}

void ImageBody::setColors(const ClipColors &colors)
{
    m_colors = colors;
    update();
}

void ImageBody::paintEvent(QPaintEvent *)
{
    const QImage &image = m_frames[m_frame].image;
    const QSize room = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin).size();
    QSizeF shown = QSizeF(image.size()) / devicePixelRatioF();
    if (shown.width() > room.width() || shown.height() > room.height())
        shown.scale(room, Qt::KeepAspectRatio);
    shown = shown.expandedTo(QSizeF(1, 1));
    const QRectF target(onPixel({(width() - shown.width()) / 2, (height() - shown.height()) / 2}),
                        shown);
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (image.hasAlphaChannel())
        paintCheckerboard(painter, target, m_colors.isDark);
    painter.drawImage(target, image);
}
