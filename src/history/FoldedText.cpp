#include "history/FoldedText.h"

#include <QString>

#include <experimental/simd>

namespace {

/// False when there is a character beyond ASCII. A register's width at a time, because the whole
/// history is folded at a start, and long clips at each search.
bool foldAscii(QByteArrayView from, char *to)
{
    namespace stdx = std::experimental;
    using Bytes = stdx::native_simd<unsigned char>;
    constexpr auto kWidth = static_cast<qsizetype>(Bytes::size());

    qsizetype at = 0;
    for (; at + kWidth <= from.size(); at += kWidth) {
        Bytes bytes(reinterpret_cast<const unsigned char *>(from.data()) + at,
                    stdx::element_aligned);
        if (stdx::any_of(bytes >= static_cast<unsigned char>(0x80)))
            return false;
        stdx::where(bytes >= static_cast<unsigned char>('A') &&
                        bytes <= static_cast<unsigned char>('Z'),
                    bytes) += static_cast<unsigned char>('a' - 'A');
        bytes.copy_to(reinterpret_cast<unsigned char *>(to) + at, stdx::element_aligned);
    }
    for (; at < from.size(); ++at) {
        const char byte = from[at];
        if (byte & 0x80)
            return false;
        to[at] = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
    }
    return true;
}

} // namespace

QByteArray FoldedText::fold(QByteArrayView utf8)
{
    QByteArray folded(utf8.size(), Qt::Uninitialized);
    // Most texts are plain ASCII.
    return foldAscii(utf8, folded.data()) ? folded
                                          : QString::fromUtf8(utf8).toCaseFolded().toUtf8();
}
