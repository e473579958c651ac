#pragma once

#include "preview/decoders/PreviewReader.h"

#include <QByteArray>

#include <optional>

/// Vector pictures, drawn at the size of the view.
class SvgReader : public PreviewReader
{
public:
    // ^PreviewReader
    bool accepts(const PreviewType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const PreviewType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;

    /// The drawing without what refers to other files, which it must not make us read. None when
    /// it is not well-formed, or when elements that repeat others make it grow beyond all bounds.
    static std::optional<QByteArray> harmless(const QByteArray &drawing);
};
