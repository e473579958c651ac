#pragma once

#include "preview/PreviewType.h"

#include <QSize>

#include <memory>
#include <vector>

class Patience;
class PreviewContent;
class PreviewFile;

/// Knows how to read files of some kinds. Nothing of what it reads is trusted, and neither is it
/// itself: it runs where it can reach nothing but the one file. Without state.
class PreviewReader
{
public:
    PreviewReader() = default;
    PreviewReader(const PreviewReader &) = delete;
    PreviewReader &operator=(const PreviewReader &) = delete;
    virtual ~PreviewReader() = default;

    virtual bool accepts(const PreviewType &type) const = 0;

    /// Reads what a view of `pixels` needs; null when the file is not what its type says, or too
    /// much. `file` is open at its beginning. A read that takes long asks `patience` now and then.
    virtual std::shared_ptr<const PreviewContent> read(PreviewFile &file, const PreviewType &type,
                                                       QSize pixels,
                                                       const Patience &patience) const = 0;
};
