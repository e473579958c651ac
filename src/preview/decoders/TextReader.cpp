#include "preview/decoders/TextReader.h"

#include "preview/ClosedDocument.h"
#include "preview/PreviewFile.h"
#include "preview/TextContent.h"

#include <QStringDecoder>
#include <QTextDocumentFragment>

#include <memory>

#include <unicode/ucsdet.h>

namespace {

/// Bytes enough to tell an encoding by.
constexpr qsizetype kTellingBytes = 32 << 10;
/// A web page has more markup than text.
constexpr qsizetype kMaxOfPage = 60'000;

std::optional<QString> decodedAs(const QByteArray &bytes, QStringConverter::Encoding encoding)
{
    // Statelessly an incomplete last character, which a bounded read leaves, would be an error.
    QStringDecoder decoder(encoding);
    QString text = decoder(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

/// By the likeliest of the encodings that people still have.
std::optional<QString> decodedByStatistics(const QByteArray &bytes)
{
    constexpr int kLikely = 20; ///< Of 100; less is said of any few bytes.
    constexpr int kSure = 90;
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<UCharsetDetector, decltype(&ucsdet_close)> detector(ucsdet_open(&error),
                                                                              &ucsdet_close);
    ucsdet_setText(detector.get(), bytes.constData(),
                   static_cast<int32_t>(qMin(bytes.size(), kTellingBytes)), &error);
    const UCharsetMatch *match = ucsdet_detect(detector.get(), &error);
    if (U_FAILURE(error))
        return std::nullopt;
    QByteArray name = match ? ucsdet_getName(match, &error) : "";
    const int confidence = match ? ucsdet_getConfidence(match, &error) : 0;
    // No text of one byte a character holds NUL, while data of any kind do.
    const bool holdsNul = bytes.left(kTellingBytes).contains('\0');
    if (holdsNul) {
        if (!name.startsWith("UTF-") || confidence < kSure)
            return std::nullopt;
    } else if (confidence < kLikely) {
        name = "windows-1252";
    }
    QStringDecoder decoder(name.constData());
    if (!decoder.isValid())
        return std::nullopt;
    const QString text = decoder(bytes);
    if (holdsNul && text.contains(QChar(u'\0')))
        return std::nullopt;
    return text;
}

/// The beginning of `text` that a view can lay out within a frame, long lines shortened.
QString shownPart(const QString &text, qsizetype maxCharacters, bool *isCut)
{
    QString shown;
    qsizetype lines = 0;
    qsizetype start = 0;
    while (start < text.size()) {
        const qsizetype found = text.indexOf(u'\n', start);
        const qsizetype end = found < 0 ? text.size() : found;
        const qsizetype length = qMin(end - start, TextContent::kMaxOfLine);
        if (++lines > TextContent::kMaxLines || shown.size() + length > maxCharacters)
            break;
        shown += QStringView(text).mid(start, length);
        if (length < end - start) {
            *isCut = true;
            if (shown.back().isHighSurrogate())
                shown.chop(1);
            shown += u'…';
        }
        if (found >= 0)
            shown += u'\n';
        start = end + 1;
    }
    *isCut = *isCut || start < text.size();
    // The text engine takes NUL for the end of what it draws.
    return shown.replace(QChar(u'\0'), QChar::ReplacementCharacter);
}

bool isPage(const PreviewType &type)
{
    return type.inherits(QLatin1String("text/html")) ||
           type.inherits(QLatin1String("application/xhtml+xml"));
}

TextContent::Form formOf(const PreviewType &type)
{
    if (type.inherits(QLatin1String("text/markdown")))
        return TextContent::Form::Markdown;
    const bool isProse = type.name() == QLatin1String("text/plain") || isPage(type);
    return isProse ? TextContent::Form::Prose : TextContent::Form::Code;
}

} // namespace

bool TextReader::accepts(const PreviewType &type) const
{
    // Rich text is one only to programs.
    return !type.inherits(QLatin1String("application/rtf")) &&
           (type.inherits(QLatin1String("text/plain")) ||
            type.inherits(QLatin1String("application/xml")));
}

std::optional<QString> TextReader::decoded(const QByteArray &bytes)
{
    if (const auto marked = QStringConverter::encodingForData(bytes))
        return decodedAs(bytes, *marked);
    if (!bytes.left(kTellingBytes).contains('\0'))
        if (std::optional<QString> text = decodedAs(bytes, QStringConverter::Utf8))
            return text;
    return decodedByStatistics(bytes);
}

std::shared_ptr<const PreviewContent> TextReader::read(PreviewFile &file, const PreviewType &type,
                                                       QSize, const Patience &) const
{
    const QByteArray bytes = file.read(kMaxBytes);
    std::optional<QString> text = decoded(bytes);
    if (!text)
        return nullptr;
    bool isCut = bytes.size() < file.size();
    if (isPage(type)) {
        isCut = isCut || text->size() > kMaxOfPage;
        // By itself the importer would read the style sheets that the page names, devices included.
        const ClosedDocument nothingElse;
        text = QTextDocumentFragment::fromHtml(text->left(kMaxOfPage), &nothingElse).toPlainText();
    }
    text->replace(QLatin1String("\r\n"), QLatin1String("\n"));
    const TextContent::Form form = formOf(type);
    const qsizetype most = form == TextContent::Form::Markdown ? TextContent::kMaxOfMarkdown
                                                               : TextContent::kMaxCharacters;
    const QString shown = shownPart(*text, most, &isCut);
    return std::make_shared<TextContent>(shown, form, isCut);
}
