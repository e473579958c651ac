#pragma once

#include "looks/FramelessWindow.h"

class ClipboardView;

/// The history's window, above the others. Owned by WindowDelegate; made once, then only shown and
/// hidden.
class ClipboardWindow : public FramelessWindow
{
    Q_OBJECT

public:
    /// Points; the window is always given this height when shown.
    static constexpr double windowHeight = 486.0;

    /// `space` must outlive the window.
    explicit ClipboardWindow(WindowSpace &space);

    /// Fills the frame with `view`, which becomes a child of the window.
    void setContentView(ClipboardView *view);
    ClipboardView *contentView() const { return m_contentView; }

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    ClipboardView *m_contentView = nullptr;
};
