#pragma once

#include <QIcon>
#include <QString>

/// The icon that the Icon key of a desktop entry names: a picture's path, or a name in the icon
/// theme. Null when there is none, or what stands in its place is no reasonable picture.
QIcon desktopEntryIcon(const QString &icon);
