#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Copied files as programs hand them to one another. Only files of this machine count: an
/// address of another host or scheme is no file.
namespace FileUris {

/// Absolute paths of the files in a text/uri-list, in its order. Lines may end in any way;
/// comments and addresses of other kinds are left out.
QStringList filesOfUriList(const QByteArray &uriList);

/// The same for x-special/gnome-copied-files, whose first line says "copy" or "cut".
QStringList filesOfGnomeList(const QByteArray &gnomeList);

/// A text/uri-list with its lines ended by CR and LF.
QByteArray uriList(const QStringList &paths);

/// An x-special/gnome-copied-files that copies. No last newline: file managers take it for one
/// more, empty file.
QByteArray gnomeList(const QStringList &paths);

/// The file names alone, one a line.
QString names(const QStringList &paths);

} // namespace FileUris
