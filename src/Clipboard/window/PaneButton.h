#pragma once

#include "Clipboard/window/ClipColors.h"

#include <QPushButton>

/// A quiet button of the history window, the same under every desktop style.
class PaneButton : public QPushButton
{
    Q_OBJECT

public:
    explicit PaneButton(const QString &text, QWidget *parent = nullptr);

    void setColors(const ClipColors &colors);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    ClipColors m_colors;
};
