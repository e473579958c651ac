#pragma once

#include <QLineEdit>

/// A label that shows a path on one line, elided in the middle where it does not fit, and whole in
/// its tool tip. Clicked, it shows the whole path selected, ready to be copied. Its text stays the
/// whole path.
class PathLabel : public QLineEdit
{
    Q_OBJECT

public:
    explicit PathLabel(QWidget *parent = nullptr);

    void setPath(const QString &path);

    QSize minimumSizeHint() const override { return {0, QLineEdit::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    bool m_isEntered = false; ///< The click that brought the keyboard is still held.
};
