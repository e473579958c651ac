#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Copied files as programs hand them to one another. Only files of this machine count: an
/// address of another host or scheme is no file.
namespace FileUris {

const QString kUriList = QStringLiteral("text/uri-list");
const QString kGnomeList = QStringLiteral("x-special/gnome-copied-files");
/// Beside the first, "1" says that the files were cut.
const QString kKdeCut = QStringLiteral("application/x-kde-cutselection");

/// Absolute paths of the files in a text/uri-list, in its order. Lines may end in any way;
/// comments and addresses of other kinds are left out.
QStringList filesOfUriList(const QByteArray &uriList);

/// The same for x-special/gnome-copied-files, whose first line says "copy" or "cut".
QStringList filesOfGnomeList(const QByteArray &gnomeList);

/// A text/uri-list with its lines ended by CR and LF.
QByteArray uriList(const QStringList &paths);

/// What the file manager is to do with the files where they are pasted.
enum class Action { Copy, Cut };

/// An x-special/gnome-copied-files. No last newline: file managers take it for one more, empty
/// file.
QByteArray gnomeList(const QStringList &paths, Action action = Action::Copy);

/// What such a list says.
Action actionOfGnomeList(const QByteArray &gnomeList);

/// Whether a text is nothing but addresses of `count` files, one a line, which is no text of its
/// own.
bool areAddresses(const QByteArray &text, qsizetype count);

} // namespace FileUris
