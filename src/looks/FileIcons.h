#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

#include <map>

/// The icons of files in lists, by what their names say: a list never asks a file system that may
/// hang. Owned by whoever draws the list.
class FileIcons
{
public:
    /// The desktop's icon for folders or for files of such a name, `extent` points wide; our own in
    /// `color` where the desktop has none.
    QPixmap pixmap(const QString &path, bool isFolder, int extent, const QColor &color,
                   qreal scale);

private:
    std::map<QString, QIcon> m_icons; ///< By the name of the type; null where the desktop has none.
};
