#include "history/KeptPictures.h"

#include "history/HistoryLog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <utility>

namespace {

/// No file of ours is larger, whatever the limit was.
constexpr qint64 kMaxBytes = qint64(64) * 1024 * 1024;

const QStringList kNames{QStringLiteral("picture-*.png"), QStringLiteral("picture-*.part")};

QString folderIn(const QString &storeFolder)
{
    return storeFolder + QStringLiteral("/Pictures");
}

} // namespace

KeptPictures::KeptPictures(const QString &storeFolder)
    : m_storeFolder(storeFolder), m_folder(folderIn(storeFolder))
{
}

bool KeptPictures::isWithin(const QString &storeFolder, const QString &path)
{
    return path.startsWith(folderIn(storeFolder) + u'/');
}

void KeptPictures::keep(const QByteArray &picture, qint64 maxBytes,
                        std::function<void(const PictureFile &file)> receive)
{
    ++m_underWay;
    m_thread.start([this, picture, maxBytes, folder = m_folder, receive = std::move(receive)] {
        const PictureFile file = PictureFile::write(picture, maxBytes, folder);
        m_thread.deliver([this, file, receive] { finish(file, receive); });
    });
}

void KeptPictures::giveUp()
{
    m_givenUp = m_underWay;
}

void KeptPictures::finish(const PictureFile &file,
                          const std::function<void(const PictureFile &)> &receive)
{
    --m_underWay;
    const bool isGivenUp = m_givenUp > 0;
    if (isGivenUp)
        --m_givenUp;
    PictureFile named = file;
    if (file.fault == PictureFile::Fault::None) {
        const QByteArray part = QFile::encodeName(file.partPath);
        // In the place of the same picture, if that is there.
        if (isGivenUp || std::rename(part.constData(), QFile::encodeName(file.path)) != 0) {
            QFile::remove(file.partPath);
            named.fault = PictureFile::Fault::NotWritten;
        }
    }
    if (!isGivenUp)
        receive(named);
}

QByteArray KeptPictures::read(const QString &path) const
{
    if (!isOurs(path))
        return {};
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.size() <= kMaxBytes ? file.readAll()
                                                                      : QByteArray();
}

bool KeptPictures::isEmpty() const
{
    return QDir(m_folder).entryList(kNames, QDir::Files).isEmpty();
}

void KeptPictures::removeAllBut(const QStringList &paths) const
{
    // By their names, because one folder may be known by several paths.
    QSet<QString> known;
    for (const QString &path : paths)
        known.insert(QFileInfo(path).fileName());
    QDir folder(m_folder);
    const QStringList names = folder.entryList(kNames, QDir::Files);
    for (const QString &name : names) {
        const bool isBeingWritten = m_underWay > 0 && name.endsWith(QStringLiteral(".part"));
        if (!known.contains(name) && !isBeingWritten && !folder.remove(name))
            qCWarning(lcHistory).noquote()
                << QStringLiteral("A picture could not be removed: %1").arg(name);
    }
}
