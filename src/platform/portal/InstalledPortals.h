#pragma once

#include <QStringList>

/// What the portals of a desktop can do, by the files in which they say so. The portals themselves
/// would have to be started for an answer, and the start of the program cannot wait for that.
namespace InstalledPortals {

/// Where those files lie.
QStringList folders();

/// Whether one of the desktops, as XDG_CURRENT_DESKTOP names them, has a portal that offers all of
/// the interfaces; "Clipboard" stands for org.freedesktop.impl.portal.Clipboard.
bool offer(const QStringList &interfaces, const QStringList &desktops, const QStringList &folders);

} // namespace InstalledPortals
