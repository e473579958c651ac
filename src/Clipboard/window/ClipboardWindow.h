#pragma once

#include "Clipboard/window/ClipColors.h"

#include <QPixmap>
#include <QRect>
#include <QWidget>

class ClipboardView;
class WindowSpace;

/// The history's window: without a title bar, above the others, with rounded corners and a shadow
/// of its own. Owned by WindowDelegate; made once, then only shown and hidden. Its frame is what
/// the user sees as the window; the widget is larger by the margin that the shadow needs. Without
/// compositing there is no shadow and the widget is masked to the rounded frame.
class ClipboardWindow : public QWidget
{
    Q_OBJECT

public:
    /// Points; the window is always given this height when shown.
    static constexpr double windowHeight = 486.0;
    /// Points.
    static constexpr int kCornerRadius = 5;

    /// `space` must outlive the window.
    explicit ClipboardWindow(WindowSpace &space);

    /// Fills the frame with `view`, which becomes a child of the window.
    void setContentView(ClipboardView *view);
    ClipboardView *contentView() const { return m_contentView; }

    /// The visible window in screen coordinates, without its shadow.
    QRect frame() const;
    /// Moves and resizes so that the visible window covers `frame`.
    void setFrame(const QRect &frame);

    /// Where a window of `width` stands on a screen whose free part is `visibleFrame`: centred
    /// horizontally, with one third of the free height above it.
    static QRect placedFrame(const QRect &visibleFrame, int width);

Q_SIGNALS:
    /// The desktop's colours or font have changed.
    void themeChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void compositingChanged(bool isCompositing);
    QMargins shadowMargins() const;
    void updateMask();

    bool m_hasShadow = true;
    ClipboardView *m_contentView = nullptr;
    QPixmap m_shadow; ///< Made for the scale of the screen it was last painted on.
};
