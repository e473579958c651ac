#pragma once

#include "looks/ClipColors.h"

#include <QAbstractButton>

/// One dot of the row that tells which page is shown. Checked on its page; not to be clicked.
class PageIndicator : public QAbstractButton
{
    Q_OBJECT

public:
    explicit PageIndicator(const QString &name, QWidget *parent = nullptr);

    void setColors(const ClipColors &colors);

    // ^QWidget
    QSize sizeHint() const override { return {8, 8}; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    ClipColors m_colors;
};
