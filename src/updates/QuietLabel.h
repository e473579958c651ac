#pragma once

#include <QLabel>

/// A small, quiet line of explanation that wraps, as the preferences have them.
class QuietLabel : public QLabel
{
    Q_OBJECT

public:
    explicit QuietLabel(const QString &text = {}, QWidget *parent = nullptr);

protected:
    // ^QLabel
    void paintEvent(QPaintEvent *event) override;
};
