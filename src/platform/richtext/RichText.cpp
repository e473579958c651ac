#include "platform/richtext/RichText.h"

#include "platform/richtext/CarriedHtml.h"
#include "platform/richtext/Encapsulation.h"
#include "platform/richtext/RichTextDocument.h"
#include "platform/richtext/RtfReader.h"
#include "platform/richtext/RtfWriter.h"

namespace {

/// The rendering is of this much of the HTML's formatting at most.
constexpr qsizetype kMaxRendered = qsizetype(4) << 20;

} // namespace

std::optional<QByteArray> RichText::withHtml(const QByteArray &html,
                                             const std::optional<QByteArray> &rtf)
{
    if (html.isEmpty() || html.size() > kMaxHtml)
        return std::nullopt;
    if (rtf)
        return carriedHtml(*rtf) == html ? rtf : CarriedHtml::added(html, *rtf);
    Encapsulation encapsulation(html);
    RtfWriter writer(encapsulation);
    if (const auto document = RichTextDocument::ofHtml(html, kMaxRendered))
        writer.write(*document);
    return encapsulation.finished(writer.tables());
}

std::optional<QByteArray> RichText::htmlOf(const QByteArray &rtf)
{
    if (std::optional<QByteArray> html = carriedHtml(rtf))
        return html;
    return RtfReader::htmlOf(rtf);
}

std::optional<QByteArray> RichText::carriedHtml(const QByteArray &rtf)
{
    return CarriedHtml::of(rtf);
}
