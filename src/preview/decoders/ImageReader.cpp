#include "preview/decoders/ImageReader.h"

#include "platform/FileQuestions.h"
#include "preview/ImageContent.h"
#include "preview/PreviewFile.h"

#include <QImageReader>

namespace {

constexpr qint64 kMaxAnimationBytes = 48 << 20;
constexpr int kMaxMegabytes = 512; ///< Of one picture while it is decoded.
constexpr int kMinFrame = 20;
constexpr int kUsualFrame = 100; ///< For frames that claim to stand no time at all.

QImage fitted(const QImage &image, QSize pixels)
{
    if (image.width() <= pixels.width() && image.height() <= pixels.height())
        return image;
    return image.scaled(pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

/// The size to decode at, before the picture is turned upright.
QSize decodedSize(const QImageReader &reader, QSize pixels)
{
    if (reader.transformation() & QImageIOHandler::TransformationRotate90)
        pixels.transpose();
    return reader.size().scaled(pixels, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

} // namespace

bool ImageReader::accepts(const PreviewType &type) const
{
    // Of drawings and documents there are plug-ins as well, which know none of our bounds.
    return !type.inherits(QLatin1String("image/svg+xml")) &&
           !type.inherits(QLatin1String("application/pdf")) &&
           QImageReader::supportedMimeTypes().contains(type.name().toLatin1());
}

std::shared_ptr<const PreviewContent> ImageReader::read(PreviewFile &file, const PreviewType &type,
                                                        QSize pixels,
                                                        const Patience &patience) const
{
    const QList<QByteArray> formats = QImageReader::imageFormatsForMimeType(type.name().toLatin1());
    QImageReader reader(&file, formats.value(0));
    reader.setAutoTransform(true);
    QImageReader::setAllocationLimit(kMaxMegabytes);
    const QSize whole = reader.size();
    if (qint64(whole.width()) * whole.height() > kMaxPixels)
        return nullptr;
    const bool isAnimation = reader.supportsAnimation();
    if (!isAnimation && (whole.width() > pixels.width() || whole.height() > pixels.height()))
        reader.setScaledSize(decodedSize(reader, pixels));

    std::vector<ImageContent::Frame> frames;
    bool isReduced = reader.scaledSize().isValid();
    qint64 bytes = 0;
    do {
        const QImage read = reader.read();
        if (read.isNull())
            break;
        const QImage image = fitted(read, pixels);
        isReduced = isReduced || image.size() != read.size();
        bytes += image.sizeInBytes();
        const int delay = reader.nextImageDelay();
        frames.push_back({image, delay < kMinFrame ? kUsualFrame : delay});
    } while (isAnimation && frames.size() < ImageContent::kMaxFrames &&
             bytes < kMaxAnimationBytes && !patience.isOver());
    if (frames.empty())
        return nullptr;
    return std::make_shared<ImageContent>(std::move(frames), isReduced);
}

std::shared_ptr<const PreviewContent> ImageReader::thumbnail(PreviewFile &file,
                                                             const QString &written)
{
    constexpr qint64 kMaxBytes = 8 << 20;
    constexpr int kMaxExtent = 1024; ///< Of the largest kind of thumbnail.
    file.setByteLimit(kMaxBytes);
    QImageReader reader(&file, "png");
    if (reader.size().width() > kMaxExtent || reader.size().height() > kMaxExtent)
        return nullptr;
    const QImage image = reader.read();
    if (image.isNull() || image.text(QStringLiteral("Thumb::MTime")) != written)
        return nullptr;
    return std::make_shared<ImageContent>(std::vector<ImageContent::Frame>{{image, 0}}, false);
}
