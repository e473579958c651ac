#pragma once

#include "looks/ClipColors.h"

#include <QPushButton>

/// A quiet button of our own windows, the same under every desktop style. An emphasised one is what
/// most people press.
class PaneButton : public QPushButton
{
    Q_OBJECT

public:
    explicit PaneButton(const QString &text, QWidget *parent = nullptr);

    void setColors(const ClipColors &colors);
    void setEmphasised(bool isEmphasised);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QColor faceColor() const;

    ClipColors m_colors;
    bool m_isEmphasised = false;
};
