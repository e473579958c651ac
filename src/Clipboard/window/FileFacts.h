#pragma once

#include <QDateTime>
#include <QString>

#include <functional>
#include <optional>

class QObject;

/// What a file's card tells of it. A value.
struct FileFacts
{
    QString kind;            ///< Of its type, as a person calls it; "PNG image".
    QString iconName;        ///< In the desktop's icon theme.
    QString genericIconName; ///< The same for themes that lack `iconName`.
    bool isFolder = false;
    std::optional<qint64> size; ///< Bytes; absent for anything but a regular file.
    QDateTime modified;
    QString linkTarget; ///< Where a symbolic link points; empty for anything else.

    /// Reads them from the file system, which may take any time; none when there is no such file.
    /// The content of a regular file is looked at only where its name does not tell the type; of
    /// anything else never.
    static std::optional<FileFacts> read(const QString &path);

    /// Reads them on a thread of its own and hands them to `receive` on the main thread, unless
    /// `context` has been destroyed. A file system that hangs leaves its thread behind; while too
    /// many hang, nothing is read and `receive` is not called.
    static void ask(const QString &path, QObject *context,
                    std::function<void(const std::optional<FileFacts> &)> receive);
};
