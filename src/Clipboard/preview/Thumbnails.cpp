#include "Clipboard/preview/Thumbnails.h"

#include "preview/PreviewFile.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

#include <array>

namespace {

/// What a thumbnail of the file is called: by its address, which the two families of file managers
/// write in two ways.
std::array<QByteArray, 2> namesOf(const QString &path)
{
    const QByteArray escaped = QFile::encodeName(path).toPercentEncoding("!$&'()*+,/:=@");
    const auto hash = [](const QByteArray &address) {
        return QCryptographicHash::hash(address, QCryptographicHash::Md5).toHex();
    };
    return {hash("file://" + escaped), hash(QUrl::fromLocalFile(path).toEncoded())};
}

} // namespace

bool Thumbnails::mayBeOf(const PreviewType &type)
{
    const QString name = type.name();
    for (const char *prefix :
         {"audio/", "video/", "application/vnd.oasis.opendocument", "application/msword",
          "application/vnd.ms-", "application/vnd.openxmlformats-officedocument", "image/",
          "application/epub", "application/postscript", "application/rtf"})
        if (name.startsWith(QLatin1String(prefix)))
            return true;
    return false;
}

void Thumbnails::find(
    const QString &path, const Patience &patience,
    const std::function<bool(PreviewFile &thumbnail, const QString &written)> &isIt)
{
    const QString written = QString::number(QFileInfo(path).lastModified().toSecsSinceEpoch());
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    for (const char *size : {"xx-large", "x-large", "large", "normal"}) {
        for (const QByteArray &name : namesOf(path)) {
            PreviewFile thumbnail(QStringLiteral("%1/thumbnails/%2/%3.png")
                                      .arg(cache, QLatin1String(size), QLatin1String(name)),
                                  patience);
            if (thumbnail.openRegular() && isIt(thumbnail, written))
                return;
        }
    }
}
