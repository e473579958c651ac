#pragma once

#include "Clipboard/preview/PreviewReader.h"

/// Films, sounds and office documents, by the picture that a file manager has put into the
/// desktop's thumbnail cache; only if it is of the file as it is now.
class ThumbnailReader : public PreviewReader
{
public:
    // ^PreviewReader
    bool accepts(const QMimeType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const QMimeType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;
};
