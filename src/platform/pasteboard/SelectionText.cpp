#include "platform/pasteboard/SelectionText.h"

#include <QStringConverter>

#include <memory>

#include <unicode/ucnv.h>

namespace {

// A mark of the byte order at the beginning belongs to the text: a copy is given back as it came.
constexpr auto kFlags =
    QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom;

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

} // namespace

QString SelectionText::fromUtf8(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, kFlags);
    return decoder.decode(bytes);
}

QByteArray SelectionText::toUtf8(const QString &text)
{
    QStringEncoder encoder(QStringEncoder::Utf8, QStringConverter::Flag::Stateless);
    return encoder.encode(text);
}

bool SelectionText::isLatin1(const QByteArray &utf8)
{
    for (qsizetype i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if (byte < 0x80)
            continue;
        // U+0080 to U+00FF are the two-byte sequences that begin with C2 or C3.
        const bool isShort = byte == 0xC2 || byte == 0xC3;
        if (!isShort || i + 1 == utf8.size() || !isContinuation(utf8[i + 1]))
            return false;
        ++i;
    }
    return true;
}

QByteArray SelectionText::latin1ToUtf8(const QByteArray &latin1)
{
    return toUtf8(QString::fromLatin1(latin1));
}

QByteArray SelectionText::utf8ToLatin1(const QByteArray &utf8)
{
    return fromUtf8(utf8).toLatin1();
}

std::optional<QString> SelectionText::decoded(const QByteArray &bytes, const char *encoding)
{
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<UConverter, decltype(&ucnv_close)> converter(ucnv_open(encoding, &error),
                                                                       &ucnv_close);
    if (U_FAILURE(error))
        return std::nullopt;
    QString text(bytes.size() * 2 + 1, Qt::Uninitialized);
    const int32_t length = ucnv_toUChars(converter.get(), reinterpret_cast<UChar *>(text.data()),
                                         static_cast<int32_t>(text.size()), bytes.constData(),
                                         static_cast<int32_t>(bytes.size()), &error);
    text.truncate(U_SUCCESS(error) ? length : 0);
    return text;
}
