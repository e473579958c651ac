#include "platform/pasteboard/CompoundText.h"

#include "platform/pasteboard/SelectionText.h"

#include <algorithm>

namespace {

constexpr char kEscape = '\x1B';
constexpr char kControlSequence = '\x9B';
constexpr char kStartOfText = '\x02';
// Not part of the encoding as it was published: Xlib writes it for what no announced set has.
const QByteArray kUtf8Begins = QByteArrayLiteral("\x1B%G");
const QByteArray kUtf8Ends = QByteArrayLiteral("\x1B%@");
const QByteArray kReplacement = QByteArrayLiteral("\xEF\xBF\xBD");

/// A character set and the encoding that has it in the upper half of the bytes.
struct Set
{
    const char *announcement; ///< After the escape.
    const char *encoding;
    bool isDouble = false; ///< Two bytes a character.
    char prefix = 0;       ///< To be put before each character in the encoding.
};

// The last rows are the short announcements of ISO 2022, which old programs write. EUC reaches
// half-width kana behind the byte 8E and the third Japanese set behind 8F.
constexpr Set kLeftSets[] = {
    {"(B", "US-ASCII"},      {"(J", "US-ASCII"},      {"$(A", "EUC-CN", true},
    {"$(B", "EUC-JP", true}, {"$(C", "EUC-KR", true}, {"$(D", "EUC-JP", true, '\x8F'},
    {"$A", "EUC-CN", true},  {"$B", "EUC-JP", true},
};
constexpr Set kRightSets[] = {
    {"-A", "ISO-8859-1"},    {"-B", "ISO-8859-2"},
    {"-C", "ISO-8859-3"},    {"-D", "ISO-8859-4"},
    {"-F", "ISO-8859-7"},    {"-G", "ISO-8859-6"},
    {"-H", "ISO-8859-8"},    {"-L", "ISO-8859-5"},
    {"-M", "ISO-8859-9"},    {"-T", "TIS-620"},
    {"-V", "ISO-8859-10"},   {"-Y", "ISO-8859-13"},
    {"-_", "ISO-8859-14"},   {"-b", "ISO-8859-15"},
    {"-f", "ISO-8859-16"},   {")I", "EUC-JP", false, '\x8E'},
    {"$)A", "EUC-CN", true}, {"$)B", "EUC-JP", true},
    {"$)C", "EUC-KR", true}, {"$)D", "EUC-JP", true, '\x8F'},
};

QByteArray decode(const QByteArray &bytes, const char *encoding)
{
    const std::optional<QString> text = SelectionText::decoded(bytes, encoding);
    return text ? text->toUtf8() : kReplacement;
}

bool isUpper(char byte)
{
    return static_cast<unsigned char>(byte) >= 0xA0;
}

bool isControl(char byte)
{
    return (static_cast<unsigned char>(byte) & 0x7F) < 0x20;
}

class Reader
{
public:
    explicit Reader(const QByteArray &bytes) : m_bytes(bytes) {}

    QByteArray read()
    {
        while (m_at < m_bytes.size()) {
            if (m_bytes[m_at] == kEscape)
                readAnnouncement();
            else if (m_bytes[m_at] == kControlSequence)
                skipDirection();
            else if (isControl(m_bytes[m_at]))
                m_text += m_bytes[m_at++];
            else
                readPiece();
        }
        return m_text;
    }

private:
    void readAnnouncement()
    {
        if (m_bytes.mid(m_at, kUtf8Begins.size()) == kUtf8Begins) {
            const qsizetype begin = m_at + kUtf8Begins.size();
            const qsizetype end = m_bytes.indexOf(kUtf8Ends, begin);
            m_text += m_bytes.mid(begin, end < 0 ? -1 : end - begin);
            m_at = end < 0 ? m_bytes.size() : end + kUtf8Ends.size();
            return;
        }
        qsizetype end = m_at + 1;
        while (end < m_bytes.size() && m_bytes[end] >= 0x20 && m_bytes[end] <= 0x2F)
            ++end;
        const QByteArray announcement = m_bytes.mid(m_at + 1, end - m_at);
        m_at = std::min(end + 1, m_bytes.size());
        // An announcement that nobody knows is passed over: the text behind it is better than none.
        if (announcement.startsWith("%/"))
            readSegment();
        for (const Set &set : kLeftSets)
            m_left = announcement == set.announcement ? &set : m_left;
        for (const Set &set : kRightSets)
            m_right = announcement == set.announcement ? &set : m_right;
    }

    /// A piece in an encoding that is told by its name, with its length before it.
    void readSegment()
    {
        // Two digits to the base of 128, with the top bit set so that neither is a control
        // character.
        const auto digit = [this](qsizetype at) {
            return at < m_bytes.size() ? static_cast<unsigned char>(m_bytes[at]) & 0x7F : 0;
        };
        const qsizetype length = digit(m_at) * 128 + digit(m_at + 1);
        const QByteArray segment = m_bytes.mid(m_at + 2, length);
        m_at = std::min(m_at + 2 + length, m_bytes.size());
        const qsizetype nameEnd = segment.indexOf(kStartOfText);
        if (nameEnd >= 0)
            m_text += decode(segment.mid(nameEnd + 1), segment.left(nameEnd).constData());
    }

    void skipDirection()
    {
        // Plain text has no place for the direction in which it was written.
        while (m_at < m_bytes.size() && m_bytes[m_at] != ']')
            ++m_at;
        ++m_at;
    }

    /// The characters up to the next announcement or the other half.
    void readPiece()
    {
        const bool isRight = isUpper(m_bytes[m_at]);
        const Set &set = isRight ? *m_right : *m_left;
        QByteArray piece;
        for (int i = 0; m_at < m_bytes.size(); ++m_at, ++i) {
            const char byte = m_bytes[m_at];
            if (isControl(byte) || isUpper(byte) != isRight)
                break;
            if (set.prefix != 0 && (!set.isDouble || i % 2 == 0))
                piece += set.prefix;
            // The left half has the same characters seven bits wide.
            piece += set.isDouble ? static_cast<char>(byte | 0x80) : byte;
        }
        m_text += decode(piece, set.encoding);
    }

    const QByteArray &m_bytes;
    qsizetype m_at = 0;
    QByteArray m_text;
    // With nothing announced it is ASCII and Latin-1, so that any STRING is a COMPOUND_TEXT too.
    const Set *m_left = &kLeftSets[0];
    const Set *m_right = &kRightSets[0];
};

} // namespace

QByteArray CompoundText::toUtf8(const QByteArray &compoundText)
{
    return Reader(compoundText).read();
}
