#include "Clipboard/preview/ThumbnailReader.h"

#include "Clipboard/preview/ImageContent.h"
#include "Clipboard/preview/PreviewFile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QMimeType>
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

bool ThumbnailReader::accepts(const QMimeType &type) const
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

std::shared_ptr<const PreviewContent> ThumbnailReader::read(PreviewFile &file, const QMimeType &,
                                                            QSize, const Patience &patience) const
{
    constexpr qint64 kMaxBytes = 8 << 20;
    constexpr int kMaxExtent = 1024; ///< Of the largest kind of thumbnail.
    const QString written =
        QString::number(QFileInfo(file.path()).lastModified().toSecsSinceEpoch());
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    for (const char *size : {"xx-large", "x-large", "large", "normal"}) {
        for (const QByteArray &name : namesOf(file.path())) {
            PreviewFile thumbnail(QStringLiteral("%1/thumbnails/%2/%3.png")
                                      .arg(cache, QLatin1String(size), QLatin1String(name)),
                                  patience);
            if (!thumbnail.openRegular())
                continue;
            thumbnail.setByteLimit(kMaxBytes);
            QImageReader reader(&thumbnail, "png");
            if (reader.size().width() > kMaxExtent || reader.size().height() > kMaxExtent)
                continue;
            const QImage image = reader.read();
            if (image.isNull() || image.text(QStringLiteral("Thumb::MTime")) != written)
                continue;
            return std::make_shared<ImageContent>(std::vector<ImageContent::Frame>{{image, 0}},
                                                  false);
        }
    }
    return nullptr;
}
