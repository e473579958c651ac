#include "Clipboard/window/RichTextView.h"
#include "Clipboard/window/EmojiFont.h"
#include "Clipboard/window/PacedLayout.h"
#include "Clipboard/window/PreviewPane.h"
#include "Clipboard/window/RichTextLooks.h"
#include "looks/FieldPasteboard.h"
#include "platform/richtext/RichText.h"
#include "platform/richtext/RichTextDocument.h"

#include "WindowRig.h"

#include <QFontInfo>
#include <QPalette>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

#include <arpa/inet.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr Qt::KeyboardModifiers kNone = Qt::NoModifier;

class RichTextViewTest : public WindowRig
{
protected:
    void addRich(const QString &text, const QByteArray &html)
    {
        memory.clock.advance(std::chrono::seconds(1));
        Clip clip;
        clip.text = text;
        clip.rtf = QString::fromLatin1(*RichText::withHtml(html, std::nullopt));
        delegate.history().addToClipList(clip);
    }

    bool isFormatted() const { return pane->richTextView() && pane->richTextView()->isVisible(); }

    /// Shown in place of the plain text, which stands ready behind it.
    bool awaitFormatted()
    {
        return QTest::qWaitFor([this] { return isFormatted(); }, 20'000) &&
               !controller->textView()->isVisible();
    }

    PreviewPane *pane = controller->textFieldView();
};

std::unique_ptr<RichTextDocument> fitted(const QByteArray &html, bool isDark)
{
    auto document = RichTextDocument::ofHtml(html, 1 << 20);
    document->moveToThread(QThread::currentThread());
    QFont font;
    font.setPointSizeF(10);
    RichTextLooks{ClipColors::ofScheme(isDark, QPalette()), font, EmojiFont::format()}.fit(
        *document);
    return document;
}

bool isDrawn(const QImage &image, const QColor &color)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == color)
                return true;
    return false;
}

QTextFragment fragmentOf(const QTextDocument &document, const QString &text)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (auto piece = block.begin(); !piece.atEnd(); ++piece)
            if (piece.fragment().text().contains(text))
                return piece.fragment();
    ADD_FAILURE() << "there is no " << text.toStdString();
    return {};
}

TEST(RichTextLooks, whateverWasCopiedCanBeReadInBothSchemesAndIsOfASensibleSize)
{
    struct Row
    {
        const char *html;       ///< Of "text", among words of the usual size.
        double scale;           ///< Of the font.
        const char *light = ""; ///< The text's colour and its ground's; none for the scheme's own.
        const char *dark = "";
        const char *ground = "";
    };
    const Row kRows[] = {
        {"text", 1},
        {"<span style='color:black;background:white'>text</span>", 1},
        {"<span style='color:#202124;font-size:14px'>text</span>", 0.9},
        {"<span style='color:navy'>text</span>", 1, "#000080"},
        {"<span style='color:#ffff00'>text</span>", 1, nullptr, "#ffff00"},
        {"<span style='color:#d4d4d4;background:#1e1e1e'>text</span>", 1, nullptr, "#d4d4d4"},
        {"<span style='color:#808080'>text</span>", 1, nullptr, nullptr},
        {"<mark>text</mark>", 1, "", nullptr, "#ffff00"},
        {"<span style='background:#800000'>text</span>", 1, nullptr, "", "#800000"},
        {"<a href='https://example.org'>text</a>", 1, nullptr, nullptr},
        {"<h1><span style='font-size:60px'>text</span></h1>", 1.7},
        {"<h2>text</h2>", 1.35},
        {"<h6>text</h6>", 0.9},
        {"<span style='font-size:300px'>text</span>", 1.7},
        {"<span style='font-size:2px'>text</span>", 0.9},
        {"<big>text</big>", 1.15},
    };
    for (const Row &row : kRows) {
        for (const bool isDark : {false, true}) {
            SCOPED_TRACE(std::string(row.html) + (isDark ? " on dark" : " on light"));
            const auto document =
                fitted(QByteArray("<p>words of the usual size</p>") + row.html, isDark);
            const QTextCharFormat format =
                fragmentOf(*document, QStringLiteral("text")).charFormat();
            const ClipColors colors = ClipColors::ofScheme(isDark, QPalette());
            const bool hasGround = format.background().style() != Qt::NoBrush;
            EXPECT_EQ(hasGround ? format.background().color().name() : QString(),
                      QLatin1String(row.ground));
            const bool hasColor = format.foreground().style() != Qt::NoBrush;
            const QString color = hasColor ? format.foreground().color().name() : QString();
            if (const char *expected = isDark ? row.dark : row.light; !expected || *expected) {
                EXPECT_TRUE(expected ? color == QLatin1String(expected) : hasColor)
                    << color.toStdString();
            }
            EXPECT_GE(ClipColors::contrast(hasColor ? format.foreground().color() : colors.text,
                                           hasGround ? format.background().color() : colors.paper),
                      ClipColors::kMinContrast);
            EXPECT_DOUBLE_EQ(format.hasProperty(QTextFormat::FontPointSize) ? format.fontPointSize()
                                                                            : 10,
                             10 * row.scale);
            EXPECT_EQ(format.fontUnderline(), format.isAnchor());
        }
    }
}

TEST(PacedLayout, whatIsLaidOutAtOnceIsBounded)
{
    const auto table = [](int rows, const QByteArray &cell) {
        return "<table>" +
               ("<tr>" + ("<td>" + cell + "</td>").repeated(4) + "</tr>").repeated(rows) +
               "</table>";
    };
    struct Row
    {
        const char *name;
        QByteArray html;
        bool suits;
    };
    const Row kRows[] = {
        {"many paragraphs", QByteArray("<p>some words</p>").repeated(5'000), true},
        {"a long paragraph", QByteArray("words ").repeated(1'600), true},
        {"a longer one", QByteArray("words ").repeated(1'700), false},
        {"a long word", QByteArray(5'000, 'x'), false},
        {"a table", "<p>before</p>" + table(80, "cell"), true},
        {"a larger one", "<p>before</p>" + table(200, "cell"), false},
        {"a table of long cells", table(2, QByteArray("words ").repeated(400)), false},
        {"tables in a table", table(1, table(20, "cell")), false},
    };
    for (const Row &row : kRows) {
        const auto document = RichTextDocument::ofHtml(row.html, 1 << 20);
        EXPECT_EQ(PacedLayout::suits(*document), row.suits) << row.name;
    }
    RichTextView view;
    view.resize(400, 300);
    view.show();
    view.setRichText(fitted(kRows[0].html, false));
    const int first = view.verticalScrollBar()->maximum();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            return view.verticalScrollBar()->maximum() + 300 >=
                   5'000 * view.fontMetrics().lineSpacing();
        },
        20'000))
        << first;
}

TEST_F(RichTextViewTest, theFormattingTakesThePlaceOfTheTextUnlessSomebodyReadsOn)
{
    const QString text = QStringLiteral("bold\n").repeated(200);
    add(QStringLiteral("plain"));
    addRich(text, "<p><b>bold</b></p><hr>");
    addRich(QStringLiteral("left at once"), "<p><b>left at once</b></p>");
    open();
    controller->next();
    ASSERT_TRUE(awaitFormatted());
    const RichTextView &view = *pane->richTextView();
    EXPECT_EQ(view.toPlainText().trimmed(), QStringLiteral("bold"));
    EXPECT_TRUE(isDrawn(pane->richTextView()->grab().toImage(),
                        ClipColors::ofPalette(QApplication::palette()).separator));
    EXPECT_EQ(view.accessibleName(), controller->textView()->accessibleName());
    EXPECT_EQ(fragmentOf(*view.document(), QStringLiteral("bold")).charFormat().fontWeight(),
              int(QFont::Bold));
    EXPECT_EQ(selected(), text) << "what is found, counted and pasted";
    QTest::keyClick(pane->richTextView(), Qt::Key_B);
    EXPECT_EQ(field->text(), QStringLiteral("b"));
    controller->clearSearch();

    controller->selectRow(2);
    EXPECT_FALSE(isFormatted());
    EXPECT_TRUE(controller->textView()->isVisible());

    controller->selectRow(1);
    controller->textView()->verticalScrollBar()->setValue(5);
    EXPECT_FALSE(QTest::qWaitFor([this] { return isFormatted(); }, 300));
    // The next look at the clip is from its beginning.
    controller->selectRow(2);
    controller->selectRow(1);
    EXPECT_TRUE(awaitFormatted());
    QApplication::sendPostedEvents();
    controller->applyTheme();
    EXPECT_TRUE(isFormatted()) << "also while it is made anew";
}

TEST_F(RichTextViewTest, formattingThatComesLateIsShownWithoutAnotherChoice)
{
    memory.clock.advance(std::chrono::seconds(1));
    Clip clip;
    clip.text = QStringLiteral("bold");
    clip.html = QStringLiteral("<b>bold</b>");
    delegate.history().addToClipList(clip);
    open();
    EXPECT_TRUE(awaitFormatted());
}

TEST_F(RichTextViewTest, whatIsMarkedIsCopiedAsItWasCopied)
{
    addRich(QStringLiteral("anything"),
            "<h1 style='color:#000080'>Title</h1><p><span style='color:black;background:white;"
            "font-size:40px'>large</span> <a href='https://example.org/x'>link</a> <span "
            "style=\"font-family:'Any Mono', "
            "monospace\">code</span></p>"
            "<table><tr><td>1</td><td>2</td></tr><tr><td>3</td><td>4</td></tr></table>");
    const FieldPasteboard fields(memory.pasteboard);
    open();
    ASSERT_TRUE(awaitFormatted());
    pane->richTextView()->setFocus();
    QTest::keyClick(pane->richTextView(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(pane->richTextView(), Qt::Key_C, Qt::ControlModifier);
    const Copy copy = memory.pasteboard.contents().value_or(PasteboardContents());
    EXPECT_EQ(copy.text.value_or(QString()).trimmed(),
              QStringLiteral("Title\nlarge link code\n1\t2\n3\t4"));
    ASSERT_TRUE(copy.html && copy.rtf);
    EXPECT_EQ(RichText::htmlOf(copy.rtf->toLatin1()), copy.html->toLatin1());
    for (const char *part : {"<h1", "color:#000080", "background-color:#ffffff", "30pt",
                             "href=\"https://example.org/x\"", "<table", "charset=\"utf-8\""})
        EXPECT_TRUE(copy.html->contains(QLatin1String(part)))
            << part << " in " << copy.html->toStdString();
    for (const char *part : {"Any Mono", "<body", "bgcolor"})
        EXPECT_FALSE(copy.html->contains(QLatin1String(part)))
            << part << " in " << copy.html->toStdString();
    const auto again = RichTextDocument::ofHtml(copy.html->toLatin1(), 1 << 20);
    EXPECT_EQ(fragmentOf(*again, QStringLiteral("code")).charFormat().fontFamilies().toStringList(),
              QStringList{QStringLiteral("monospace")});
}

TEST_F(RichTextViewTest, nothingIsFetchedOpenedOrFollowed)
{
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr *>(&address), size), 0);
    ASSERT_EQ(listen(listener, 1), 0);
    ASSERT_EQ(getsockname(listener, reinterpret_cast<sockaddr *>(&address), &size), 0);
    const QByteArray remote =
        "http://127.0.0.1:" + QByteArray::number(ntohs(address.sin_port)) + "/x";

    const QByteArray path = folder.filePath(QStringLiteral("named.css")).toUtf8();
    QFile file(QString::fromUtf8(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const int watch = inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    ASSERT_GE(inotify_add_watch(watch, path, IN_OPEN | IN_ACCESS), 0);
    const auto isReadable = [](int descriptor, int milliseconds) {
        pollfd poll = {descriptor, POLLIN, 0};
        return ::poll(&poll, 1, milliseconds) == 1;
    };

    QByteArray html = "<base href='" + remote + "'>";
    for (const QByteArray &name : {remote, "file://" + path, path})
        html += "<link rel=stylesheet href='" + name + "'><style>@import '" + name +
                "'; p { background: url(" + name + ") } li { list-style-image: url(" + name +
                ") }</style><img src='" + name + "'><body background='" + name +
                "'><p style='background-image:url(" + name + ")'>words</p><ul><li>item</ul>" +
                "<table background='" + name + "'><tr><td background='" + name +
                "'>cell</table><object data='" + name + "'></object><iframe src='" + name +
                "'></iframe><script src='" + name + "'></script><a href='" + name + "'>link</a>";
    addRich(QStringLiteral("words"), html);
    open();
    ASSERT_TRUE(awaitFormatted());
    RichTextView *view = pane->richTextView();
    view->grab();
    for (const QTextFragment &link : {fragmentOf(*view->document(), QStringLiteral("link"))}) {
        QTextCursor cursor(view->document());
        cursor.setPosition(link.position() + 2);
        EXPECT_EQ(view->anchorAt(view->cursorRect(cursor).center()).toUtf8(), remote);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, kNone,
                          view->cursorRect(cursor).center());
    }
    QTest::keyClick(view, Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_FALSE(isReadable(listener, 100)) << "somebody has connected";
    EXPECT_FALSE(isReadable(watch, 0)) << "the file was opened";
    EXPECT_TRUE(memory.workspace.opened().isEmpty());

    // Either would have been seen.
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(isReadable(watch, 5000));
    const int caller = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    EXPECT_EQ(connect(caller, reinterpret_cast<sockaddr *>(&address), size), 0);
    EXPECT_TRUE(isReadable(listener, 5000));
    for (const int descriptor : {caller, watch, listener})
        close(descriptor);
}

} // namespace
