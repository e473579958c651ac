#pragma once

#include "history/PictureFile.h"
#include "platform/HelperThread.h"

#include <QSet>

#include <functional>

/// The files of copied pictures, in a folder beside the store. Each is one clip's, whose record
/// names it, and goes when no record does any more. Owned by ClipHistory; main thread only, but
/// pictures are looked at and written on a helper thread.
class KeptPictures
{
public:
    explicit KeptPictures(const QString &storeFolder);

    /// Whether a clip's file is a picture that is kept here.
    bool isOurs(const QString &path) const { return isWithin(m_storeFolder, path); }
    static bool isWithin(const QString &storeFolder, const QString &path);

    /// Writes the picture in whatever encoding as a PNG of at most `maxBytes`, one after the other,
    /// and tells `receive` later what has become of it. A clip must be recorded for it then.
    void keep(const QByteArray &picture, qint64 maxBytes,
              std::function<void(const PictureFile &file)> receive);
    /// Forgets those that are still being written; nobody is told.
    void giveUp();

    /// The PNG of a picture that is kept here; empty when it is not, or not there any more.
    QByteArray read(const QString &path) const;
    /// Brings back what read() told before the clip was deleted. False when it cannot be written.
    [[nodiscard]] bool restore(const QString &path, const QByteArray &bytes) const
    {
        return isOurs(path) && PictureFile::restore(path, bytes);
    }

    bool isEmpty() const;
    /// Removes all files but those `paths`: the one way in which pictures go.
    void removeAllBut(const QStringList &paths) const;

private:
    void finish(const PictureFile &file, const std::function<void(const PictureFile &)> &receive);

    const QString m_storeFolder;
    const QString m_folder;
    int m_underWay = 0;
    int m_givenUp = 0; ///< Of those under way, the first ones.
    HelperThread m_thread;
};
