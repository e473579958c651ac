#pragma once

#include <QWidget>

class QScrollBar;
struct ClipColors;

/// The widget that shows a file's content. Owned by its FilePreview.
class PreviewBody : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    virtual void setColors(const ClipColors &colors) = 0;

    /// By which it is scrolled; null when it is shown whole.
    virtual QScrollBar *scrollBar() const { return nullptr; }

protected:
    /// Where, close to `point`, one of the screen's pixels begins, also at fractional scales; a
    /// picture in its own size that is painted from there stays sharp.
    QPointF onPixel(QPointF point) const
    {
        const QPointF origin = mapTo(window(), QPoint());
        const qreal scale = devicePixelRatioF();
        return QPointF(((origin + point) * scale).toPoint()) / scale - origin;
    }
};
