#include "history/ClipLine.h"

#include <algorithm>

namespace {

constexpr qsizetype kDrawnLength = 512; // characters, more than a row shows

bool isBlank(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

/// Blanks at both ends go.
QStringView trimmed(QStringView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.mid(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

QString wholeCharacters(QByteArray utf8)
{
    const auto isContinuation = [](char byte) { return (byte & 0xC0) == 0x80; };
    while (!utf8.isEmpty() && isContinuation(utf8.back()))
        utf8.chop(1);
    utf8.chop(1);
    return QString::fromUtf8(utf8);
}

} // namespace

ClipLine ClipLine::ofText(QStringView text)
{
    const QStringView kept = trimmed(text);
    const auto *first = std::find_if_not(kept.begin(), kept.end(),
                                         [](QChar character) { return character.isSpace(); });
    // Line breaks only fall out: a text of several lines becomes one.
    return {kept.toString().remove(u'\n'), kept.mid(first - kept.begin(), kDrawnLength).toString(),
            0};
}

QString ClipLine::decoded(const ClipStore::TextPart &start)
{
    return start.bytes.size() == start.size ? QString::fromUtf8(start.bytes)
                                            : wholeCharacters(start.bytes);
}

QString ClipLine::plain(QStringView text, qsizetype limit)
{
    QString line;
    line.reserve(std::min(text.size(), limit));
    for (const QChar character : text) {
        const bool isSpace = character.isSpace() || character.category() == QChar::Other_Control;
        if (isSpace && (line.isEmpty() || line.back() == u' '))
            continue;
        if (line.size() >= limit)
            break;
        line.append(isSpace ? QChar(u' ') : character);
    }
    // Half a character.
    if (!line.isEmpty() && line.back().isHighSurrogate())
        line.chop(1);
    return line.endsWith(u' ') ? line.chopped(1) : line;
}
