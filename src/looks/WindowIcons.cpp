#include "looks/WindowIcons.h"

#include "looks/ClipColors.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <utility>

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

static QByteArray sourceOf(const QString &name)
{
    QFile file(pathOf(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("No icon %s", qUtf8Printable(name));
    return file.readAll();
}

QIcon WindowIcons::preferences()
{
    return QIcon::fromTheme(QStringLiteral("preferences-system"),
                            QIcon(pathOf(QStringLiteral("preferences"))));
}

QPixmap WindowIcons::pixmap(const QString &name, int extent, const QColor &color, qreal scale)
{
    QByteArray source = sourceOf(name);
    source.replace("currentColor", color.name(QColor::HexRgb).toLatin1());

    QPixmap pixmap(QSize(extent, extent) * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(source).render(&painter, QRectF(0, 0, extent, extent));
    return pixmap;
}

void WindowIcons::drawPicture(QPainter &painter, const QString &name, const QRectF &place,
                              const ClipColors &colors)
{
    QByteArray source = sourceOf(name);
    const std::pair<const char *, QColor> named[] = {{"{paper}", colors.paper},
                                                     {"{separator}", colors.separator},
                                                     {"{quiet}", colors.quietText},
                                                     {"{selected}", colors.selected},
                                                     {"{selectedText}", colors.selectedText}};
    for (const auto &[token, color] : named)
        source.replace(token, color.name(QColor::HexRgb).toLatin1());
    // Shadows lie over one another; on a dark ground it takes more to be seen.
    source.replace("{shadow}", colors.isDark ? "0.063" : "0.016");
    QSvgRenderer(source).render(&painter, place);
}
