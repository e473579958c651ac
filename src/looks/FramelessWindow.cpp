#include "looks/FramelessWindow.h"

#include "looks/ClipColors.h"
#include "platform/WindowSpace.h"

#include <QBitmap>
#include <QEvent>
#include <QPainter>
#include <QWindow>
#include <QtMath>

#include <array>
#include <vector>

namespace {

constexpr int kShadowReach = 26; ///< Points that the blur extends beyond the frame.
constexpr int kShadowDrop = 8;   ///< Points that the shadow lies below the frame.
constexpr int kShadowCore = 8;   ///< Points of the nine-part picture that are stretched.
/// Points of the picture's corners: as the shadow lies lower than the frame, they must reach that
/// much further in to leave no gap below it.
constexpr int kShadowCorner = kShadowReach + FramelessWindow::kCornerRadius + kShadowDrop;
constexpr int kShadowAlpha = 92;
constexpr int kOutline = 1; ///< Points, where there is no shadow.

/// One pass of a box blur along a line of `count` alpha values that lie `stride` bytes apart.
void blurLine(uchar *line, int count, int stride, int radius, std::vector<int> &scratch)
{
    scratch.assign(static_cast<size_t>(count), 0);
    const auto at = [&](int i) {
        return i < 0 || i >= count ? 0 : int(line[static_cast<ptrdiff_t>(i) * stride]);
    };
    int sum = 0;
    for (int i = -radius; i <= radius; ++i)
        sum += at(i);
    for (int i = 0; i < count; ++i) {
        scratch[static_cast<size_t>(i)] = sum / (2 * radius + 1);
        sum += at(i + radius + 1) - at(i - radius);
    }
    for (int i = 0; i < count; ++i)
        line[static_cast<ptrdiff_t>(i) * stride] =
            static_cast<uchar>(scratch[static_cast<size_t>(i)]);
}

/// The least picture of a rounded frame's shadow: four corners and a core to stretch between them.
QPixmap makeShadow(qreal scale)
{
    const int side = 2 * kShadowCorner + kShadowCore;
    const int pixels = qCeil(side * scale);
    QImage alpha(pixels, pixels, QImage::Format_Alpha8);
    alpha.fill(0);
    QPainter shape(&alpha);
    shape.setRenderHint(QPainter::Antialiasing);
    shape.scale(scale, scale);
    shape.setPen(Qt::NoPen);
    shape.setBrush(QColor(0, 0, 0, kShadowAlpha));
    const QRectF frame =
        QRectF(0, 0, side, side).adjusted(kShadowReach, kShadowReach, -kShadowReach, -kShadowReach);
    shape.drawRoundedRect(frame, FramelessWindow::kCornerRadius, FramelessWindow::kCornerRadius);
    shape.end();

    // Three box blurs are as good as a Gaussian one.
    std::vector<int> scratch;
    const int radius = qMax(1, qFloor(kShadowReach * scale / 3));
    const auto stride = static_cast<int>(alpha.bytesPerLine());
    for (int pass = 0; pass < 3; ++pass) {
        for (int y = 0; y < pixels; ++y)
            blurLine(alpha.scanLine(y), pixels, 1, radius, scratch);
        for (int x = 0; x < pixels; ++x)
            blurLine(alpha.bits() + x, pixels, stride, radius, scratch);
    }

    QImage shadow(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    shadow.fill(Qt::black);
    QPainter painter(&shadow);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, alpha);
    painter.end();
    QPixmap pixmap = QPixmap::fromImage(shadow);
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

/// Draws the nine-part picture so that its corners keep their size.
void drawShadow(QPainter &painter, const QRect &outer, const QPixmap &shadow)
{
    const qreal scale = shadow.devicePixelRatio();
    const std::array<int, 4> xs{outer.left(), outer.left() + kShadowCorner,
                                outer.right() + 1 - kShadowCorner, outer.right() + 1};
    const std::array<int, 4> ys{outer.top(), outer.top() + kShadowCorner,
                                outer.bottom() + 1 - kShadowCorner, outer.bottom() + 1};
    const std::array<int, 4> sources{0, kShadowCorner, kShadowCorner + kShadowCore,
                                     2 * kShadowCorner + kShadowCore};
    for (size_t row = 0; row < 3; ++row) {
        for (size_t column = 0; column < 3; ++column) {
            if (row == 1 && column == 1)
                continue; // Behind the frame.
            painter.drawPixmap(
                QRectF(xs[column], ys[row], xs[column + 1] - xs[column], ys[row + 1] - ys[row]),
                shadow,
                QRectF(sources[column] * scale, sources[row] * scale,
                       (sources[column + 1] - sources[column]) * scale,
                       (sources[row + 1] - sources[row]) * scale));
        }
    }
}

} // namespace

FramelessWindow::FramelessWindow(WindowSpace &space, Qt::WindowFlags flags)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | flags),
      m_hasShadow(space.isCompositing())
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    connect(&space, &WindowSpace::isCompositingChanged, this, &FramelessWindow::compositingChanged);
}

void FramelessWindow::setContentWidget(QWidget *content)
{
    m_content = content;
    content->setParent(this);
    placeContent();
}

void FramelessWindow::placeContent()
{
    if (m_content)
        m_content->setGeometry(
            m_hasShadow ? contentRect()
                        : contentRect().adjusted(kOutline, kOutline, -kOutline, -kOutline));
}

void FramelessWindow::setFrame(const QRect &frame)
{
    const QRect whole = frame.marginsAdded(shadowMargins());
    // A fixed size also makes tiling window managers leave the window alone.
    setFixedSize(whole.size());
    move(whole.topLeft());
}

QMargins FramelessWindow::shadowMargins() const
{
    if (!m_hasShadow)
        return {};
    return {kShadowReach, kShadowReach - kShadowDrop, kShadowReach, kShadowReach + kShadowDrop};
}

void FramelessWindow::compositingChanged(bool isCompositing)
{
    const QRect kept = frame();
    m_hasShadow = isCompositing;
    setFrame(kept);
    placeContent();
    updateMask();
    update();
}

void FramelessWindow::updateMask()
{
    if (m_hasShadow) {
        clearMask();
        return;
    }
    QBitmap mask(size());
    mask.clear();
    QPainter painter(&mask);
    painter.setBrush(Qt::color1);
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(rect(), kCornerRadius, kCornerRadius);
    painter.end();
    setMask(mask);
}

void FramelessWindow::paintEvent(QPaintEvent *)
{
    if (!m_hasShadow) {
        // What the content leaves free is the outline, and its smooth corners blend with it. It
        // stands out from the content, so that on a ground of either colour there is an edge.
        QPainter(this).fillRect(rect(), ClipColors::ofPalette(palette()).outline);
        return;
    }
    const qreal scale = devicePixelRatioF();
    if (m_shadow.isNull() || !qFuzzyCompare(m_shadow.devicePixelRatio(), scale))
        m_shadow = makeShadow(scale);
    QPainter painter(this);
    const QRect outer = contentRect().adjusted(-kShadowReach, -kShadowReach + kShadowDrop,
                                               kShadowReach, kShadowReach + kShadowDrop);
    drawShadow(painter, outer, m_shadow);
}

void FramelessWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    placeContent();
    updateMask();
}

void FramelessWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // Closing destroys the display system's window, and until there is another one Qt takes no
    // mask: it would give the new window the shape that the old one had.
    windowHandle()->create();
    windowHandle()->setMask(mask());
}

void FramelessWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        Q_EMIT themeChanged();
}
