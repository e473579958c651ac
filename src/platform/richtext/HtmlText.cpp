#include "platform/richtext/HtmlText.h"

#include "platform/richtext/CodePage.h"

#include <QStringConverter>

#include <optional>

namespace {

/// As far as browsers look for a label.
constexpr qsizetype kMaxOfHead = 4096;

QByteArray labelOf(const QByteArray &html)
{
    const QByteArray head = html.left(kMaxOfHead).toLower();
    qsizetype start = head.indexOf("charset=");
    if (start < 0)
        return {};
    start += 8;
    while (start < head.size() && (head.at(start) == '"' || head.at(start) == '\''))
        ++start;
    qsizetype end = start;
    while (end < head.size() && !QByteArray("\"' />;").contains(head.at(end)))
        ++end;
    return head.mid(start, end - start);
}

/// Of markup every second byte is NUL.
std::optional<QStringConverter::Encoding> unmarkedUtf16(const QByteArray &html)
{
    if (html.size() < 4 || html.size() % 2 != 0)
        return std::nullopt;
    const bool isEven = html.at(0) == '\0' && html.at(2) == '\0' && html.at(1) != '\0';
    const bool isOdd = html.at(1) == '\0' && html.at(3) == '\0' && html.at(0) != '\0';
    if (!isEven && !isOdd)
        return std::nullopt;
    return isEven ? QStringConverter::Utf16BE : QStringConverter::Utf16LE;
}

} // namespace

QString htmlText(const QByteArray &html)
{
    auto encoding = QStringConverter::encodingForData(html);
    if (!encoding)
        encoding = unmarkedUtf16(html);
    if (encoding)
        return QStringDecoder(*encoding).decode(html);
    // An incomplete last character, which a bounded read leaves, is no error.
    QStringDecoder decoder(QStringConverter::Utf8);
    QString text = decoder.decode(html);
    if (!decoder.hasError())
        return text;
    const QByteArray label = labelOf(html);
    if (label.startsWith("utf-8") || label == "utf8")
        return text;
    const std::optional<CodePage> named = CodePage::named(label);
    return named ? named->decoded(html) : CodePage(CodePage::kWestern).decoded(html);
}
