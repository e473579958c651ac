#pragma once

#include "preview/decoders/PreviewReader.h"

#include <QImage>

/// PDF documents: the sizes of the pages and the first page, and any other by itself.
class PdfReader : public PreviewReader
{
public:
    // ^PreviewReader
    bool accepts(const PreviewType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const PreviewType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;

    /// One page of a document in `width` pixels; null when it cannot be drawn.
    static QImage page(PreviewFile &file, int page, int width);
};
