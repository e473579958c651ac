#pragma once

#include <QtGlobal>

/// What was read of a file, ready to be shown: pixels, outlines and texts, nothing that would have
/// to be decoded. Immutable, for any thread, and kept for when the file is looked at again.
class PreviewContent
{
public:
    PreviewContent() = default;
    PreviewContent(const PreviewContent &) = delete;
    PreviewContent &operator=(const PreviewContent &) = delete;
    virtual ~PreviewContent() = default;

    /// Bytes of memory it holds, roughly.
    virtual qint64 byteCount() const = 0;

    /// Whether it was made for a view of one size and must be made anew for a larger one.
    virtual bool dependsOnSize() const { return false; }
};
