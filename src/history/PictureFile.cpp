#include "history/PictureFile.h"

#include "history/HistoryLog.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QtEndian>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>

namespace {

/// What is unpacked takes four bytes each, twice for a moment.
constexpr qint64 kMaxPixels = qint64(64) * 1000 * 1000;
constexpr qsizetype kHashLength = 24; // hexadecimal digits

const QByteArray kPngSignature = QByteArrayLiteral("\x89PNG\r\n\x1a\n");

/// The size of a PNG that is there to its end; empty of what is none.
QSize sizeOfPng(const QByteArray &bytes)
{
    constexpr qsizetype kAround = 12; // A chunk's length, name and checksum.
    constexpr qsizetype kHeader = 13;
    if (!bytes.startsWith(kPngSignature))
        return {};
    QSize size;
    bool hasPixels = false;
    for (qsizetype at = kPngSignature.size(); at + kAround <= bytes.size();) {
        const char *chunk = bytes.constData() + at;
        const auto length = qFromBigEndian<quint32>(chunk);
        const QByteArrayView name(chunk + 4, 4);
        if (qint64(length) > bytes.size() - at - kAround)
            return {};
        if (name == "IEND")
            return hasPixels ? size : QSize();
        if (name == "IHDR" && length == kHeader)
            size = QSize(qFromBigEndian<qint32>(chunk + 8), qFromBigEndian<qint32>(chunk + 12));
        hasPixels |= name == "IDAT";
        at += kAround + qsizetype(length);
    }
    return {};
}

/// The picture as PNG; its size says too much when it has more pixels than are unpacked.
struct Png
{
    QByteArray bytes = {};
    QSize size = {};
    bool isTooLarge = false;
};

Png pngOf(const QByteArray &picture)
{
    if (picture.startsWith(kPngSignature))
        return {picture, sizeOfPng(picture)};
    QBuffer source;
    source.setData(picture);
    QImageReader reader(&source);
    const QSize size = reader.size();
    if (qint64(size.width()) * size.height() > kMaxPixels)
        return {{}, size, true};
    reader.setAutoTransform(true);
    const QImage image = reader.read();
    QBuffer png;
    if (image.isNull() || !image.save(&png, "png"))
        return {};
    return {png.data(), image.size()};
}

void makePrivateFolder(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder);
    if (::mkdir(path.constData(), S_IRWXU) != 0)
        ::chmod(path.constData(), S_IRWXU);
}

bool writePrivately(const QString &path, const QByteArray &bytes)
{
    const int descriptor =
        ::open(QFile::encodeName(path).constData(),
               O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    QFile file;
    const bool isWritten = descriptor >= 0 &&
                           file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
                                     QFileDevice::AutoCloseHandle) &&
                           file.write(bytes) == bytes.size() && ::fdatasync(descriptor) == 0;
    if (isWritten)
        return true;
    qCWarning(lcHistory).noquote()
        << QStringLiteral("A picture could not be written: %1: %2").arg(path, qt_error_string());
    if (descriptor >= 0)
        QFile::remove(path);
    return false;
}

} // namespace

PictureFile PictureFile::write(const QByteArray &picture, qint64 maxBytes, const QString &folder)
{
    static std::atomic<int> parts = 0;
    const Png png = pngOf(picture);
    PictureFile file;
    file.size = png.size;
    if (png.isTooLarge || png.bytes.size() > maxBytes) {
        file.fault = Fault::TooLarge;
        if (!png.isTooLarge)
            file.bytes = png.bytes.size();
        return file;
    }
    if (png.size.isEmpty())
        return file;
    file.bytes = png.bytes.size();
    const QByteArray hash = QCryptographicHash::hash(png.bytes, QCryptographicHash::Sha256).toHex();
    file.path = QStringLiteral("%1/picture-%2x%3-%4.png")
                    .arg(folder)
                    .arg(png.size.width())
                    .arg(png.size.height())
                    .arg(QString::fromLatin1(hash.left(kHashLength)));
    file.partPath = QStringLiteral("%1.%2-%3.part").arg(file.path).arg(::getpid()).arg(++parts);
    makePrivateFolder(folder);
    file.fault = writePrivately(file.partPath, png.bytes) ? Fault::None : Fault::NotWritten;
    return file;
}

bool PictureFile::restore(const QString &path, const QByteArray &bytes)
{
    makePrivateFolder(QFileInfo(path).path());
    return QFileInfo::exists(path) || writePrivately(path, bytes);
}
