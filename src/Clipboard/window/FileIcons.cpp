#include "Clipboard/window/FileIcons.h"

#include "Clipboard/window/WindowIcons.h"

#include <QMimeDatabase>

QPixmap FileIcons::pixmap(const QString &path, int extent, const QColor &color, qreal scale)
{
    const QMimeDatabase types;
    const QList<QMimeType> named = types.mimeTypesForFileName(path.mid(path.lastIndexOf(u'/') + 1));
    const QMimeType type = named.isEmpty()
                               ? types.mimeTypeForName(QStringLiteral("application/octet-stream"))
                               : named.first();
    auto found = m_icons.find(type.name());
    if (found == m_icons.end())
        found =
            m_icons
                .emplace(type.name(), QIcon::fromTheme(type.iconName(),
                                                       QIcon::fromTheme(type.genericIconName())))
                .first;
    if (found->second.isNull())
        return WindowIcons::pixmap(QStringLiteral("document"), extent, color, scale);
    return found->second.pixmap(QSize(extent, extent), scale);
}
