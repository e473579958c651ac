#pragma once

#include "preview/decoders/PreviewReader.h"

/// Fonts: a specimen in several sizes. The font is not made known to other previews.
class FontReader : public PreviewReader
{
public:
    // ^PreviewReader
    bool accepts(const PreviewType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const PreviewType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;
};
