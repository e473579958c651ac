#include "Clipboard/preview/FontBody.h"
#include "Clipboard/preview/ImageBody.h"
#include "Clipboard/preview/ListBody.h"
#include "Clipboard/preview/PdfBody.h"
#include "Clipboard/preview/TextBody.h"
#include "PreviewRig.h"
#include "preview/decoders/SvgReader.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QScrollBar>
#include <QUrl>

namespace {

class PreviewKindsTest : public PreviewRig
{
protected:
    /// Puts a picture of `path`, as it was at `modified`, where file managers put it.
    void writeThumbnail(const QString &path, const QDateTime &modified)
    {
        qputenv("XDG_CACHE_HOME", QFile::encodeName(folder.path()));
        // As the managers built on GLib write addresses.
        const QByteArray address = QUrl::fromLocalFile(path).toEncoded().replace('[', "%5B");
        const QByteArray name = QCryptographicHash::hash(address, QCryptographicHash::Md5).toHex();
        ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("thumbnails/normal")));
        QImage image(12, 8, QImage::Format_RGB32);
        image.fill(Qt::green);
        image.setText(QStringLiteral("Thumb::MTime"), QString::number(modified.toSecsSinceEpoch()));
        ASSERT_TRUE(image.save(folder.filePath(
            QStringLiteral("thumbnails/normal/%1.png").arg(QString::fromLatin1(name)))));
    }
};

TEST_F(PreviewKindsTest, aDrawingFillsTheView)
{
    const auto drawing = readAs<ImageContent>(sample("drawing.svg"), QSize(256, 256));
    ASSERT_TRUE(drawing);
    const QImage image = drawing->frames().front().image;
    EXPECT_EQ(image.size(), QSize(256, 128));
    EXPECT_EQ(image.pixelColor(60, 60), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(200, 60), QColor(Qt::blue));
    EXPECT_TRUE(readAs<ImageContent>(
        write(QStringLiteral("large.svg"), "<svg xmlns='http://www.w3.org/2000/svg' width='1' "
                                           "height='1'><!--" +
                                               QByteArray(3 << 20, 'x') + "--></svg>")));
}

TEST_F(PreviewKindsTest, theTextInADrawingIsWritten)
{
    const auto drawn = [this](const char *font, const char *text) {
        const QByteArray drawing =
            "<svg xmlns='http://www.w3.org/2000/svg' width='200' height='90'><text x='5' y='70' "
            "font-size='61' " +
            QByteArray(font) + ">" + text + "</text></svg>";
        const auto read = readAs<ImageContent>(write(QStringLiteral("text.svg"), drawing));
        return read ? read->frames().front().image : QImage();
    };
    // Without a font any two letters are the same box.
    for (const char *font :
         {"", "font-family='serif'", "font-family='sans-serif' font-weight='800'",
          "font-family='monospace' font-style='italic'", "font-family='Helvetica'",
          "font-family='Nobody Has It'"}) {
        EXPECT_NE(drawn(font, "II"), drawn(font, "OO")) << font;
        EXPECT_NE(drawn(font, "ЖЖ"), drawn(font, "ЦЦ")) << font;
    }
}

TEST_F(PreviewKindsTest, aDrawingNeitherReadsOtherFilesNorGrowsWithoutBounds)
{
    const auto drawing = readAs<ImageContent>(sample("reading.svg"));
    ASSERT_TRUE(drawing);
    EXPECT_EQ(drawing->frames().front().image.pixelColor(50, 50), QColor(Qt::green));

    QFile multiplying(sample("multiplying.svg"));
    ASSERT_TRUE(multiplying.open(QIODevice::ReadOnly));
    EXPECT_EQ(SvgReader::harmless(multiplying.readAll()), std::nullopt);
    EXPECT_EQ(SvgReader::harmless(QByteArray("<g>").repeated(100'000)), std::nullopt);
    EXPECT_EQ(SvgReader::harmless("<svg><g id='a'><use href='#a'/></g></svg>")
                  .value_or(QByteArray())
                  .contains("use"),
              false);
}

TEST_F(PreviewKindsTest, aDocumentShowsItsFirstPageAndTheOthersWhenTheyComeIntoSight)
{
    const auto content = readAs<PdfContent>(sample("pages.pdf"));
    ASSERT_TRUE(content);
    EXPECT_EQ(content->pageCount(), 3);
    EXPECT_EQ(content->first().size(), QSize(512, 717));
    EXPECT_EQ(content->first().pixelColor(256, 500), QColor(Qt::blue));
    EXPECT_EQ(content->first().pixelColor(5, 5), QColor(Qt::white));

    const auto view = shown(sample("pages.pdf"), QSize(300, 300));
    const auto *body = qobject_cast<PdfBody *>(view->body());
    ASSERT_TRUE(body);
    EXPECT_TRUE(body->isDrawn(0));
    EXPECT_FALSE(body->isDrawn(2));
    body->scrollBar()->setValue(body->scrollBar()->maximum());
    EXPECT_TRUE(QTest::qWaitFor([&] { return body->isDrawn(2); }));
    // Whoever reads the last page reads on when the divider is dragged.
    view->resize(600, 300);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !body->isDrawn(0) || body->isDrawn(2); }));
    EXPECT_GT(body->scrollBar()->value(), 2 * body->scrollBar()->maximum() / 3);
}

TEST_F(PreviewKindsTest, aBrokenDocumentOrFontGivesACardAndABrokenDrawingItsText)
{
    const QByteArray noise = QByteArray("\x00\x01\x00\x00", 4) + QByteArray(5000, '\x7f');
    for (const QString &path : {sample("truncated.pdf"), sample("hostile.pdf"),
                                write(QStringLiteral("noise.ttf"), noise)}) {
        const PreviewResult result = read(path);
        EXPECT_TRUE(result.attributes) << path.toStdString();
        EXPECT_FALSE(result.content) << path.toStdString();
    }
    EXPECT_TRUE(readAs<TextContent>(write(QStringLiteral("broken.svg"), "<svg><g></svg>")));
    EXPECT_TRUE(readAs<TextContent>(sample("multiplying.svg")));
}

TEST_F(PreviewKindsTest, aFolderTellsItsSizeAndItsEntriesFoldersFirst)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("top/below")));
    write(QStringLiteral("top/b"), QByteArray(1000, 'x'));
    write(QStringLiteral("top/a"), QByteArray(1000, 'x'));
    write(QStringLiteral("top/below/deep"), QByteArray(3000, 'x'));
    ASSERT_TRUE(QFile::link(QStringLiteral(".."), folder.filePath(QStringLiteral("top/zloop"))));
    const auto list = readAs<ListContent>(folder.filePath(QStringLiteral("top")));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->entries(), QStringList({QStringLiteral("below/"), QStringLiteral("zloop/"),
                                            QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(ListBody::summed(list->count()),
              QStringLiteral("4 entries, ") + QLocale().formattedDataSize(5000));
}

TEST_F(PreviewKindsTest, aFontShowsASpecimen)
{
    const auto font =
        readAs<FontContent>(QStringLiteral("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf"));
    ASSERT_TRUE(font);
    EXPECT_EQ(font->family(), QStringLiteral("DejaVu Sans"));
    for (const FontContent::Line &line : font->lines())
        EXPECT_GT(line.outline.boundingRect().width(), 100);
}

TEST_F(PreviewKindsTest, aFilmShowsItsThumbnailIfThatIsOfTheFileAsItIs)
{
    const QString fresh = write(QStringLiteral("fresh [2020.mp4"), QByteArray("\0film", 5));
    const QString changed = write(QStringLiteral("changed.mp4"), QByteArray("\0film", 5));
    const QDateTime modified = QFileInfo(fresh).lastModified();
    writeThumbnail(fresh, modified);
    writeThumbnail(changed, QFileInfo(changed).lastModified().addDays(-1));
    const auto image = readAs<ImageContent>(fresh);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->frames().front().image.size(), QSize(12, 8));
    EXPECT_FALSE(read(changed).content);
}

} // namespace
