#include "looks/WindowIcons.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

// Outside of any namespace, as the macro wants it: a static library's resources are dropped unless
// somebody names them.
static bool loadResources()
{
    Q_INIT_RESOURCE(looks);
    return true;
}

static QString pathOf(const QString &name)
{
    static const bool isLoaded = loadResources();
    Q_UNUSED(isLoaded);
    return QStringLiteral(":/looks/%1.svg").arg(name);
}

QIcon WindowIcons::preferences()
{
    return QIcon::fromTheme(QStringLiteral("preferences-system"),
                            QIcon(pathOf(QStringLiteral("preferences"))));
}

QPixmap WindowIcons::pixmap(const QString &name, int extent, const QColor &color, qreal scale)
{
    QFile file(pathOf(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("No icon %s", qUtf8Printable(name));
    QByteArray source = file.readAll();
    source.replace("currentColor", color.name(QColor::HexRgb).toLatin1());

    QPixmap pixmap(QSize(extent, extent) * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(source).render(&painter, QRectF(0, 0, extent, extent));
    return pixmap;
}
