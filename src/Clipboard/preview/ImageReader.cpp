#include "Clipboard/preview/ImageReader.h"

#include "Clipboard/preview/ImageContent.h"
#include "Clipboard/preview/PreviewFile.h"
#include "platform/FileQuestions.h"

#include <QImageReader>
#include <QMimeType>

namespace {

constexpr qint64 kMaxAnimationBytes = 48 << 20;
constexpr size_t kMaxFrames = 200;
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

bool ImageReader::accepts(const QMimeType &type) const
{
    // Of drawings and documents there are plug-ins as well, which know none of our bounds.
    return !type.inherits(QStringLiteral("image/svg+xml")) &&
           !type.inherits(QStringLiteral("application/pdf")) &&
           QImageReader::supportedMimeTypes().contains(type.name().toLatin1());
}

std::shared_ptr<const PreviewContent> ImageReader::read(PreviewFile &file, const QMimeType &type,
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
    } while (isAnimation && frames.size() < kMaxFrames && bytes < kMaxAnimationBytes &&
             !patience.isOver());
    if (frames.empty())
        return nullptr;
    return std::make_shared<ImageContent>(std::move(frames), isReduced);
}
