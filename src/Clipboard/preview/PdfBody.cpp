#include "Clipboard/preview/PdfBody.h"

#include "Clipboard/preview/PreviewRegistry.h"
#include "looks/ScrollBars.h"

#include <QCoreApplication>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace {

constexpr int kMargin = 14;
constexpr int kGap = 10;
constexpr int kKeptAround = 4; ///< Pages before and after those in sight.

} // namespace

PdfBody::PdfBody(const PdfContent &content, QString path, PreviewRegistry &registry,
                 QWidget *parent)
    : PreviewBody(parent), m_path(std::move(path)), m_pageSizes(content.pageSizes()),
      m_pageCount(content.pageCount()), m_registry(registry),
      m_scrollBar(new QScrollBar(Qt::Vertical, this))
{
    setAccessibleName(tr("Document of %n pages", nullptr, m_pageCount));
    m_pages.emplace(0, QPixmap::fromImage(content.first()));
    m_scrollBar->setFocusPolicy(Qt::NoFocus);
    connect(m_scrollBar, &QScrollBar::valueChanged, this, [this] {
        update();
        readNextInSight();
    });
}

int PdfBody::columnWidth() const
{
    return qMax(1, width() - 2 * kMargin);
}

int PdfBody::columnPixels() const
{
    return qRound(columnWidth() * devicePixelRatioF());
}

void PdfBody::layOut()
{
    m_rects.clear();
    int y = kMargin;
    for (const QSizeF &size : m_pageSizes) {
        const qreal ratio = std::min(size.height() / size.width(), PdfContent::kMaxRatio);
        m_rects.emplace_back(kMargin, y, columnWidth(), qMax(1, qRound(columnWidth() * ratio)));
        y = m_rects.back().bottom() + 1 + kGap;
    }
    m_scrollBar->setGeometry(width() - 10, 0, 10, height());
    m_scrollBar->setPageStep(height());
    m_scrollBar->setSingleStep(40);
    m_scrollBar->setRange(0, qMax(0, y - kGap + kMargin - height()));
    m_scrollBar->setVisible(m_scrollBar->maximum() > 0);
}

std::pair<int, int> PdfBody::inSight() const
{
    const int top = m_scrollBar->value();
    const auto first = std::find_if(m_rects.begin(), m_rects.end(),
                                    [top](const QRect &rect) { return rect.bottom() >= top; });
    const auto last = std::find_if(first, m_rects.end(), [this, top](const QRect &rect) {
        return rect.top() > top + height();
    });
    return {static_cast<int>(first - m_rects.begin()), static_cast<int>(last - m_rects.begin())};
}

void PdfBody::readNextInSight()
{
    const auto [first, end] = inSight();
    std::erase_if(m_pages, [first = first, end = end](const auto &page) {
        return page.first < first - kKeptAround || page.first >= end + kKeptAround;
    });
    if (m_isReading)
        return;
    const int pixels = columnPixels();
    for (int page = first; page < end; ++page) {
        // A page of another width is shown until the one that is as sharp as can be has come.
        const auto drawn = m_pages.find(page);
        if ((drawn != m_pages.end() && drawn->second.width() == pixels) || m_failed.contains(page))
            continue;
        m_isReading = true;
        m_ticket = m_registry.askPage(m_path, page, pixels, [this, page](const QImage &image) {
            m_isReading = false;
            if (image.isNull())
                m_failed.insert(page);
            else
                m_pages[page] = QPixmap::fromImage(image);
            update();
            readNextInSight();
        });
        return;
    }
}

void PdfBody::setColors(const ClipColors &colors)
{
    m_colors = colors;
    ScrollBars::makeSlim(*m_scrollBar, colors);
    update();
}

void PdfBody::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const auto [first, end] = inSight();
    for (int page = first; page < end; ++page) {
        const QRect rect = m_rects[static_cast<size_t>(page)].translated(0, -m_scrollBar->value());
        const auto drawn = m_pages.find(page);
        if (drawn == m_pages.end()) {
            painter.fillRect(rect, Qt::white);
        } else {
            const QPixmap &drawing = drawn->second;
            const QRectF target =
                drawing.width() == columnPixels()
                    ? QRectF(onPixel(rect.topLeft()), QSizeF(drawing.size()) / devicePixelRatioF())
                    : QRectF(rect);
            painter.drawPixmap(target, drawing, QRectF(drawing.rect()));
        }
        painter.setPen(m_colors.separator);
        painter.drawRect(rect.adjusted(-1, -1, 0, 0));
    }
}

void PdfBody::resizeEvent(QResizeEvent *event)
{
    PreviewBody::resizeEvent(event);
    // What is at the top stays there, however wide the pages become.
    const int page = m_rects.empty() ? -1 : inSight().first;
    const QRect before = page < 0 ? QRect() : m_rects[static_cast<size_t>(page)];
    const qreal into = qreal(m_scrollBar->value() - before.top()) / before.height();
    layOut();
    if (page >= 0) {
        const QRect &after = m_rects[static_cast<size_t>(page)];
        m_scrollBar->setValue(after.top() + qRound(into * after.height()));
    }
    readNextInSight();
}

void PdfBody::wheelEvent(QWheelEvent *event)
{
    QCoreApplication::sendEvent(m_scrollBar, event);
}
