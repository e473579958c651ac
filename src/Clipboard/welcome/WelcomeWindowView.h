#pragma once

#include "looks/ClipColors.h"

#include <QWidget>

#include <array>

class PageIndicator;
class PageSlider;
class PaneButton;
class QLabel;
class QToolButton;

/// The welcome window's background and everything on it but the pages. Owned by the window; its
/// controller says what is shown when.
class WelcomeWindowView : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kPages = 4;

    explicit WelcomeWindowView(QWidget *parent = nullptr);

    void setColors(const ClipColors &colors);
    /// The size that all pages fit into.
    QSize fittingSize() const;

    PageSlider *mainContentView;
    PaneButton *previousButton;
    PaneButton *nextButton;
    PaneButton *tourButton; ///< Stands with doneButton where nextButton is on other pages.
    PaneButton *doneButton;
    QToolButton *closeButton;
    std::array<PageIndicator *, kPages> pageIndicators;
    QLabel *cmdShiftVLabel; ///< Tells the open shortcut.

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void layOut();

    ClipColors m_colors;
};
