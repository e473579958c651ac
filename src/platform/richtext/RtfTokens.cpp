#include "platform/richtext/RtfTokens.h"

#include <algorithm>

namespace {

/// More would be no number of RTF's; far from what overflows.
constexpr int kMaxDigits = 9;

bool isLetter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

/// Negative when it is none.
int digitOf(char character)
{
    if (isDigit(character))
        return character - '0';
    const char small = static_cast<char>(character | 0x20);
    return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

bool isLineBreak(char character)
{
    return character == '\r' || character == '\n' || character == '\0';
}

bool isMarkup(char character)
{
    return character == '\\' || character == '{' || character == '}' || isLineBreak(character);
}

} // namespace

RtfTokens::RtfTokens(const QByteArray &rtf, qsizetype start) : m_rtf(rtf), m_place(start) {}

bool RtfTokens::next(RtfToken *token)
{
    for (;;) {
        // Lines are broken anywhere and mean nothing.
        while (m_place < m_rtf.size() && isLineBreak(m_rtf[m_place]))
            ++m_place;
        if (m_place >= m_rtf.size())
            return false;
        *token = {};
        const char first = m_rtf[m_place];
        if (first == '\\') {
            readControl(token);
            if (token->kind == RtfToken::Kind::Word && token->text == "bin") {
                const qsizetype left = m_rtf.size() - m_place;
                m_place += std::clamp(qsizetype(token->number), qsizetype(0), left);
                continue;
            }
            return true;
        }
        const qsizetype start = m_place++;
        if (first == '{' || first == '}') {
            token->kind = first == '{' ? RtfToken::Kind::Open : RtfToken::Kind::Close;
            return true;
        }
        while (m_place < m_rtf.size() && !isMarkup(m_rtf[m_place]))
            ++m_place;
        token->text = m_rtf.sliced(start, m_place - start);
        return true;
    }
}

void RtfTokens::readControl(RtfToken *token)
{
    ++m_place;
    token->kind = RtfToken::Kind::Symbol;
    if (m_place >= m_rtf.size())
        return;
    const char first = m_rtf[m_place];
    if (isLetter(first)) {
        readWord(token);
        return;
    }
    const qsizetype left = m_rtf.size() - m_place;
    if (first == '\'' && left > 2 && digitOf(m_rtf[m_place + 1]) >= 0 &&
        digitOf(m_rtf[m_place + 2]) >= 0) {
        token->kind = RtfToken::Kind::Byte;
        token->number = digitOf(m_rtf[m_place + 1]) * 16 + digitOf(m_rtf[m_place + 2]);
        m_place += 3;
        return;
    }
    token->text = m_rtf.sliced(m_place, 1);
    ++m_place;
    if (first == '\\' || first == '{' || first == '}')
        token->kind = RtfToken::Kind::Text;
}

void RtfTokens::readWord(RtfToken *token)
{
    token->kind = RtfToken::Kind::Word;
    const qsizetype start = m_place;
    while (m_place < m_rtf.size() && isLetter(m_rtf[m_place]))
        ++m_place;
    token->text = m_rtf.sliced(start, m_place - start);
    const qsizetype digits =
        m_place + 1 < m_rtf.size() && m_rtf[m_place] == '-' ? m_place + 1 : m_place;
    if (digits < m_rtf.size() && isDigit(m_rtf[digits])) {
        const bool isNegative = digits > m_place;
        m_place = digits;
        while (m_place < m_rtf.size() && isDigit(m_rtf[m_place])) {
            if (m_place - digits < kMaxDigits)
                token->number = token->number * 10 + (m_rtf[m_place] - '0');
            ++m_place;
        }
        token->hasNumber = true;
        if (isNegative)
            token->number = -token->number;
    }
    if (m_place < m_rtf.size() && m_rtf[m_place] == ' ')
        ++m_place;
}

std::optional<qsizetype> RtfTokens::endOfDocument(const QByteArray &rtf)
{
    if (!rtf.startsWith("{\\rtf"))
        return std::nullopt;
    RtfTokens tokens(rtf);
    qsizetype depth = 0;
    for (RtfToken token; tokens.next(&token);) {
        if (token.kind == RtfToken::Kind::Open)
            ++depth;
        else if (token.kind == RtfToken::Kind::Close && --depth == 0)
            return tokens.m_place - 1;
    }
    return std::nullopt;
}
