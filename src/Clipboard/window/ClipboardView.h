#pragma once

#include "looks/ClipColors.h"

#include <QWidget>

/// The history window's content view: the rounded ground on which everything stands. Owned by the
/// window.
class ClipboardView : public QWidget
{
    Q_OBJECT

public:
    explicit ClipboardView(QWidget *parent = nullptr);

    void setColors(const ClipColors &colors);

Q_SIGNALS:
    void resized();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    ClipColors m_colors;
};
