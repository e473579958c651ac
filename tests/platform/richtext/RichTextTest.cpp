#include "platform/richtext/RichText.h"
#include "platform/richtext/RichTextDocument.h"
#include "platform/richtext/RtfReader.h"

#include <QRegularExpression>
#include <QTextBlock>
#include <QThread>

#include <gtest/gtest.h>

namespace {

QByteArray utf16(const char16_t *text)
{
    const QString units = QChar(QChar::ByteOrderMark) + QString::fromUtf16(text);
    return QByteArray(reinterpret_cast<const char *>(units.utf16()), units.size() * 2);
}

/// Every byte there is, with what RTF means something by.
QByteArray everyByte()
{
    QByteArray bytes("<p>{\\rtf1 \\u42? }}{\\*\\htmltag\\'00\r\n\r\r\n\n 1-2");
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    return bytes;
}

struct Html
{
    const char *name;
    QByteArray bytes;
};

const Html kSources[] = {
    {"every byte", everyByte()},
    {"UTF-8", "<p>\xC3\xA9 1\xC3\xA9 2 \xE6\x97\xA5 3\xF0\x9F\x98\x80-4\r\n\xC2\xA0</p>"},
    {"UTF-8 with a mark", "\xEF\xBB\xBF<p>\xC3\xA9</p>"},
    {"Cyrillic", "<b>\xD0\x9F\xD1\x80\xD0\xB8\xD0\xB2\xD0\xB5\xD1\x82 1\r\n2</b>"},
    {"invalid UTF-8", "<p>\xC3\xA9 \xC3 \xED\xA0\x80 \xFF"},
    {"UTF-16", utf16(u"<p>é 1日\r\n2{\xD800}</p>")},
    {"odd UTF-16", utf16(u"<p>é</p>") + 'x'},
    {"NUL", QByteArray("<p>\0a\0\0</p>\0", 13)},
    {"one byte", "}"},
};

const QByteArray kOwners[] = {
    "{\\rtf1\\ansi Caf\\'e9 {\\b bold}\\par}",
    QByteArray("{\\rtf1{\\pict\\bin5 }}}{\\}x\\{\\}{\\*\\unknown }}\r\n\0", 48),
};

TEST(RichText, theVeryBytesComeBack)
{
    for (const Html &html : kSources) {
        SCOPED_TRACE(html.name);
        const auto made = RichText::withHtml(html.bytes, std::nullopt);
        ASSERT_TRUE(made);
        EXPECT_EQ(RichText::htmlOf(*made), html.bytes);
        EXPECT_EQ(RichText::carriedHtml(*made), html.bytes);
        for (const QByteArray &owner : kOwners) {
            const auto added = RichText::withHtml(html.bytes, owner);
            ASSERT_TRUE(added) << owner.constData();
            EXPECT_EQ(RichText::htmlOf(*added), html.bytes);
            const qsizetype end = owner.lastIndexOf('}');
            EXPECT_TRUE(added->startsWith(owner.first(end)));
            EXPECT_TRUE(added->endsWith(owner.sliced(end)));
            // Other HTML takes its place.
            const auto again = RichText::withHtml("<i>again</i>", *added);
            EXPECT_EQ(again, RichText::withHtml("<i>again</i>", owner));
        }
    }
}

TEST(RichText, isAbsentWhereNothingCanBeCarried)
{
    EXPECT_FALSE(RichText::withHtml({}, std::nullopt));
    EXPECT_FALSE(RichText::withHtml(QByteArray(RichText::kLargestHtml + 1, 'x'), std::nullopt));
    for (const char *owner :
         {"", "text", "{\\rtf1 {\\b never closed}", "{\\rtf1 x\\}", "{\\html }"})
        EXPECT_FALSE(RichText::withHtml("<p>x", QByteArray(owner))) << owner;
    for (const char *rtf :
         {"", "text", "{\\rtf1}", "{\\rtf1{\\*\\quillmarshhtml1\\ansicpg1252 x",
          "{\\rtf1{\\*\\quillmarshhtml9\\ansicpg1252 x}}", "{\\rtf1 \\par \\pard }"})
        EXPECT_FALSE(RichText::htmlOf(rtf)) << rtf;
}

/// What readers of RTF see, which is read back by ours.
TEST(RichText, theRenderingHasTheFormatting)
{
    struct Row
    {
        const char *html;
        const char *seen;
    };
    const Row rows[] = {
        {"<b>a</b> <i>b</i> <u>c</u> <s>d</s> <strong><em>e</em></strong>",
         "<p><b>a</b> <i>b</i> <u>c</u> <s>d</s> <b><i>e</i></b></p>"},
        {"x<sup>2</sup><sub>3</sub>", "<p>x<sup>2</sup><sub>3</sub></p>"},
        {"<font color=red size=5>r</font>",
         "<p><span style=\"color:#ff0000;font-size:18pt;\">r</span></p>"},
        {"<style>.k{color:#00f;font-weight:700}</style><span class='x k'>k</span>",
         "<p><span style=\"color:#0000ff;\"><b>k</b></span></p>"},
        {"<p style='text-align:center'>c<p align=right>r", "<p style=\"text-align:center\">c</p>"
                                                           "<p style=\"text-align:right\">r</p>"},
        {"<h2>h</h2><p>p", "<h2>h</h2><p>p</p>"},
        {"<a href='https://a.example/?b=1&amp;c=\"{'>l</a> <a href='javascript:x()'>j</a>",
         "<p><a href=\"https://a.example/?b=1&amp;c=%22{\"><span style=\"color:#0563c1;\">l</span>"
         "</a> j</p>"},
        {"<ul><li>a<ol><li>b<li>c</ol><li>d</ul>",
         "<ul><li>a<ol><li>b</li><li>c</li></ol></li><li>d</li></ul>"},
        {"<table><tr><td>a<td>b<tr><td>c</table>after",
         "<table border=\"1\" cellspacing=\"0\"><tr><td>a</td><td>b</td></tr>"
         "<tr><td>c</td><td></td></tr></table><p>after</p>"},
        {"<pre>a\n b</pre>", "<p><code>a</code></p><p><code> b</code></p>"},
        {"{\\b} \xC3\xA9 \xE6\x97\xA5 \xF0\x9F\x98\x80 1&lt;2 &amp;amp;<br>&nbsp;x",
         "<p>{\\b} \xC3\xA9 \xE6\x97\xA5 \xF0\x9F\x98\x80 1&lt;2 &amp;amp;<br>\xC2\xA0x</p>"},
        {"<meta charset=windows-1251><b>\xCF\xF0</b>", "<p><b>\xD0\x9F\xD1\x80</b></p>"},
        {"<html>x<body>y<!--StartFragment--><i>z</i><!--EndFragment-->w", "<p><i>z</i></p>"},
        {"<!--[if gte mso 9]><xml>no</xml><![endif]--><![if !x]>a<![endif]><o:p>b</o:p>"
         "<span style='display:none'>no</span><script>no</script><title>no</title>",
         "<p>ab</p>"},
    };
    static const QByteArray kCharset =
        "<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">";
    for (const Row &row : rows) {
        const auto made = RichText::withHtml(row.html, std::nullopt);
        ASSERT_TRUE(made) << row.html;
        EXPECT_EQ(RtfReader::htmlOf(*made).value_or(QByteArray()).toStdString(),
                  (kCharset + row.seen).toStdString())
            << row.html << "\n"
            << made->constData();
    }
}

} // namespace
