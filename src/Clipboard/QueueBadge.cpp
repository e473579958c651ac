#include "Clipboard/QueueBadge.h"

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPainter>
#include <QPixmap>

QIcon queueBadge(int left)
{
    constexpr int kMost = 99;
    const QString number = QString::number(qMin(left, kMost));
    QIcon icon;
    for (const int extent : {16, 22, 24, 32, 48, 64}) {
        QPixmap pixmap(extent, extent);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0x1f, 0x6f, 0xd1));
        painter.drawEllipse(pixmap.rect());
        QFont font;
        font.setBold(true);
        font.setPixelSize(number.size() > 1 ? extent / 2 : extent * 2 / 3);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(pixmap.rect(), Qt::AlignCenter, number);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}
