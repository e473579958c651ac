#pragma once

#include "Clipboard/preview/PreviewRenderer.h"

/// Pictures of every format that Qt reads, decoded at the size of the view; animations move.
class ImageRenderer : public PreviewRenderer
{
public:
    /// More than the largest photograph; a picture that claims more is not decoded.
    static constexpr qint64 kMostPixels = 200'000'000;

    // ^PreviewRenderer
    bool accepts(const QMimeType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const QMimeType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;
};
