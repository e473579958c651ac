#pragma once

#include "preview/decoders/PreviewReader.h"

/// Archives: their entries in the order of the archive, as far as they were read in a moment.
/// Nothing is unpacked but what must be skipped, and no other program is asked.
class ArchiveReader : public PreviewReader
{
public:
    static constexpr int kMaxCounted = 20'000;

    // ^PreviewReader
    bool accepts(const PreviewType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const PreviewType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;
};
