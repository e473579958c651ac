#include "platform/pasteboard/PictureFormats.h"

#include <QBuffer>
#include <QHash>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>

#include <algorithm>
#include <array>

namespace {

const QString kPrefix = QStringLiteral("image/");

bool isPicture(const QString &name)
{
    // Lines or layers, of which a picture is only one view: none can be made from another.
    static const std::array kDrawings{QStringLiteral("svg"),        QStringLiteral("wmf"),
                                      QStringLiteral("emf"),        QStringLiteral("xcf"),
                                      QStringLiteral("openraster"), QStringLiteral("psd")};
    return name.startsWith(kPrefix) &&
           std::none_of(kDrawings.begin(), kDrawings.end(), [&](const QString &drawing) {
               return name.contains(drawing, Qt::CaseInsensitive);
           });
}

/// What image plug-ins call the encoding.
QByteArray encodingOf(const QString &name)
{
    // Programs list one encoding under all the names it has had.
    static const QHash<QByteArray, QByteArray> kOthers{{"ms-bmp", "bmp"},
                                                       {"portable-pixmap", "ppm"},
                                                       {"icon", "ico"},
                                                       {"vnd.microsoft.icon", "ico"}};
    QByteArray encoding = name.mid(kPrefix.size()).toLower().toLatin1();
    if (encoding.startsWith("x-"))
        encoding.remove(0, 2);
    return kOthers.value(encoding, encoding);
}

int rankOf(const QString &name)
{
    // Whole ones that all programs can read, then those that lose something.
    static const std::array<QByteArray, 7> kBest{"png",  "bmp", "tiff", "tif",
                                                 "webp", "ppm", "jpeg"};
    return int(std::find(kBest.begin(), kBest.end(), encodingOf(name)) - kBest.begin());
}

} // namespace

QStringList PictureFormats::inOrder(const QStringList &names)
{
    QStringList pictures;
    std::copy_if(names.begin(), names.end(), std::back_inserter(pictures), isPicture);
    std::stable_sort(
        pictures.begin(), pictures.end(),
        [](const QString &one, const QString &other) { return rankOf(one) < rankOf(other); });
    return pictures;
}

QStringList PictureFormats::writable(const QByteArray &picture, const QStringList &names)
{
    QBuffer buffer;
    buffer.setData(picture);
    // No promise that could not be kept: what TARGETS names is asked for.
    if (!QImageReader(&buffer).canRead())
        return {};
    const QList<QByteArray> encodings = QImageWriter::supportedImageFormats();
    QStringList result;
    std::copy_if(names.begin(), names.end(), std::back_inserter(result), [&](const QString &name) {
        return isPicture(name) && encodings.contains(encodingOf(name));
    });
    return result;
}

QList<PictureFormats::Encoding>
PictureFormats::othersOf(const QStringList &listed,
                         const std::function<std::optional<QByteArray>(const QString &name)> &kept)
{
    for (const QString &name : inOrder(listed)) {
        const std::optional<QByteArray> picture = kept(name);
        if (!picture)
            continue;
        QStringList wanted = listed;
        if (!wanted.contains(kPng))
            wanted.append(kPng);
        wanted.removeAll(name);
        QList<Encoding> others;
        for (const QString &other : writable(*picture, wanted))
            others.append({other, *picture,
                           [other](const QByteArray &bytes) { return convert(bytes, other); }});
        return others;
    }
    return {};
}

std::optional<QByteArray> PictureFormats::convert(const QByteArray &picture, const QString &name)
{
    QBuffer read;
    read.setData(picture);
    const QImage image = QImageReader(&read).read();
    QBuffer written;
    if (image.isNull() || !image.save(&written, encodingOf(name).constData()))
        return std::nullopt;
    return written.data();
}
