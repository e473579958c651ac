#include "platform/richtext/CarriedHtml.h"

#include "platform/richtext/CodePage.h"
#include "platform/richtext/RtfMarkup.h"
#include "platform/richtext/RtfTokens.h"

#include <QStringConverter>
#include <QtEndian>

#include <array>

namespace {

/// What the bytes of the HTML are, and the number that says so in the RTF. Stored: numbers stay.
enum class Form { Bytes = 0, Utf8 = 1, Utf16Little = 2, Utf16Big = 3 };

/// Names the form of the encapsulated HTML; a reader that does not know it leaves it out.
const QByteArray kFormGroup = QByteArrayLiteral("{\\*\\quillmarshform");
const QByteArray kTagGroup = QByteArrayLiteral("{\\*\\htmltag0\\uc0 ");
/// Carries HTML in RTF that has its own text. Its number is the form, the next word's the encoding.
const QByteArray kOwnGroup = QByteArrayLiteral("{\\*\\quillmarshhtml");
/// Ours stands behind a few words.
constexpr qsizetype kMostOfBeginning = 200;

struct Source
{
    Form form = Form::Bytes;
    QString text; ///< Empty for bytes.
    int codePage = CodePage::kWestern;
};

QString textOf(const QByteArray &utf16, Form form)
{
    QString text(utf16.size() / 2, Qt::Uninitialized);
    for (qsizetype unit = 0; unit < text.size(); ++unit) {
        const char *place = utf16.constData() + unit * 2;
        text[unit] = QChar(form == Form::Utf16Little ? qFromLittleEndian<quint16>(place)
                                                     : qFromBigEndian<quint16>(place));
    }
    return text;
}

QByteArray bytesOf(const QString &text, Form form)
{
    if (form == Form::Utf8)
        return text.toUtf8();
    QByteArray bytes(text.size() * 2, Qt::Uninitialized);
    for (qsizetype unit = 0; unit < text.size(); ++unit) {
        const quint16 value = text.at(unit).unicode();
        if (form == Form::Utf16Little)
            qToLittleEndian(value, bytes.data() + unit * 2);
        else
            qToBigEndian(value, bytes.data() + unit * 2);
    }
    return bytes;
}

Source sourceOf(const QByteArray &html)
{
    Source source;
    const auto marked = QStringConverter::encodingForData(html);
    if (marked == QStringConverter::Utf16LE && html.size() % 2 == 0) {
        source.form = Form::Utf16Little;
        source.text = textOf(html, source.form);
    } else if (marked == QStringConverter::Utf16BE && html.size() % 2 == 0) {
        source.form = Form::Utf16Big;
        source.text = textOf(html, source.form);
    } else if (const QString text = QString::fromUtf8(html); text.toUtf8() == html) {
        source.form = Form::Utf8;
        source.text = text;
    }
    source.codePage = CodePage::bestFor(source.text);
    return source;
}

QByteArray escaped(const QByteArray &html, const Source &source)
{
    RtfMarkup markup(source.codePage, RtfMarkup::Replacements::None);
    const auto isLineBreak = [](auto first, auto second) {
        return first == '\r' && second == '\n';
    };
    if (source.form == Form::Bytes) {
        for (qsizetype place = 0; place < html.size(); ++place) {
            if (place + 1 < html.size() && isLineBreak(html.at(place), html.at(place + 1))) {
                markup.addWord("\\par");
                ++place;
            } else if (const auto byte = static_cast<uchar>(html.at(place)); byte < 0x80) {
                markup.add(byte);
            } else {
                markup.addByte(byte);
            }
        }
        return markup.source();
    }
    const QStringView text(source.text);
    for (qsizetype place = 0; place < text.size(); ++place) {
        if (place + 1 < text.size() && text[place] == u'\r' && text[place + 1] == u'\n') {
            markup.addWord("\\par");
            ++place;
        } else {
            markup.add(text[place].unicode());
        }
    }
    return markup.source();
}

/// The bytes of a group, whose brace and first words `tokens` has behind it; absent unless it is
/// such as escaped() writes.
std::optional<QByteArray> unescaped(RtfTokens &tokens, Form form, int codePage)
{
    const bool isText = form != Form::Bytes;
    QByteArray bytes;
    QString text;
    const auto add = [&](QByteArrayView plain) {
        if (isText)
            text += QLatin1String(plain.data(), plain.size());
        else
            bytes.append(plain.data(), plain.size());
    };
    std::array<QChar, 128> upperHalf{};
    const CodePage::Bytes known = CodePage(codePage).upperHalf();
    for (auto entry = known.cbegin(); entry != known.cend(); ++entry)
        upperHalf.at(entry.value() - 0x80) = QChar(entry.key());
    for (RtfToken token; tokens.next(&token);) {
        switch (token.kind) {
        case RtfToken::Kind::Text:
            add(token.text);
            break;
        case RtfToken::Kind::Byte:
            if (isText && token.number >= 0x80)
                text += upperHalf.at(token.number - 0x80);
            else
                add(QByteArray(1, static_cast<char>(token.number)));
            break;
        case RtfToken::Kind::Word:
            if (token.text == "u" && token.hasNumber)
                text += QChar(static_cast<char16_t>(token.number));
            else if (token.text == "par")
                add("\r\n");
            else
                return std::nullopt;
            break;
        case RtfToken::Kind::Close:
            return isText ? bytesOf(text, form) : bytes;
        default:
            return std::nullopt;
        }
    }
    return std::nullopt;
}

std::optional<Form> formOf(int number)
{
    if (number < static_cast<int>(Form::Bytes) || number > static_cast<int>(Form::Utf16Big))
        return std::nullopt;
    return static_cast<Form>(number);
}

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
    const std::optional<Form> form = number ? formOf(*number) : std::nullopt;
    const std::optional<int> codePage = numberOf(tokens, "ansicpg");
    const std::optional<QByteArray> html =
        form && codePage ? unescaped(tokens, *form, *codePage) : std::nullopt;
    // Anywhere else it is part of something else.
    RtfToken token;
    if (!html || !tokens.next(&token) || token.kind != RtfToken::Kind::Close)
        return std::nullopt;
    return OwnGroup{*html, start, tokens.place() - 1};
}

std::optional<QByteArray> fromEncapsulation(const QByteArray &rtf)
{
    const QByteArray beginning = rtf.left(kMostOfBeginning);
    const qsizetype formStart = beginning.indexOf(kFormGroup);
    const qsizetype pageStart = beginning.indexOf("\\ansicpg");
    if (formStart < 0 || pageStart < 0 || !beginning.contains("\\fromhtml1"))
        return std::nullopt;
    RtfTokens formTokens(rtf, formStart + 3);
    RtfTokens pageTokens(rtf, pageStart);
    const std::optional<int> number = numberOf(formTokens, "quillmarshform");
    const std::optional<Form> form = number ? formOf(*number) : std::nullopt;
    const std::optional<int> codePage = numberOf(pageTokens, "ansicpg");
    const qsizetype start = rtf.indexOf(kTagGroup);
    if (!form || !codePage || start < 0)
        return std::nullopt;
    RtfTokens tokens(rtf, start + kTagGroup.size());
    return unescaped(tokens, *form, *codePage);
}

} // namespace

CarriedHtml::Encapsulation CarriedHtml::encapsulation(const QByteArray &html)
{
    const Source source = sourceOf(html);
    return {source.codePage,
            "\\ansi\\ansicpg" + QByteArray::number(source.codePage) + "\\fromhtml1\\deff0" +
                kFormGroup + QByteArray::number(static_cast<int>(source.form)) + '}',
            kTagGroup + escaped(html, source) + '}'};
}

std::optional<QByteArray> CarriedHtml::added(const QByteArray &html, const QByteArray &rtf)
{
    const std::optional<qsizetype> end = RtfTokens::endOfDocument(rtf);
    if (!end)
        return std::nullopt;
    const Source source = sourceOf(html);
    // What came from us once may come back with another.
    const std::optional<OwnGroup> known = ownGroup(rtf);
    const qsizetype start = known && known->end == *end ? known->start : *end;
    return rtf.left(start) + kOwnGroup + QByteArray::number(static_cast<int>(source.form)) +
           "\\ansicpg" + QByteArray::number(source.codePage) + ' ' + escaped(html, source) + '}' +
           rtf.mid(*end);
}

std::optional<QByteArray> CarriedHtml::of(const QByteArray &rtf)
{
    if (std::optional<OwnGroup> own = ownGroup(rtf))
        return std::move(own->html);
    return fromEncapsulation(rtf);
}
