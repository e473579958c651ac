#pragma once

#include "looks/FramelessWindow.h"

/// The first-run window. Without a title bar, moved by its background; takes the keyboard all the
/// same. Owned by its controller.
class WelcomeWindow : public FramelessWindow
{
    Q_OBJECT

public:
    /// Least height of the frame in points; a large font makes it higher.
    static constexpr double windowHeight = 470.0;

    /// `space` must outlive the window.
    explicit WelcomeWindow(WindowSpace &space);

    /// Fills the frame with `view`, which becomes a child of the window.
    void setContentView(QWidget *view) { setContentWidget(view); }

Q_SIGNALS:
    /// Whoever closes it: its user, the window manager or the application.
    void willClose();
    /// Return was pressed where no control has a use for it.
    void returnPressed();

protected:
    void closeEvent(QCloseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
};
