#include "Clipboard/preview/FileCard.h"
#include "Clipboard/preview/ImageBody.h"
#include "Clipboard/preview/PreviewBodies.h"
#include "Clipboard/preview/TextBody.h"
#include "PreviewRig.h"
#include "preview/decoders/TextReader.h"

#include <QScrollBar>
#include <QUrl>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using PreviewTest = PreviewRig;

TEST_F(PreviewTest, whatIsNoReadableFileGivesACardInBoundedTime)
{
    const QString pipe = folder.filePath(QStringLiteral("pipe.txt"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QString unreadable = write(QStringLiteral("secret.txt"), "secret");
    ASSERT_EQ(::chmod(QFile::encodeName(unreadable).constData(), 0), 0);
    const QString sparse = write(QStringLiteral("sparse.log"), "");
    ASSERT_EQ(::truncate(QFile::encodeName(sparse).constData(), qint64(4) << 30), 0);
    const QString socketPath = folder.filePath(QStringLiteral("socket"));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, QFile::encodeName(socketPath).constData(), sizeof address.sun_path);
    ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);

    QStringList paths = {pipe,
                         sparse,
                         socketPath,
                         QStringLiteral("/dev/zero"),
                         QStringLiteral("/proc/self/maps"),
                         QStringLiteral("/proc/kmsg"),
                         write(QStringLiteral("empty.png"), "")};
    // Nothing is unreadable to the superuser.
    if (::geteuid() != 0)
        paths.append(unreadable);
    for (const QString &path : paths) {
        const PreviewResult result = read(path);
        EXPECT_TRUE(result.attributes) << path.toStdString();
        EXPECT_FALSE(result.content) << path.toStdString();
    }
    EXPECT_FALSE(read(folder.filePath(QStringLiteral("nothing"))).attributes);
    ::close(socket);
}

TEST_F(PreviewTest, aBrokenOrHostileFileGivesACardInBoundedTime)
{
    for (const char *name : {"truncated.png", "huge_claim.png", "truncated.gif", "binary.txt"}) {
        const PreviewResult result = read(sample(name));
        EXPECT_TRUE(result.attributes) << name;
        EXPECT_FALSE(result.content) << name;
    }
}

TEST_F(PreviewTest, namesNeedNotBeText)
{
    for (const QString &name : {QStringLiteral("line\nbreak.txt"), QStringLiteral("100%20%s.txt"),
                                QStringLiteral("<b>.txt")})
        EXPECT_TRUE(readAs<TextContent>(write(name, "content"))) << name.toStdString();
}

TEST_F(PreviewTest, aFileNamedAsAnotherKindIsShownAsWhatItIs)
{
    QFile picture(sample("turned.jpg"));
    ASSERT_TRUE(picture.open(QIODevice::ReadOnly));
    EXPECT_TRUE(readAs<ImageContent>(write(QStringLiteral("sent.png"), picture.readAll())));
    EXPECT_TRUE(readAs<TextContent>(sample("text_as.png")));
    EXPECT_FALSE(read(write(QStringLiteral("letter.rtf"), "{\\rtf1 Dear reader}")).content)
        << "nobody reads its code";
}

TEST_F(PreviewTest, aPhotographIsTurnedUprightAndReadAtTheSizeOfTheView)
{
    const auto small = readAs<ImageContent>(sample("turned.jpg"), QSize(10, 10));
    ASSERT_TRUE(small);
    EXPECT_EQ(small->frames().front().image.size(), QSize(5, 10));
    EXPECT_TRUE(small->dependsOnSize());

    const auto upright = readAs<ImageContent>(sample("turned.jpg"));
    ASSERT_TRUE(upright);
    const QImage image = upright->frames().front().image;
    EXPECT_EQ(image.size(), QSize(20, 40));
    EXPECT_GT(image.pixelColor(10, 5).red(), 200);
    EXPECT_GT(image.pixelColor(10, 35).blue(), 200);
}

TEST_F(PreviewTest, anAnimationMoves)
{
    const auto view = shown(sample("moving.gif"), QSize(100, 100));
    const auto *body = qobject_cast<ImageBody *>(view->body());
    ASSERT_TRUE(body);
    for (const size_t frame : {2U, 0U})
        EXPECT_TRUE(QTest::qWaitFor([&] { return body->frame() == frame; }));
}

TEST_F(PreviewTest, transparencyShowsACheckerboard)
{
    const auto view = shown(sample("clear.png"), QSize(100, 100));
    const QImage shown = view->grab().toImage();
    // Neighbouring squares below the same half-clear red.
    EXPECT_NE(shown.pixel(45, 45), shown.pixel(53, 45));
    EXPECT_GT(shown.pixelColor(45, 45).red(), shown.pixelColor(45, 45).blue() + 80);
}

TEST_F(PreviewTest, aTextIsReadInTheEncodingItIsWrittenIn)
{
    const struct
    {
        const char *name;
        const char *part;
    } kTable[] = {
        {"utf16.txt", "Grüße, 漢字"},
        {"latin1.txt", "Die Straße führt über"},
        {"shift_jis.txt", "これは日本語の文章です"},
        {"cut_utf8.txt", "ab"},
    };
    for (const auto &row : kTable) {
        const auto text = readAs<TextContent>(sample(row.name));
        ASSERT_TRUE(text) << row.name;
        EXPECT_TRUE(text->text().contains(QString::fromUtf8(row.part)))
            << row.name << ": " << text->text().toStdString();
    }
    const QByteArray unmarked("R\0e\0g\0i\0s\0t\0r\0y\0 \0o\0f\0 \0s\0i\0z\0e\0s\0\r\0\n\0", 38);
    EXPECT_EQ(TextReader::decoded(unmarked), QStringLiteral("Registry of sizes\r\n"));
    // Too few bytes for statistics.
    EXPECT_EQ(TextReader::decoded("Gr\xFC\xDF"), QString::fromUtf8("Grüß"));
}

TEST_F(PreviewTest, ofALongTextTheBeginningIsShown)
{
    const QByteArray line = QByteArray(79, 'x') + '\n';
    const auto lines =
        readAs<TextContent>(write(QStringLiteral("long.log"), line.repeated(50'000)));
    ASSERT_TRUE(lines);
    EXPECT_TRUE(lines->isCut());
    EXPECT_EQ(lines->text().size(), TextContent::kMaxCharacters);
    const auto one =
        readAs<TextContent>(write(QStringLiteral("min.js"), "var a;" + QByteArray(1'000'000, 'x')));
    ASSERT_TRUE(one);
    EXPECT_TRUE(one->isCut());
    EXPECT_EQ(one->text().size(), TextContent::kMaxOfLine + 1);
    const auto whole = readAs<TextContent>(write(QStringLiteral("short.txt"), "a\r\nb\n"));
    ASSERT_TRUE(whole);
    EXPECT_FALSE(whole->isCut());
    EXPECT_EQ(whole->text(), QStringLiteral("a\nb\n"));
}

TEST_F(PreviewTest, markdownAndPagesAreShownAsTheyRead)
{
    const auto notes = readAs<TextContent>(sample("notes.md"));
    ASSERT_TRUE(notes);
    const std::unique_ptr<PreviewBody> body(PreviewBodies::make(*notes, {}, registry, nullptr));
    const QString read = qobject_cast<TextBody *>(body.get())->plainText();
    EXPECT_TRUE(read.contains(QStringLiteral("Some emphasis and code."))) << read.toStdString();
    EXPECT_FALSE(read.contains(u'#'));

    const auto page = readAs<TextContent>(sample("page.html"));
    ASSERT_TRUE(page);
    EXPECT_TRUE(page->text().contains(QStringLiteral("Body & text")));
    EXPECT_FALSE(page->text().contains(QStringLiteral("hidden")));
    const auto strict = readAs<TextContent>(
        write(QStringLiteral("strict.xhtml"), "<?xml version='1.0'?><html><p>Body</p></html>"));
    ASSERT_TRUE(strict);
    EXPECT_EQ(strict->text(), QStringLiteral("Body"));
}

TEST_F(PreviewTest, tagsInMarkdownTakeNothingWithThem)
{
    const struct
    {
        const char *text;
        const char *shown;
    } kTable[] = {
        {"one<br>two <img src='x.png'> three", "one\ntwo  three"},
        {"<p align=center>\n<img src='x.png'>\n</p>\n\nafter", "after"},
        {"<!-- not\nseen --> `<br>` and List<String>", "<br> and List<String>"},
        {"~~~\n<p>\n~~~\nafter", "<p>\nafter"},
        {"<h2 align=center>Title</h2>after", "Title\nafter"},
    };
    for (const auto &row : kTable) {
        const TextContent content(QString::fromUtf8(row.text), TextContent::Form::Markdown, false);
        const std::unique_ptr<PreviewBody> body(
            PreviewBodies::make(content, {}, registry, nullptr));
        EXPECT_EQ(qobject_cast<TextBody *>(body.get())->plainText().trimmed().toStdString(),
                  row.shown);
    }
}

TEST_F(PreviewTest, aPageDoesNotReadTheFilesThatItNames)
{
    const QString pipe = folder.filePath(QStringLiteral("style.css"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const QByteArray address = QUrl::fromLocalFile(pipe).toEncoded();
    for (const QByteArray &head : {"<link rel='stylesheet' href='" + address + "'>",
                                   "<style>@import url('" + address + "');</style>"}) {
        const auto page = readAs<TextContent>(write(
            QStringLiteral("page.html"), "<html><head>" + head + "</head><p>Body</p></html>"));
        ASSERT_TRUE(page) << head.toStdString();
        EXPECT_EQ(page->text(), QStringLiteral("Body"));
    }
}

TEST_F(PreviewTest, theLatestResultsAreKeptWhileTheirFilesStay)
{
    const QString first = write(QStringLiteral("first.txt"), "first");
    const auto before = read(first).content;
    EXPECT_EQ(read(first).content, before);
    write(QStringLiteral("first.txt"), "changed");
    const auto after = readAs<TextContent>(first);
    ASSERT_TRUE(after);
    EXPECT_EQ(after->text(), QStringLiteral("changed"));
    for (size_t i = 0; i < PreviewRegistry::kMaxKept; ++i)
        read(write(QStringLiteral("%1.txt").arg(i), "content"));
    EXPECT_EQ(registry.keptCount(), PreviewRegistry::kMaxKept);
    EXPECT_NE(read(first).content, std::shared_ptr<const PreviewContent>(after));
}

TEST_F(PreviewTest, whoeverReadsAFileThatGrowsReadsOnWhereTheyAre)
{
    const QByteArray lines = QByteArray("line\n").repeated(500);
    const QString path = write(QStringLiteral("growing.log"), lines);
    const auto view = shown(path, QSize(300, 200));
    view->body()->scrollBar()->setValue(300);
    write(QStringLiteral("growing.log"), lines + "the last\n");
    EXPECT_TRUE(QTest::qWaitFor([&] {
        const auto *body = qobject_cast<TextBody *>(view->body());
        return body && body->plainText().endsWith(QStringLiteral("the last\n"));
    }));
    EXPECT_EQ(view->body()->scrollBar()->value(), 300);
}

TEST_F(PreviewTest, aViewFollowsItsFile)
{
    const QString path = write(QStringLiteral("file.txt"), "before");
    FilePreview view(registry, path, nullptr);
    view.show();
    view.refresh();
    const auto shows = [&view](const QString &text) {
        return QTest::qWaitFor([&] {
            const auto *body = qobject_cast<TextBody *>(view.body());
            return body && body->plainText() == text;
        });
    };
    EXPECT_TRUE(shows(QStringLiteral("before")));
    write(QStringLiteral("file.txt"), "written");
    EXPECT_TRUE(shows(QStringLiteral("written")));
    // As editors save.
    const QString other = write(QStringLiteral("other"), "replaced");
    ASSERT_EQ(::rename(QFile::encodeName(other).constData(), QFile::encodeName(path).constData()),
              0);
    EXPECT_TRUE(shows(QStringLiteral("replaced")));
    ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.card()->isVisible() && !view.body(); }));
    write(QStringLiteral("file.txt"), "back again");
    EXPECT_TRUE(shows(QStringLiteral("back again")));
}

} // namespace
