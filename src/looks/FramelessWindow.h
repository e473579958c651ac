#pragma once

#include "looks/Looks.h"

#include <QPixmap>
#include <QRect>
#include <QWidget>

class WindowSpace;

/// A window without a title bar, with rounded corners and a shadow of its own. Its frame is what
/// the user sees as the window; the widget is larger by the margin that the shadow needs. Without
/// compositing there is a thin outline instead, and the widget is masked to the rounded frame.
class FramelessWindow : public QWidget
{
    Q_OBJECT

public:
    /// Points.
    static constexpr int kCornerRadius = Looks::kControlRadius;

    /// `space` must outlive the window. `flags` are those besides the ones that make it frameless.
    explicit FramelessWindow(WindowSpace &space, Qt::WindowFlags flags = {});

    /// The visible window in screen coordinates, without its shadow.
    QRect frame() const { return geometry().marginsRemoved(shadowMargins()); }
    /// Moves and resizes so that the visible window covers `frame`.
    void setFrame(const QRect &frame);

    /// What the widget has around the visible window.
    QMargins shadowMargins() const;

    /// The visible window in the widget's own coordinates.
    QRect contentRect() const { return rect().marginsRemoved(shadowMargins()); }

Q_SIGNALS:
    /// The desktop's colours or font have changed.
    void themeChanged();

protected:
    /// Fills the frame with `content`, which becomes a child of the window.
    void setContentWidget(QWidget *content);

    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void compositingChanged(bool isCompositing);
    void placeContent();
    void updateMask();

    bool m_hasShadow;
    QWidget *m_content = nullptr;
    QPixmap m_shadow; ///< Made for the scale of the screen it was last painted on.
};
