#include "platform/richtext/RtfMarkup.h"

namespace {

constexpr char kDigits[] = "0123456789abcdef";

bool isLetterOrDigit(char character)
{
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'z') ||
           (character >= 'A' && character <= 'Z');
}

} // namespace

RtfMarkup::RtfMarkup(int codePage, Replacements replacements)
    : m_bytes(CodePage(codePage).upperHalf()), m_replacements(replacements)
{
    if (replacements == Replacements::None)
        addWord("\\uc0");
}

void RtfMarkup::separate(char next)
{
    // A space behind a word belongs to it, and so would a letter, a number and its sign.
    if (m_endsInWord && (isLetterOrDigit(next) || next == ' ' || next == '-'))
        m_source += ' ';
    m_endsInWord = false;
}

void RtfMarkup::add(char16_t character)
{
    if (character == u'\\' || character == u'{' || character == u'}') {
        separate('\\');
        m_source += '\\';
        m_source += static_cast<char>(character);
    } else if (character >= 0x20 && character < 0x7F) {
        separate(static_cast<char>(character));
        m_source += static_cast<char>(character);
    } else if (character < 0x80) {
        addByte(static_cast<uchar>(character));
    } else if (const auto byte = m_bytes.constFind(character); byte != m_bytes.cend()) {
        addByte(*byte);
    } else {
        // RTF counts in signed 16-bit numbers.
        addWord("\\u" + QByteArray::number(static_cast<qint16>(character)));
        if (m_replacements == Replacements::One)
            add(u'?');
    }
}

void RtfMarkup::addText(QStringView text)
{
    for (const QChar character : text)
        add(character.unicode());
}

void RtfMarkup::addByte(uchar byte)
{
    separate('\\');
    const char escape[] = {'\\', '\'', kDigits[byte >> 4], kDigits[byte & 0xF]};
    m_source.append(escape, sizeof escape);
}

void RtfMarkup::addWord(const QByteArray &word)
{
    m_source += word;
    m_endsInWord = true;
}

void RtfMarkup::addRaw(const QByteArray &markup)
{
    if (markup.isEmpty())
        return;
    separate(markup.front());
    m_source += markup;
}
