#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <QWidget>

/// Holds the pages and shows one of them; the next one slides in while the last one slides out.
/// What is shown by itself is never in motion: the page counts as changed at once.
class PageSlider : public QWidget
{
    Q_OBJECT

public:
    enum class Movement { None, Forward, Back };

    explicit PageSlider(QWidget *parent = nullptr);

    /// Takes a page in, hidden. The slider becomes its parent.
    void addPage(QWidget *page);
    void setPage(QWidget *page, Movement movement);
    QWidget *page() const { return m_page; }

    // ^QWidget
    /// The height of the tallest page.
    int heightForWidth(int width) const override;
    bool hasHeightForWidth() const override { return true; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void place();
    void finish();
    bool comesFromRight() const;

    QList<QWidget *> m_pages;
    QWidget *m_page = nullptr;
    QPixmap m_leaving; ///< The last page's picture; null when nothing moves.
    Movement m_movement = Movement::None;
    QVariantAnimation m_animation;
};
