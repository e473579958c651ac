#pragma once

#include "looks/ClipColors.h"

#include <QPointer>
#include <QWidget>

class TourViewController;

/// A bubble with an arrow that points at a part of the history window and stays beside it. Lies in
/// that window and above everything there, so that it moves and disappears with it. Owned by the
/// window; the tour guide shows it.
class TourPopover : public QWidget
{
    Q_OBJECT

public:
    /// Where the bubble stands as seen from what it points at.
    enum class Side { Below, Right, Left };

    /// Hidden. `window` becomes the parent; `content` becomes the popover's.
    TourPopover(QWidget *window, TourViewController *content);

    TourViewController *content() const { return m_content; }

    /// Shows the bubble beside `part` of `anchor`, in the anchor's coordinates; the whole anchor
    /// when `part` is null.
    void showRelativeTo(QWidget *anchor, const QRect &part, Side side);
    void close();

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void nextRequested();
    /// Escape was pressed in the bubble.
    void cancelled();

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    /// The keyboard stays here until the popover is closed.
    bool focusNextPrevChild(bool) override { return true; }
    void mousePressEvent(QMouseEvent *) override {} // What lies below is not clicked through.

private:
    void place();
    void applyTheme();

    QWidget &m_window;
    TourViewController *m_content;
    QPointer<QWidget> m_anchor;
    QRect m_part;
    Side m_side = Side::Below;
    QPoint m_tip; ///< The arrow's, in our own coordinates.
    ClipColors m_colors;
};
