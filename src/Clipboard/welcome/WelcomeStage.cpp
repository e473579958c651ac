#include "Clipboard/welcome/WelcomeStage.h"

#include "looks/Looks.h"

#include <QLinearGradient>
#include <QPainter>

namespace {

constexpr qreal kRadius = Looks::kSurfaceRadius;
constexpr int kMinHeight = 256;

} // namespace

WelcomeStage::WelcomeStage(QWidget *parent) : QWidget(parent)
{
    setMinimumHeight(kMinHeight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void WelcomeStage::setColors(const ClipColors &colors)
{
    m_colors = colors;
    update();
}

void WelcomeStage::paintEvent(QPaintEvent *)
{
    QLinearGradient ground(0, 0, 0, height());
    ground.setColorAt(0, m_colors.isDark ? QColor(0x26, 0x34, 0x46) : QColor(0xdd, 0xeb, 0xfb));
    ground.setColorAt(1, m_colors.isDark ? QColor(0x24, 0x2a, 0x33) : QColor(0xf0, 0xf6, 0xfc));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawRoundedRect(rect(), kRadius, kRadius);
}
