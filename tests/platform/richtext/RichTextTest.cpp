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
    {"Japanese", "<b>\xE6\x97\xA5\xE6\x9C\xAC 1\xE6\x97\xA5"
                 "2-\xE6\x97\xA5?</b>"},
    {"Cyrillic", "<b>\xD0\x9F\xD1\x80\xD0\xB8\xD0\xB2\xD0\xB5\xD1\x82 1\r\n2</b>"},
    {"invalid UTF-8", "<p>\xC3\xA9 \xC3 \xED\xA0\x80 \xFF"},
    {"UTF-16", utf16(u"<p>é 1日\r\n2{\xD800}</p>")},
    {"odd UTF-16", utf16(u"<p>é</p>") + 'x'},
    {"NUL", QByteArray("<p>\0a\0\0</p>\0", 13)},
    {"one byte", "}"},
};

const QByteArray kOwners[] = {
    "{\\rtf1\\ansi Caf\\'e9 {\\b bold}\\par}",
    QByteArray("{\\rtf1{\\pict\\bin5 }}}{\\}x\\{\\}{\\*\\unknown }}\r\n\0", 46),
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
            EXPECT_EQ(RichText::withHtml(html.bytes, *added), added);
            // Other HTML takes its place.
            const auto again = RichText::withHtml("<i>again</i>", *added);
            EXPECT_EQ(again, RichText::withHtml("<i>again</i>", owner));
        }
    }
}

TEST(RichText, isAbsentWhereNothingCanBeCarried)
{
    EXPECT_FALSE(RichText::withHtml({}, std::nullopt));
    EXPECT_FALSE(RichText::withHtml(QByteArray(RichText::kMaxHtml + 1, 'x'), std::nullopt));
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
        {"<div style='text-align:justify'>a<p>b<div style='text-align:left'>c</div></div>d",
         "<p style=\"text-align:justify\">a</p><p style=\"text-align:justify\">b</p>"
         "<p>c</p><p>d</p>"},
        {"<table><tr><td><table><tr><td>a<td>b</table>c<tr><td>d</table>",
         "<table border=\"1\" "
         "cellspacing=\"0\"><tr><td>a</td><td>b</td></tr></table><p>c</p><p>d</p>"},
        {"<h2>h</h2><p>p", "<h2>h</h2><p>p</p>"},
        {"<a href='https://a.example/?b=1&amp;c=\"{'>l</a> <a href='javascript:x()'>j</a>",
         "<p><a href=\"https://a.example/?b=1&amp;c=%22%7B\"><span "
         "style=\"color:#0563c1;\">l</span>"
         "</a> j</p>"},
        {"<ul><li>a<ol><li>b<li>c</ol><li>d</ul>",
         "<ul><li>a<ol><li>b</li><li>c</li></ol></li><li>d</li></ul>"},
        {"<ul>\n <li> <p>a <b> b</b></p>\n\t<li>\n<p>c </ul>\n&nbsp;d",
         "<ul><li>a <b>b</b></li><li>c</li></ul><p>\xC2\xA0"
         "d</p>"},
        {"<table><tr><td>a<td>b<tr><td>c</table>after",
         "<table border=\"1\" cellspacing=\"0\"><tr><td>a</td><td>b</td></tr>"
         "<tr><td>c</td><td></td></tr></table><p>after</p>"},
        {"<table><tr><td>"
         "<table><tr><td>"
         "<table><tr><td>a<td>b<tr><td>c</table>d</table>e</table>",
         "<table border=\"1\" cellspacing=\"0\"><tr><td><p>a "
         "b</p><p>c</p><p>d</p></td></tr></table><p>e</p>"},
        {"a<svg/>b<svg><text>no</text></svg>c<object>d<title>no</title>", "<p>abcd</p>"},
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
    // Readers that take a style's name as it is written, and keep the style when \pard ends it.
    const QByteArray headed = RichText::withHtml("<h2>h</h2>p", std::nullopt).value_or("");
    EXPECT_TRUE(headed.contains(" Heading 2;}") && headed.contains("\\pard\\s0 p"))
        << headed.data();
}

QByteArray repeated(const char *html, int count)
{
    return QByteArray(html).repeated(count);
}

/// Each would take the toolkit for ever, or all memory, or its stack.
const Html kHostile[] = {
    {"deep", repeated("<div>", 50'000) + 'x'},
    {"deep lists", repeated("<ul><li>", 20'000) + 'x'},
    {"deep tables", repeated("<table><tr><td>", 20'000) + 'x'},
    {"items", "<ul>" + repeated("<li>x", 10'000)},
    {"a row of many and many rows",
     "<table><tr>" + repeated("<td>x", 90) + repeated("<tr>", 90'000)},
    {"cells that span", "<table>" + repeated("<tr><td colspan=999 rowspan=999>x", 3'000)},
    {"an attribute without end", "x<p title=\"" + repeated("a", 900'000)},
    {"tags without end", "x" + repeated("<a ", 90'000) + repeated("<!--", 90'000)},
    {"a sheet", "<style>" + repeated(".a{color:red}", 60'000) + "</style><p class=a>x"},
    {"comments in a sheet", "<style>" + repeated("/*", 90'000) + "</style>x"},
    {"entities", "x" + repeated("&", 90'000) + "<!DOCTYPE a [<!ENTITY b \"&b;&b;\">]>&b;"},
    {"marks of the toolkit", "x\xEF\xB7\x90&#xFDD1;<table><tr><td>&#xFDD0;&#xFFFC;</table>"},
    {"NUL", QByteArray(90'000, '\0') + 'x'},
};

TEST(RichText, hostileHtmlIsCarriedAndShownWithinBounds)
{
    for (const Html &html : kHostile) {
        SCOPED_TRACE(html.name);
        const auto made = RichText::withHtml(html.bytes, std::nullopt);
        ASSERT_TRUE(made);
        EXPECT_EQ(RichText::htmlOf(*made), html.bytes);
        const auto document = RichTextDocument::of(*made, 60'000);
        EXPECT_TRUE(!document || document->characterCount() < 130'000);
        EXPECT_TRUE(RtfReader::htmlOf(*made).value_or("x").contains('x'));
    }
}

TEST(RichTextDocument, hasTheTextAndItsFormattingAndNothingElse)
{
    const QByteArray html = "<link rel=stylesheet href='file:///etc/hosts'>"
                            "<style>@import url(file:///etc/hosts); p{color:red}</style>"
                            "<p background='file:///a' style='background:url(http://127.0.0.1/b)'>"
                            "<img src='file:///c'><b>bold</b> <a href='https://d.example/'>link</a>"
                            "<a href='file:///e'>plain</a><iframe src='file:///f'>no</iframe>";
    const auto rtf = RichText::withHtml(html, std::nullopt);
    ASSERT_TRUE(rtf);
    std::unique_ptr<RichTextDocument> document;
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { document = RichTextDocument::of(*rtf, 60'000); }));
    thread->start();
    thread->wait();
    ASSERT_TRUE(document);
    document->moveToThread(QThread::currentThread());
    EXPECT_EQ(document->toPlainText(), QStringLiteral("bold linkplain"));
    const QString shown = document->toHtml();
    for (const char *named : {"file:", "127.0.0.1", "<img"})
        EXPECT_FALSE(shown.contains(QLatin1String(named))) << qUtf8Printable(shown);
    const QTextBlock block = document->firstBlock();
    QStringList addresses;
    for (auto piece = block.begin(); !piece.atEnd(); ++piece)
        addresses += piece.fragment().charFormat().anchorHref();
    EXPECT_EQ(addresses,
              QStringList({QString(), QString(), QStringLiteral("https://d.example/"), QString()}));
    EXPECT_FALSE(document->isCut());
    EXPECT_FALSE(RichTextDocument::of("{\\rtf1\\par}", 60'000));
    const auto cut = RichTextDocument::ofHtml("<p>" + repeated("word ", 1000), 100);
    ASSERT_TRUE(cut);
    EXPECT_TRUE(cut->isCut());
    EXPECT_LT(cut->characterCount(), 200);
    const auto cutRtf = RichTextDocument::of("{\\rtf1 " + repeated("word ", 1000) + '}', 100);
    ASSERT_TRUE(cutRtf);
    EXPECT_TRUE(cutRtf->isCut());
}

/// RTF of other writers, and what is made of it.
TEST(RtfReader, readsWhatOthersWrite)
{
    struct Row
    {
        QByteArray rtf;
        const char *html;
    };
    const Row rows[] = {
        {"{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0\\fcharset204 A;}{\\f1\\fcharset128 B;}{\\f2"
         "\\fmodern C;}}\\f0 \\'cf\\'f0{\\f1 \\'93\\'fa}\\f2 c}",
         "<p>\xD0\x9F\xD1\x80\xE6\x97\xA5<code>c</code></p>"},
        {"{\\rtf1 {\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}\\cf1 r\\cf2\\b "
         "b\\b0\\cf0\\i i"
         "\\plain p{\\ul u}{\\strike s}}",
         "<p><span style=\"color:#ff0000;\">r</span><span style=\"color:#0000ff;\"><b>b</b></span>"
         "<i>i</i>p<u>u</u><s>s</s></p>"},
        {"{\\rtf1\\uc1 \\u8364?\\u-10179\\'3f\\u-8704 ?\\uc2\\u233 xx\\uc0\\u233 "
         "x{\\u233}a\\~b\\emdash\\line c}",
         "<p>\xE2\x82\xAC\xF0\x9F\x98\x80\xC3\xA9\xC3\xA9x\xC3\xA9"
         "a\xC2\xA0"
         "b\xE2\x80\x94<br>c</p>"},
        {"{\\rtf1{\\stylesheet{\\s1\\b heading 1;}{\\s2\\outlinelevel1 x;}}{\\pard\\s1 "
         "a\\par}\\pard\\s2 b\\par"
         "\\pard\\qc c\\\n\\pard\\outlinelevel2 d}",
         "<h1>a</h1><h2>b</h2><p style=\"text-align:center\">c</p><h3>d</h3>"},
        {"{\\rtf1{\\field{\\*\\fldinst{HYPERLINK \"https://a.example/\" }}{\\fldrslt{\\ul l}}}"
         "{\\field{\\*\\fldinst HYPERLINK mailto:a@b.c}{\\fldrslt m}}"
         "{\\field{\\*\\fldinst HYPERLINK \"javascript:x\"}{\\fldrslt j}}{\\field{\\*\\fldinst "
         "PAGE}{\\fldrslt 1}}}",
         "<p><a href=\"https://a.example/\">l</a><a href=\"mailto:a@b.c\">m</a>j1</p>"},
        {"{\\rtf1\\trowd\\cellx1\\pard\\intbl{\\field{\\*\\fldinst HYPERLINK "
         "\"https://a.example/\"}{\\*\\fldrslt{l}}}\\cell\\row\\par\\pard a\\par}",
         "<table border=\"1\" cellspacing=\"0\"><tr><td><a href=\"https://a.example/\">l</a></td>"
         "</tr></table><p><br></p><p>a</p>"},
        {"{\\rtf1\\pard{\\listtext\\u8226 ?\\tab}\\ls1 a\\par{\\listtext 1.\\tab}\\ilvl1 "
         "b\\par\\pard{\\pntext\\'b7}c"
         "\\par\\pard d}",
         "<ul><li>a<ol><li>b</li></ol></li></ul><ul><li>c</li></ul><p>d</p>"},
        {"{\\rtf1\\pard\\s1\\outlinelevel0\\qc{\\listtext\\pard\\plain \\tab}\\ls1 a\\par}",
         "<h1 style=\"text-align:center\">a</h1>"},
        {"{\\rtf1\\trowd\\cellx1\\cellx2\\pard\\intbl a\\cell b\\par c\\cell\\row\\pard\\intbl "
         "d\\cell\\cell\\row\\pard e}",
         "<table border=\"1\" cellspacing=\"0\"><tr><td>a</td><td><p>b</p><p>c</p></td></tr>"
         "<tr><td>d</td><td></td></tr></table><p>e</p>"},
        {QByteArray("{\\rtf1{\\info{\\title no}}{\\*\\unknown no{\\par no}}{\\pict\\bin4 "
                    "}}{\\00ff}{\\object{"
                    "\\result no}}{\\v no}{\\header no}<\\{&\\}\\\\>"),
         "<p>&lt;{&amp;}\\&gt;</p>"},
        {"{\\rtf1 a}}}}b{\\b c", "<p>ab<b>c</b></p>"},
        {"{\\rtf1 a\\bin999999999 bcd}", "<p>a</p>"},
        {"{\\rtf1 a\\u\\'\\'z\\'4\\uc-5\\u99999999999 \\cf99\\f-1\\ls-1\\ilvl-9 b\\", nullptr},
        {"{\\rtf1 a" + repeated("{\\b ", 100'000) + 'b', nullptr},
        {"{\\rtf1 a\\pard\\intbl" + repeated("\\cell", 100'000) + "\\row", nullptr},
        {"{\\rtf1 a" + repeated("{\\b x}{\\cf1\\fs9\\i y}", 100'000), nullptr},
        {"{\\rtf1 a{\\fonttbl" + repeated("{\\f1\\fcharset128 x", 20'000), nullptr},
        {"{\\rtf1 a" + repeated("{\\listtext 1.}\\ilvl8 x\\par\\ilvl0\\ls2 y\\par", 20'000),
         nullptr},
    };
    for (const Row &row : rows) {
        const QByteArray html = RtfReader::htmlOf(row.rtf).value_or("absent");
        if (row.html) {
            EXPECT_EQ(html.mid(html.indexOf('>') + 1).toStdString(), row.html)
                << row.rtf.left(200).constData();
        } else {
            EXPECT_TRUE(html.contains('a')) << row.rtf.left(40).constData();
            EXPECT_LT(html.size(), 10 << 20) << row.rtf.left(40).constData();
        }
    }
}

} // namespace
