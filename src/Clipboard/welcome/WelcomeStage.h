#pragma once

#include "looks/ClipColors.h"

#include <QWidget>

/// The tinted ground at the top of a welcome page, on which its picture or its rows stand.
class WelcomeStage : public QWidget
{
    Q_OBJECT

public:
    explicit WelcomeStage(QWidget *parent = nullptr);

    virtual void setColors(const ClipColors &colors);

protected:
    void paintEvent(QPaintEvent *event) override;

    const ClipColors &colors() const { return m_colors; }

private:
    ClipColors m_colors;
};
