#include "platform/pasteboard/TextFormats.h"

#include "platform/pasteboard/CompoundText.h"
#include "platform/pasteboard/SelectionText.h"

#include <QStringConverter>

#include <algorithm>
#include <array>

namespace {

const QString kUtf8String = QStringLiteral("UTF8_STRING");
const QString kString = QStringLiteral("STRING");
const QString kText = QStringLiteral("TEXT");
const QString kCompoundText = QStringLiteral("COMPOUND_TEXT");
const QString kPlain = QStringLiteral("text/plain");
const QString kUtf8 = QStringLiteral("utf-8");

/// The charset that a text/plain names, in lower case; empty when it names none, absent when the
/// format is another.
std::optional<QString> charsetOf(const QString &name)
{
    const QStringList parts = name.toLower().split(u';');
    if (parts.first().trimmed() != kPlain)
        return std::nullopt;
    for (const QString &part : parts.mid(1)) {
        if (part.section(u'=', 0, 0).trimmed() == QStringLiteral("charset"))
            return part.section(u'=', 1).remove(u'"').trimmed();
    }
    return QString();
}

bool isUtf16(const QString &charset)
{
    return charset == QStringLiteral("utf-16") || charset == QStringLiteral("unicode");
}

/// What a name is worth; the lower the better, absent when it names no text.
std::optional<int> rankOf(const QString &name)
{
    // Then by how surely the encoding is known. STRING is Latin-1; a bare text/plain and TEXT are
    // what their owner makes of them (ICCCM 2.6.2); COMPOUND_TEXT has to be decoded.
    static const std::array kNames{kString, kPlain, kText, kCompoundText};
    if (name == kUtf8String)
        return 0;
    const std::optional<QString> charset = charsetOf(name);
    if (charset == kUtf8)
        return 1;
    if (charset && !charset->isEmpty())
        return isUtf16(*charset) || SelectionText::decoded({}, charset->toLatin1().constData())
                   ? std::optional(2)
                   : std::nullopt;
    const auto known = std::find(kNames.begin(), kNames.end(), charset ? kPlain : name);
    return known == kNames.end() ? std::nullopt : std::optional(3 + int(known - kNames.begin()));
}

QByteArray fromUnknown(const QByteArray &bytes)
{
    // Texts in Latin-1 are hardly ever valid UTF-8 by chance.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? SelectionText::latin1ToUtf8(bytes) : bytes;
}

QByteArray fromCharset(const QByteArray &bytes, const QString &charset)
{
    if (charset == kUtf8)
        return bytes;
    if (isUtf16(charset)) {
        // Without a mark the order of the bytes is this machine's, as the owner runs on it.
        QStringDecoder decoder(QStringDecoder::Utf16);
        return SelectionText::toUtf8(decoder.decode(bytes));
    }
    const auto text = SelectionText::decoded(bytes, charset.toLatin1().constData());
    return text ? SelectionText::toUtf8(*text) : fromUnknown(bytes);
}

} // namespace

QStringList TextFormats::inOrder(const QStringList &offered)
{
    QStringList names;
    std::copy_if(offered.begin(), offered.end(), std::back_inserter(names),
                 [](const QString &name) { return rankOf(name).has_value(); });
    std::stable_sort(names.begin(), names.end(), [](const QString &one, const QString &other) {
        return rankOf(one) < rankOf(other);
    });
    return names;
}

bool TextFormats::mayHoldNone(const QStringList &offered)
{
    const auto isObject = [](const QString &name) {
        return name.startsWith(QStringLiteral("image/")) ||
               name.contains(QStringLiteral("drawing"), Qt::CaseInsensitive) ||
               name.contains(QStringLiteral("svg"), Qt::CaseInsensitive);
    };
    return inOrder(offered) == QStringList{kPlain} &&
           std::any_of(offered.begin(), offered.end(), isObject);
}

QByteArray TextFormats::toUtf8(const QByteArray &bytes, const QString &name, const QString &type)
{
    // Says its encoding itself, whatever type an owner gives with it.
    if (name == kUtf8String || type == kUtf8String)
        return bytes;
    if (type == kCompoundText)
        return CompoundText::toUtf8(bytes);
    // The type tells what the owner made of the question; some repeat it only.
    for (const QString &label : {type, name}) {
        const std::optional<QString> charset = charsetOf(label);
        if (charset && !charset->isEmpty())
            return fromCharset(bytes, *charset);
    }
    const bool isLatin1 = name == kString || (name != kPlain && type == kString);
    if (isLatin1)
        return SelectionText::latin1ToUtf8(bytes);
    return name == kCompoundText ? CompoundText::toUtf8(bytes) : fromUnknown(bytes);
}
