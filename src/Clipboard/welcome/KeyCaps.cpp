#include "Clipboard/welcome/KeyCaps.h"

#include "looks/ClipColors.h"

#include <QPainter>

namespace {

constexpr int kSidePadding = 8;
constexpr int kGap = 5;
constexpr qreal kRadius = 4.5;
constexpr qreal kFront = 2.5; ///< Height of a cap's front in points.

} // namespace

KeyCapColors KeyCapColors::ofScheme(const ClipColors &colors)
{
    if (colors.isDark)
        return {QColor(0x44, 0x47, 0x4e), QColor(0x16, 0x17, 0x1a), colors.text};
    return {Qt::white, QColor(0xbf, 0xc5, 0xcf), colors.text};
}

KeyCaps::KeyCaps(const QStringList &keys, QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setKeys(keys);
}

void KeyCaps::setKeys(const QStringList &keys)
{
    m_keys = keys;
    setAccessibleName(keys.isEmpty() ? m_absence : keys.join(QStringLiteral(" + ")));
    updateGeometry();
    update();
}

void KeyCaps::setAbsence(const QString &words)
{
    m_absence = words;
    setKeys(m_keys);
}

void KeyCaps::setColors(const KeyCapColors &colors)
{
    m_colors = colors;
    update();
}

int KeyCaps::capHeight() const
{
    return fontMetrics().height() + 9;
}

int KeyCaps::capWidth(const QString &key) const
{
    return qMax(fontMetrics().horizontalAdvance(key) + 2 * kSidePadding, capHeight());
}

QSize KeyCaps::sizeHint() const
{
    if (m_keys.isEmpty())
        return {fontMetrics().horizontalAdvance(m_absence), capHeight()};
    int width = 0;
    for (const QString &key : m_keys)
        width += capWidth(key) + kGap;
    return {qMax(0, width - kGap), capHeight()};
}

void KeyCaps::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_keys.isEmpty()) {
        painter.setPen(m_colors.text);
        painter.drawText(rect(), Qt::AlignCenter, m_absence);
    }
    qreal x = 0;
    for (const QString &key : m_keys) {
        const QRectF whole(x, 0, capWidth(key), height());
        const QRectF face = whole.adjusted(1, 1, -1, -kFront);
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_colors.edge);
        painter.drawRoundedRect(whole, kRadius, kRadius);
        painter.setBrush(m_colors.face);
        painter.drawRoundedRect(face, kRadius - 1, kRadius - 1);
        painter.setPen(m_colors.text);
        painter.drawText(face, Qt::AlignCenter, key);
        x += whole.width() + kGap;
    }
}
