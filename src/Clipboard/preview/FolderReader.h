#pragma once

#include "Clipboard/preview/PreviewReader.h"

/// Folders: how much they hold, as far as it was counted in a moment, and the first entries.
class FolderReader : public PreviewReader
{
public:
    static constexpr int kMaxCounted = 20'000; ///< Looked at, in the folders below as well.

    // ^PreviewReader
    bool accepts(const QMimeType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const QMimeType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;
};
