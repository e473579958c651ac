#pragma once

#include "preview/decoders/PreviewReader.h"

#include <optional>

/// Texts of every kind: the beginning, with its encoding detected. Markdown is shown as it means;
/// of a web page the text alone is shown, and nothing it names is fetched.
class TextReader : public PreviewReader
{
public:
    static constexpr qint64 kMaxBytes = 256 << 10;

    // ^PreviewReader
    bool accepts(const PreviewType &type) const override;
    std::shared_ptr<const PreviewContent> read(PreviewFile &file, const PreviewType &type,
                                               QSize pixels,
                                               const Patience &patience) const override;

    /// The text that `bytes`, the beginning of a file, hold; none when they are no text.
    static std::optional<QString> decoded(const QByteArray &bytes);
};
