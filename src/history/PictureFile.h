#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <optional>

/// A picture as it is kept: a PNG in a file of its own, private to the user, named by its contents,
/// so that the same picture is the same file. A value; made on any thread.
struct PictureFile
{
    enum class Fault {
        None,
        TooLarge,   ///< More bytes than wanted, or more pixels than can be looked at.
        Unreadable, ///< No picture, or not all of it.
        NotWritten, ///< A log line has said why.
    };

    Fault fault = Fault::Unreadable;
    QString partPath = {};            ///< Where it is until it is given its name.
    QString path = {};                ///< Where it is to be, absolute.
    QSize size = {};                  ///< In pixels.
    std::optional<qint64> bytes = {}; ///< Of the PNG, as far as it was made.

    /// Writes the picture into `folder`, which it makes. What is no PNG is made one; a PNG stays
    /// byte for byte and is never unpacked, so its number of pixels does not matter.
    static PictureFile write(const QByteArray &picture, qint64 maxBytes, const QString &folder);
    /// Writes a file that was kept before back to `path`.
    [[nodiscard]] static bool restore(const QString &path, const QByteArray &bytes);
};
