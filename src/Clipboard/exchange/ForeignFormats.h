#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class QIODevice;

/// How other clipboard histories lie on disk. Each reader takes what is a text or a list of files,
/// and passes over the rest: pictures, and what its program marks as a password. Memory is bounded
/// whatever the file is; one that is broken gives what can be read of it.
namespace ForeignFormats {

struct Clip
{
    QString text;
    QStringList fileNames = {};               ///< Absolute paths; empty for a text.
    std::optional<double> createSeconds = {}; ///< Since 1970 UTC; few programs keep it.
};
struct Contents
{
    QList<Clip> clips;         ///< Newest first.
    qint64 passedOver = 0;     ///< How many there are beside them.
    bool isUnderstood = false; ///< Whether it was read to its end.
    qint64 characters = 0;     ///< Of all texts.
};

/// Of larger texts there are none in any of them that a history would take.
inline constexpr qint64 kMaxText = 16 * 1024 * 1024; ///< In bytes.
/// A file that has to be read at once, and is larger, is not read.
inline constexpr qint64 kMaxFile = 64 * 1024 * 1024; ///< In bytes.
inline constexpr qsizetype kMaxClips = 200'000;
inline constexpr qint64 kMaxCharacters = 256 * 1024 * 1024; ///< Of all of a file's texts.

/// Takes a text in UTF-8, which is older than those before; what is no text, or too much, is passed
/// over.
void takeText(Contents &contents, const QByteArray &utf8);
/// The same for files by their URLs; what is no file's is left out.
void takeUrls(Contents &contents, const QList<QByteArray> &urls);

/// A tab of CopyQ.
Contents readCopyQ(QIODevice &file);
/// The history of Plasma's clipboard before version 6.
Contents readKlipper(QIODevice &file);
Contents readGPaste(QIODevice &file);
/// Of Clipman for Wayland.
Contents readClipman(QIODevice &file);
/// Of Xfce's Clipman.
Contents readXfceClipman(QIODevice &file);
Contents readCliphist(QIODevice &file);

} // namespace ForeignFormats
