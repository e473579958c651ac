#include "history/FoldedText.h"

#include <QString>

#include <algorithm>

QByteArray FoldedText::fold(QByteArrayView utf8)
{
    unsigned char bits = 0;
    for (const char byte : utf8)
        bits |= static_cast<unsigned char>(byte);
    if (bits & 0x80)
        return QString::fromUtf8(utf8).toCaseFolded().toUtf8();
    // Most texts are plain ASCII, and a hundred thousand of them are folded at a start.
    QByteArray folded(utf8.size(), Qt::Uninitialized);
    std::transform(utf8.begin(), utf8.end(), folded.begin(), [](char byte) {
        return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
    });
    return folded;
}
