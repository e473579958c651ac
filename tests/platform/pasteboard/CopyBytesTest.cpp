#include "platform/pasteboard/CopyBytes.h"
#include "platform/richtext/RichText.h"

#include <gtest/gtest.h>

namespace {

QString source(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes);
}

/// What a requestor gets; absent when the name is not offered.
std::optional<QByteArray> given(const Copy &copy, const char *name)
{
    for (const CopyBytes::Offer &offer : CopyBytes::of(copy).offers()) {
        if (offer.name == QLatin1String(name))
            return offer.convert ? offer.convert(offer.bytes) : offer.bytes;
    }
    return std::nullopt;
}

TEST(CopyBytes, richTextIsOfferedAsFarAsItIsThatOfTheText)
{
    using Offer = Copy::Offer;
    const QByteArray html = "<p>a <b>bold</b> word, \xFF</p>";
    const QByteArray rtf = "{\\rtf1 a {\\b bold} word}";
    const QByteArray carrier = RichText::withHtml(html, rtf).value_or(QByteArray());
    ASSERT_NE(carrier, rtf);
    const struct
    {
        const char *name;
        Copy copy;
        std::optional<QByteArray> html, rtf;
    } kTable[] = {
        {"HTML as it was copied", {{}, {}, {}, source(html)}, html, {}},
        {"HTML within RTF", {{}, source(carrier)}, html, carrier},
        {"HTML that differs from what the RTF has",
         {{}, source(carrier), {}, QStringLiteral("<i>")},
         "<i>",
         carrier},
        {"an upper-case text",
         {QStringLiteral("A"), source(carrier), {}, source(html), Offer::NoHtml},
         {},
         carrier},
        {"a plain text",
         {QStringLiteral("a"), source(carrier), {}, source(html), Offer::PlainText},
         {},
         {}},
    };
    for (const auto &row : kTable) {
        EXPECT_EQ(given(row.copy, "text/html"), row.html) << row.name;
        EXPECT_EQ(given(row.copy, "text/rtf"), row.rtf) << row.name;
        EXPECT_EQ(given(row.copy, "UTF8_STRING").has_value(), row.copy.text.has_value())
            << row.name;
    }
    const QByteArray made = given({{}, source(rtf)}, "text/html").value_or(QByteArray());
    EXPECT_TRUE(made.contains("<b>bold</b>")) << made.toStdString();
}

} // namespace
