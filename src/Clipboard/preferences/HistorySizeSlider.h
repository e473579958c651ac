#pragma once

#include <QSlider>

/// Chooses how many clips the history may hold. Its value is that number itself, so assistive
/// technology reads and sets clips; only its way along the groove is not linear: the numbers that
/// people pick have stops of their own, and the powers of ten the widest ones.
///
/// Any number in the range can be set from outside; mouse and keys go from stop to stop. The value
/// changes when a drag ends, so that a drag past a small number never counts.
class HistorySizeSlider : public QSlider
{
    Q_OBJECT

public:
    static constexpr int kMinimum = 1;
    static constexpr int kMaximum = 100'000;

    explicit HistorySizeSlider(QWidget *parent = nullptr);

    /// Height of the part above the ticks.
    int grooveHeight() const { return QSlider::sizeHint().height(); }

    // ^QSlider
    QSize sizeHint() const override { return {320, grooveHeight() + tickHeight()}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    // ^QSlider
    void initStyleOption(QStyleOptionSlider *option) const override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    QFont tickFont() const;
    int tickHeight() const; ///< Of the ticks and numbers below the groove.
    int xOf(int number) const;
    int stopAt(int x) const;

    int m_wheelDelta = 0;
};
