#pragma once

#include "preview/decoders/PreviewReader.h"

/// Pictures of every format that Qt reads, decoded at the size of the view; animations move.
class ImageReader : public PreviewReader
{
public:
    /// More than the largest photograph; a picture that claims more is not decoded.
    static constexpr qint64 kMaxPixels = 200'000'000;

    // ^PreviewReader
    bool accepts(const PreviewType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const PreviewType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;

    /// A picture that a file manager made of another file; null unless that had been written at
    /// `written` by then, in seconds.
    static std::shared_ptr<const PreviewContent> thumbnail(PreviewFile &file,
                                                           const QString &written);
};
