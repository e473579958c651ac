#pragma once

#include "preview/PreviewContent.h"

#include <QImage>

#include <vector>

/// A picture, or the pictures of an animation, each with the time it stands.
class ImageContent : public PreviewContent
{
public:
    struct Frame
    {
        QImage image;
        int milliseconds = 0;
    };

    static constexpr size_t kMaxFrames = 200;

    /// `frames` holds at least one; `isReduced` when the file holds a larger picture.
    ImageContent(std::vector<Frame> frames, bool isReduced);

    const std::vector<Frame> &frames() const { return m_frames; }

    // ^PreviewContent
    qint64 byteCount() const override;
    bool dependsOnSize() const override { return m_isReduced; }

private:
    const std::vector<Frame> m_frames;
    const bool m_isReduced;
};
