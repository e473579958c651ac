#pragma once

#include "looks/ClipColors.h"

#include <QString>
#include <QWidget>

/// The line under the search field that says what is out of the ordinary; hidden while nothing is.
/// Owned by the content view.
class NoticeLine : public QWidget
{
    Q_OBJECT

public:
    explicit NoticeLine(QWidget *parent = nullptr);

    /// Shows `text`, or hides the line when it is empty.
    void setText(const QString &text);
    /// The whole line, however much of it fits.
    QString text() const { return m_text; }

    /// Takes on the colours, and the desktop's font.
    void setColors(const ClipColors &colors);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_text;
    ClipColors m_colors;
};
