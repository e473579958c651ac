#include "platform/richtext/HtmlTokens.h"

namespace {

constexpr qsizetype kMaxAttributes = 64;
constexpr qsizetype kMaxNameLength = 64;

bool isLetter(QChar character)
{
    return (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z');
}

} // namespace

QStringView HtmlToken::attribute(QLatin1String attributeName) const
{
    for (const Attribute &attribute : attributes)
        if (attribute.name == attributeName)
            return attribute.value;
    return {};
}

bool HtmlTokens::isAt(qsizetype place, char16_t character) const
{
    return place < m_source.size() && m_source[place] == character;
}

bool HtmlTokens::next(HtmlToken *token)
{
    if (m_place >= m_source.size())
        return false;
    *token = {};
    const qsizetype start = m_place;
    while (m_place < m_source.size()) {
        const QChar following = m_place + 1 < m_source.size() ? m_source[m_place + 1] : QChar();
        const bool isMarkup =
            m_source[m_place] == u'<' &&
            (isLetter(following) || following == u'/' || following == u'!' || following == u'?');
        if (isMarkup)
            break;
        ++m_place;
    }
    if (m_place > start)
        token->text = m_source.sliced(start, m_place - start);
    else
        readMarkup(token);
    return true;
}

QStringView HtmlTokens::readUntil(QStringView end, qsizetype from)
{
    const qsizetype found = m_source.indexOf(end, from);
    const QStringView read = m_source.sliced(from, (found < 0 ? m_source.size() : found) - from);
    m_place = found < 0 ? m_source.size() : found + end.size();
    return read;
}

void HtmlTokens::readMarkup(HtmlToken *token)
{
    token->kind = HtmlToken::Kind::Comment;
    const QStringView left = m_source.sliced(m_place);
    if (left.startsWith(QLatin1String("<!--"))) {
        token->text = readUntil(u"-->", m_place + 4);
        return;
    }
    const bool isClose = isAt(m_place + 1, u'/');
    const qsizetype nameStart = m_place + (isClose ? 2 : 1);
    if (nameStart >= m_source.size() || !isLetter(m_source[nameStart])) {
        token->text = readUntil(u">", m_place + 2);
        return;
    }
    token->kind = isClose ? HtmlToken::Kind::Close : HtmlToken::Kind::Open;
    m_place = nameStart;
    readTag(token);
}

void HtmlTokens::readTag(HtmlToken *token)
{
    const qsizetype start = m_place;
    while (m_place < m_source.size() && !m_source[m_place].isSpace() && m_source[m_place] != u'>' &&
           m_source[m_place] != u'/')
        ++m_place;
    token->name =
        m_source.sliced(start, qMin(m_place - start, kMaxNameLength)).toString().toLower();
    while (readAttribute(token)) {
    }
}

void HtmlTokens::skipSpaces()
{
    while (m_place < m_source.size() && m_source[m_place].isSpace())
        ++m_place;
}

bool HtmlTokens::readAttribute(HtmlToken *token)
{
    while (m_place < m_source.size() && (m_source[m_place].isSpace() || isAt(m_place, u'/')))
        ++m_place;
    if (m_place >= m_source.size()) {
        // A tag that never ends is none.
        token->kind = HtmlToken::Kind::Comment;
        return false;
    }
    if (isAt(m_place, u'>')) {
        token->isClosed = isAt(m_place - 1, u'/');
        ++m_place;
        return false;
    }
    const qsizetype start = m_place++;
    while (m_place < m_source.size() && !m_source[m_place].isSpace() && m_source[m_place] != u'>' &&
           m_source[m_place] != u'/' && m_source[m_place] != u'=')
        ++m_place;
    HtmlToken::Attribute attribute;
    attribute.name =
        m_source.sliced(start, qMin(m_place - start, kMaxNameLength)).toString().toLower();
    skipSpaces();
    if (isAt(m_place, u'=')) {
        ++m_place;
        skipSpaces();
        if (isAt(m_place, u'"') || isAt(m_place, u'\'')) {
            attribute.value = readUntil(m_source.sliced(m_place, 1), m_place + 1);
        } else {
            const qsizetype valueStart = m_place;
            while (m_place < m_source.size() && !m_source[m_place].isSpace() &&
                   m_source[m_place] != u'>')
                ++m_place;
            attribute.value = m_source.sliced(valueStart, m_place - valueStart);
        }
    }
    if (token->attributes.size() < kMaxAttributes)
        token->attributes.append(attribute);
    return true;
}

QStringView HtmlTokens::rawText(const QString &name)
{
    const qsizetype start = m_place;
    const QString end = QStringLiteral("</") + name;
    const qsizetype found = m_source.indexOf(end, start, Qt::CaseInsensitive);
    if (found < 0) {
        m_place = m_source.size();
        return m_source.sliced(start);
    }
    readUntil(u">", found);
    return m_source.sliced(start, found - start);
}

bool HtmlTokens::hasEnd(const HtmlToken &token)
{
    if (token.isClosed || m_endless.contains(token.name))
        return false;
    const QString end = QStringLiteral("</") + token.name;
    if (m_source.indexOf(end, m_place, Qt::CaseInsensitive) >= 0)
        return true;
    m_endless.insert(token.name);
    return false;
}
