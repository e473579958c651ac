#pragma once

#include "Clipboard/preview/PreviewReader.h"

/// Pictures of every format that Qt reads, decoded at the size of the view; animations move.
class ImageReader : public PreviewReader
{
public:
    /// More than the largest photograph; a picture that claims more is not decoded.
    static constexpr qint64 kMaxPixels = 200'000'000;

    // ^PreviewReader
    bool accepts(const QMimeType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const QMimeType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;
};
