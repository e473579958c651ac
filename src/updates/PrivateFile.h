#pragma once

#include <QByteArray>
#include <QString>

/// Files that only the user may read, in folders likewise.
namespace PrivateFile {

/// Makes the folder unless it exists.
void makeFolder(const QString &path);

/// Writes the file whole or not at all, and makes its folder. False, logged, when that fails; what
/// was there before is then untouched.
[[nodiscard]] bool write(const QString &path, const QByteArray &bytes);

} // namespace PrivateFile
