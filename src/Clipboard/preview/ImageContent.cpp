#include "Clipboard/preview/ImageContent.h"

#include "Clipboard/preview/ImageBody.h"

#include <numeric>

ImageContent::ImageContent(std::vector<Frame> frames, bool isReduced)
    : m_frames(std::move(frames)), m_isReduced(isReduced)
{
}

PreviewBody *ImageContent::makeBody(FileQuestions &, QWidget *parent) const
{
    return new ImageBody(m_frames, parent);
}

qint64 ImageContent::byteCount() const
{
    return std::accumulate(
        m_frames.begin(), m_frames.end(), qint64(0),
        [](qint64 sum, const Frame &frame) { return sum + frame.image.sizeInBytes(); });
}
