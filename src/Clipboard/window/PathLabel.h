#pragma once

#include <QLabel>

/// A label that shows a path on one line, elided in the middle where it does not fit, and whole in
/// its tool tip. Its text stays the whole path.
class PathLabel : public QLabel
{
    Q_OBJECT

public:
    explicit PathLabel(QWidget *parent = nullptr);

    void setPath(const QString &path);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
