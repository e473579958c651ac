#include "preview/ImageContent.h"

#include <numeric>

ImageContent::ImageContent(std::vector<Frame> frames, bool isReduced)
    : m_frames(std::move(frames)), m_isReduced(isReduced)
{
}

qint64 ImageContent::byteCount() const
{
    return std::accumulate(
        m_frames.begin(), m_frames.end(), qint64(0),
        [](qint64 sum, const Frame &frame) { return sum + frame.image.sizeInBytes(); });
}
