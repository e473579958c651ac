#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

/// A piece of RTF.
struct RtfToken
{
    enum class Kind {
        Open,
        Close,
        Word,   ///< A control word: `text` without the backslash.
        Symbol, ///< A control symbol: `text` is its one character.
        Byte,   ///< An escaped byte: `number`.
        Text,   ///< Bytes in the encoding of the font.
    };
    Kind kind = Kind::Text;
    QByteArrayView text = {};
    bool hasNumber = false;
    int number = 0;
};

/// The pieces of RTF one after the other. Reads each byte once, and anything at all; binary data
/// are passed over. The RTF has to outlive it and what it gives.
class RtfTokens
{
public:
    explicit RtfTokens(const QByteArray &rtf, qsizetype start = 0);

    /// False at the end.
    bool next(RtfToken *token);

    /// Where the next piece begins.
    qsizetype place() const { return m_place; }
    /// Back to such a place.
    void goTo(qsizetype place) { m_place = place; }

    /// Where the brace is that closes the outermost group; absent when it is no RTF or never
    /// closes.
    static std::optional<qsizetype> endOfDocument(const QByteArray &rtf);

private:
    void readControl(RtfToken *token);
    void readWord(RtfToken *token);

    QByteArrayView m_rtf;
    qsizetype m_place;
};
