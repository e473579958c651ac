#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

class PreviewFile;
class QMimeType;

/// What a file's card tells of it. A value; equal when the file has not changed.
struct FileAttributes
{
    QString kind;            ///< Of its type, as a person calls it; empty when unknown.
    QString iconName;        ///< In the desktop's icon theme.
    QString genericIconName; ///< The same for themes that lack `iconName`.
    bool isFolder = false;
    std::optional<qint64> size; ///< Bytes; absent for anything but a regular file.
    QDateTime created;          ///< Null where the file system does not know.
    QDateTime modified;
    QString linkTarget; ///< Where a symbolic link points; empty for anything else.

    bool operator==(const FileAttributes &) const = default;

    /// Reads them from the file system, which may take any time; none when there is no such file.
    /// Opens `file` if it is a regular one that may be read, and tells its type in `type`. The
    /// beginning of a regular file is looked at; of anything else never.
    static std::optional<FileAttributes> read(PreviewFile &file, QMimeType *type);

    /// The type of an open file by its content alone, whatever its name says.
    static QMimeType typeByContent(PreviewFile &file);
};
