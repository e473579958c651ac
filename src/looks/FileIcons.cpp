#include "looks/FileIcons.h"

#include "looks/WindowIcons.h"

#include <QMimeDatabase>

namespace {

QMimeType typeOf(const QString &path, bool isFolder)
{
    const QMimeDatabase types;
    if (isFolder)
        return types.mimeTypeForName(QStringLiteral("inode/directory"));
    const QList<QMimeType> named = types.mimeTypesForFileName(path.mid(path.lastIndexOf(u'/') + 1));
    return named.isEmpty() ? types.mimeTypeForName(QStringLiteral("application/octet-stream"))
                           : named.first();
}

} // namespace

QPixmap FileIcons::pixmap(const QString &path, bool isFolder, int extent, const QColor &color,
                          qreal scale)
{
    const QMimeType type = typeOf(path, isFolder);
    auto found = m_icons.find(type.name());
    if (found == m_icons.end())
        found =
            m_icons
                .emplace(type.name(), QIcon::fromTheme(type.iconName(),
                                                       QIcon::fromTheme(type.genericIconName())))
                .first;
    if (found->second.isNull())
        return WindowIcons::pixmap(isFolder ? QStringLiteral("folder") : QStringLiteral("document"),
                                   extent, color, scale);
    return found->second.pixmap(QSize(extent, extent), scale);
}
