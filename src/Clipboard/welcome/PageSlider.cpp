#include "Clipboard/welcome/PageSlider.h"

#include <QLayout>
#include <QPainter>
#include <QStyle>

PageSlider::PageSlider(QWidget *parent) : QWidget(parent)
{
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, &PageSlider::place);
    connect(&m_animation, &QVariantAnimation::finished, this, &PageSlider::finish);
}

void PageSlider::addPage(QWidget *page)
{
    page->setParent(this);
    page->hide();
    m_pages.append(page);
}

void PageSlider::setPage(QWidget *page, Movement movement)
{
    m_animation.stop();
    m_leaving = QPixmap();
    const int duration = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    const bool moves = movement != Movement::None && m_page && isVisible() && duration > 0;
    if (moves) {
        // A page that was still sliding in is at its place in its picture.
        m_page->setGeometry(rect());
        m_leaving = m_page->grab();
    }
    if (m_page)
        m_page->hide();
    m_page = page;
    m_movement = movement;
    if (moves) {
        m_animation.setDuration(duration);
        m_animation.start();
    }
    place();
    m_page->show();
}

int PageSlider::heightForWidth(int width) const
{
    int height = 0;
    for (const QWidget *page : m_pages)
        height = qMax(height, page->layout()->totalHeightForWidth(width));
    return height;
}

void PageSlider::place()
{
    if (!m_page)
        return;
    int left = 0;
    if (!m_leaving.isNull()) {
        const qreal rest = 1 - m_animation.currentValue().toReal();
        left = comesFromRight() ? qRound(rest * width()) : -qRound(rest * width());
    }
    m_page->setGeometry(rect().translated(left, 0));
    update();
}

/// The next page lies where reading goes on.
bool PageSlider::comesFromRight() const
{
    return (m_movement == Movement::Forward) != isRightToLeft();
}

void PageSlider::finish()
{
    m_leaving = QPixmap();
    place();
}

void PageSlider::paintEvent(QPaintEvent *)
{
    if (m_leaving.isNull())
        return;
    const int left = m_page->x() + (comesFromRight() ? -width() : width());
    QPainter painter(this);
    painter.setOpacity(1 - m_animation.currentValue().toReal());
    painter.drawPixmap(left, 0, m_leaving);
}

void PageSlider::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    place();
}
