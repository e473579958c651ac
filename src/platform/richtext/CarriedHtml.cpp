#include "platform/richtext/CarriedHtml.h"

#include "platform/richtext/HtmlSource.h"
#include "platform/richtext/RtfMarkup.h"
#include "platform/richtext/RtfTokens.h"

#include <array>

namespace {

/// Its number is the form of the HTML, the next word's the encoding of its escaped bytes.
const QByteArray kOwnGroup = QByteArrayLiteral("{\\*\\quillmarshhtml");
/// What an Encapsulation says of itself, before its tables.
constexpr qsizetype kMaxOfBeginning = 200;

/// Puts the bytes or the text together again that HtmlSource::write() wrote.
class Collector
{
public:
    Collector(HtmlSource::Form form, int codePage) : m_form(form)
    {
        for (char16_t byte = 0x80; byte <= 0xFF; ++byte)
            m_upperHalf.at(byte - 0x80) = QChar(byte);
        if (form == HtmlSource::Form::Bytes)
            return;
        const CodePage::Bytes known = CodePage(codePage).upperHalf();
        for (auto entry = known.cbegin(); entry != known.cend(); ++entry)
            m_upperHalf.at(entry.value() - 0x80) = QChar(entry.key());
    }

    /// False for what is none of it.
    bool add(const RtfToken &token)
    {
        switch (token.kind) {
        case RtfToken::Kind::Text: {
            // Behind \u stands one character for those that do not know it.
            const QByteArrayView text = token.text.sliced(m_isSkipping ? 1 : 0);
            m_text += QLatin1String(text.data(), text.size());
            m_isSkipping = false;
            return true;
        }
        case RtfToken::Kind::Byte:
            m_text += token.number < 0x80 ? QChar(static_cast<char16_t>(token.number))
                                          : m_upperHalf.at(token.number - 0x80);
            return true;
        case RtfToken::Kind::Word:
            m_isSkipping = token.text == "u" && m_hasReplacements;
            if (token.text == "u" && token.hasNumber)
                m_text += QChar(static_cast<char16_t>(token.number));
            else if (token.text == "uc")
                m_hasReplacements = token.number > 0;
            else if (token.text == "par")
                m_text += QLatin1String("\r\n");
            else
                return false;
            return true;
        default:
            return false;
        }
    }

    QByteArray bytes() const { return HtmlSource::bytesOf(m_text, m_form); }

private:
    HtmlSource::Form m_form;
    QString m_text;
    std::array<QChar, 128> m_upperHalf{};
    bool m_hasReplacements = true;
    bool m_isSkipping = false;
};

/// The number of a word that has to come next.
std::optional<int> numberOf(RtfTokens &tokens, QByteArrayView word)
{
    RtfToken token;
    if (!tokens.next(&token) || token.kind != RtfToken::Kind::Word || token.text != word ||
        !token.hasNumber)
        return std::nullopt;
    return token.number;
}

/// HTML that stands last in the outermost group, and from where to where.
struct OwnGroup
{
    QByteArray html;
    qsizetype start;
    qsizetype end; ///< Of the brace that closes the document.
};

std::optional<OwnGroup> ownGroup(const QByteArray &rtf)
{
    const qsizetype start = rtf.lastIndexOf(kOwnGroup);
    if (start < 0)
        return std::nullopt;
    // Past the brace and the star.
    RtfTokens tokens(rtf, start + 3);
    const std::optional<int> number = numberOf(tokens, "quillmarshhtml");
    const auto form = number ? HtmlSource::formOf(*number) : std::nullopt;
    const std::optional<int> codePage = numberOf(tokens, "ansicpg");
    if (!form || !codePage)
        return std::nullopt;
    Collector collector(*form, *codePage);
    RtfToken token;
    while (tokens.next(&token) && collector.add(token)) {
    }
    // Anywhere else it is part of something else.
    if (token.kind != RtfToken::Kind::Close || !tokens.next(&token) ||
        token.kind != RtfToken::Kind::Close)
        return std::nullopt;
    return OwnGroup{collector.bytes(), start, tokens.place() - 1};
}

/// Whether a group that has just been opened is an htmltag.
bool isTag(RtfTokens &tokens)
{
    RtfToken star;
    RtfToken word;
    return tokens.next(&star) && star.kind == RtfToken::Kind::Symbol && star.text == "*" &&
           tokens.next(&word) && word.kind == RtfToken::Kind::Word && word.text == "htmltag";
}

/// Goes past the end of a group that has been opened.
void passOver(RtfTokens &tokens)
{
    int depth = 1;
    for (RtfToken token; depth > 0 && tokens.next(&token);) {
        if (token.kind == RtfToken::Kind::Open)
            ++depth;
        else if (token.kind == RtfToken::Kind::Close)
            --depth;
    }
}

/// Reads what an Encapsulation wrote: text outside of groups is in the HTML as it is in the
/// rendering, and each change between the two is said, no group reaching across.
std::optional<QByteArray> encapsulated(RtfTokens &tokens, Collector collector)
{
    bool isOnlyShown = false;
    for (RtfToken token; tokens.next(&token);) {
        if (token.kind == RtfToken::Kind::Word && token.text == "htmlrtf") {
            isOnlyShown = !token.hasNumber;
        } else if (isOnlyShown) {
            continue;
        } else if (token.kind == RtfToken::Kind::Open) {
            const qsizetype start = tokens.place();
            if (!isTag(tokens)) {
                tokens.goTo(start);
                passOver(tokens);
                continue;
            }
            while (tokens.next(&token) && collector.add(token)) {
            }
            if (token.kind != RtfToken::Kind::Close)
                return std::nullopt;
        } else if (token.kind == RtfToken::Kind::Close) {
            return collector.bytes();
        } else if (!collector.add(token)) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

std::optional<QByteArray> fromEncapsulation(const QByteArray &rtf)
{
    static const QByteArray kForm = QByteArrayLiteral("\\fromhtml1\\deff0{\\*\\quillmarshform");
    const QByteArray beginning = rtf.left(kMaxOfBeginning);
    const qsizetype formStart = beginning.indexOf(kForm);
    const qsizetype pageStart = beginning.indexOf("\\ansicpg");
    if (formStart < 0 || pageStart < 0)
        return std::nullopt;
    RtfTokens pageTokens(rtf, pageStart);
    const std::optional<int> codePage = numberOf(pageTokens, "ansicpg");
    RtfTokens tokens(rtf, beginning.indexOf("\\quillmarshform"));
    const std::optional<int> number = numberOf(tokens, "quillmarshform");
    const auto form = number ? HtmlSource::formOf(*number) : std::nullopt;
    RtfToken end;
    if (!form || !codePage || !tokens.next(&end) || end.kind != RtfToken::Kind::Close)
        return std::nullopt;
    return encapsulated(tokens, Collector(*form, *codePage));
}

} // namespace

std::optional<QByteArray> CarriedHtml::added(const QByteArray &html, const QByteArray &rtf)
{
    const std::optional<qsizetype> end = RtfTokens::endOfDocument(rtf);
    // Behind the end another would be taken for it.
    if (!end || rtf.indexOf(kOwnGroup, *end) >= 0)
        return std::nullopt;
    // What came from us once may come back with another.
    const std::optional<OwnGroup> known = ownGroup(rtf);
    const qsizetype start = known && known->end == *end ? known->start : *end;
    const HtmlSource source = HtmlSource::of(html);
    RtfMarkup markup = source.markup();
    source.write(source.text, &markup);
    // The encoding's word ends at a space of its own.
    return rtf.left(start) + kOwnGroup + source.number() + "\\ansicpg" +
           QByteArray::number(source.codePage) + ' ' + markup.source() + '}' + rtf.mid(*end);
}

std::optional<QByteArray> CarriedHtml::of(const QByteArray &rtf)
{
    if (std::optional<OwnGroup> own = ownGroup(rtf))
        return std::move(own->html);
    return fromEncapsulation(rtf);
}
