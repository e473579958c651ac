#include "history/KeptPictures.h"

#include "history/HistoryRig.h"
#include "history/StoredClips.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;

QByteArray picture(const QSize &size, const QColor &color, const char *encoding = "png")
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(color);
    QBuffer buffer;
    EXPECT_TRUE(image.save(&buffer, encoding));
    return buffer.data();
}

/// The header of a bitmap of so many pixels, and nothing else.
QByteArray bitmapHeader(qint32 width, qint32 height)
{
    QByteArray bytes = picture({1, 1}, Qt::red, "bmp");
    for (int i = 0; i < 4; ++i) {
        bytes[18 + i] = static_cast<char>(width >> (8 * i));
        bytes[22 + i] = static_cast<char>(height >> (8 * i));
    }
    return bytes;
}

class KeptPicturesTest : public testing::Test
{
protected:
    KeptPicturesTest() { m_rig.settings.maxPictureSize = 10'000; }

    void copyPicture(const QByteArray &bytes, const QString &applicationName = u"Camera"_s)
    {
        m_rig.platform.clock.advance(std::chrono::seconds(1));
        m_rig.capture.timeout();
        PasteboardContents contents{{}, applicationName};
        contents.picture = bytes;
        m_rig.platform.pasteboard.copyFromOutside(contents);
    }
    bool comesTo(const QStringList &texts)
    {
        return QTest::qWaitFor([&] { return m_rig.texts() == texts; });
    }
    QStringList files() const
    {
        return QDir(m_folder.path() + u"/Pictures"_s).entryList(QDir::Files);
    }
    QString path(std::size_t row) const { return m_rig.at(row)->filepath().value_or(QString()); }

    const QString kText = u"Picture 8 × 6"_s;
    const QByteArray kRed = picture({8, 6}, Qt::red);
    const QByteArray kBlue = picture({8, 6}, Qt::blue);
    StoreFolder m_folder;
    PasteRig m_rig{m_folder.path()};
};

TEST_F(KeptPicturesTest, aCopyOfNothingButAPictureIsAPrivateFileWithAClip)
{
    copyPicture(kRed);
    ASSERT_TRUE(comesTo({kText}));
    EXPECT_EQ(m_rig.at(0)->shortText(), kText);
    EXPECT_EQ(m_rig.at(0)->applicationName(), u"Camera"_s);
    QFile file(path(0));
    EXPECT_EQ(file.permissions() & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), kRed);

    // Of one size and one text, but another picture; then the first one again.
    copyPicture(picture({8, 6}, Qt::blue, "bmp"));
    ASSERT_TRUE(comesTo({kText, kText}));
    const QString blue = path(0);
    EXPECT_EQ(QImage(blue).pixelColor(0, 0), QColor(Qt::blue));
    copyPicture(kRed);
    ASSERT_TRUE(QTest::qWaitFor([&] { return path(0) != blue; }));
    m_rig.copy(kText);
    EXPECT_EQ(m_rig.texts(), QStringList({kText, kText, kText}));
    EXPECT_EQ(path(0), QString());
    EXPECT_EQ(files().size(), 2);
}

TEST_F(KeptPicturesTest, aCopyThatIsMadeMeanwhileStaysAboveThePicture)
{
    copyPicture(kRed);
    m_rig.copy(u"later"_s);
    EXPECT_TRUE(comesTo({u"later"_s, kText}));
}

TEST_F(KeptPicturesTest, whoDoesNotWantThemHasNone)
{
    m_rig.settings.ignored = {u"Vault"_s};
    copyPicture(kRed, u"Vault"_s);
    PasteboardContents secret;
    secret.picture = kRed;
    secret.isConcealed = true;
    m_rig.platform.pasteboard.copyFromOutside(secret);
    m_rig.settings.maxPictureSize = 0;
    copyPicture(kRed);
    m_rig.settings.maxPictureSize = 10'000;
    copyPicture(kBlue);
    m_rig.history.clearAll();
    copyPicture(picture({1, 1}, Qt::red));
    EXPECT_TRUE(comesTo({u"Picture 1 × 1"_s}));
    EXPECT_EQ(files().size(), 1);
}

TEST_F(KeptPicturesTest, whatIsNoPictureOrTooLargeLeavesNothing)
{
    struct Row
    {
        const char *name;
        QByteArray bytes;
        bool isTold;
    };
    QByteArray noise(60'000, Qt::Uninitialized);
    quint32 seed = 1;
    for (char &byte : noise)
        byte = static_cast<char>((seed = seed * 1664525 + 1013904223) >> 24);
    QBuffer large;
    QImage(reinterpret_cast<const uchar *>(noise.constData()), 100, 100, QImage::Format_RGB32)
        .save(&large, "bmp");
    const Row rows[] = {{"text", "no picture", false},
                        {"half of it", kRed.left(kRed.size() - 10), false},
                        {"200 megapixels", bitmapHeader(20'000, 10'000), true},
                        {"above the limit as PNG", large.data(), true},
                        {"PNG above the limit", kRed + QByteArray(10'000, 'x'), true}};
    QSignalSpy refused(&m_rig.capture, &ClipboardCapture::refused);
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        Clip clip;
        clip.picture = row.bytes;
        m_rig.history.addPicture(clip);
        copyPicture(kBlue);
        ASSERT_TRUE(comesTo({kText}));
        EXPECT_EQ(refused.size(), row.isTold ? 1 : 0);
        EXPECT_EQ(files().size(), 1);
        refused.clear();
        m_rig.history.clearAll();
        EXPECT_EQ(files(), QStringList());
    }
}

TEST_F(KeptPicturesTest, aPictureGoesWithItsClipHoweverThatGoes)
{
    struct Row
    {
        const char *name;
        std::function<void()> remove;
        int left;
    };
    const Row rows[] = {{"deletion", [this] { m_rig.history.deleteItem(m_rig.at(1)); }, 1},
                        {"trimming by a copy",
                         [this] {
                             m_rig.settings.maxItems = 2;
                             m_rig.copy(u"text"_s);
                             m_rig.settings.maxItems = 1000;
                         },
                         1},
                        {"trimming by the size", [this] { m_rig.history.maxItemsModified(1); }, 1},
                        {"another program",
                         [this] {
                             ClipStore store(m_folder.path());
                             std::vector<ClipChange> nothing;
                             EXPECT_FALSE(store.write(nothing, {store.readRows()->front().pk}));
                             m_rig.history.loadForeignChanges();
                         },
                         1},
                        {"Clear All", [this] { m_rig.history.clearAll(); }, 0},
                        {"Clear All by the command",
                         [this] {
                             EXPECT_TRUE(StoredClips::clear(m_folder.path()));
                             m_rig.history.loadForeignChanges();
                         },
                         0}};
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        copyPicture(kRed);
        ASSERT_TRUE(comesTo({kText}));
        copyPicture(kBlue);
        ASSERT_TRUE(comesTo({kText, kText}));
        const QString newer = path(0);
        row.remove();
        // What another program has removed is looked for while there is nothing else to do.
        EXPECT_TRUE(QTest::qWaitFor([&] { return files().size() == row.left; }));
        EXPECT_EQ(QFile::exists(newer), row.left == 1);
        m_rig.history.clearAll();
    }
}

TEST_F(KeptPicturesTest, aFileThatACrashLeftGoesAtTheNextStartAndADeletedOneCanComeBack)
{
    copyPicture(kRed);
    ASSERT_TRUE(comesTo({kText}));
    const QString known = path(0);
    QFile left(m_folder.path() + u"/Pictures/picture-1x1-00.png"_s);
    ASSERT_TRUE(left.open(QIODevice::WriteOnly));
    HistoryRig next(m_folder.path());
    EXPECT_TRUE(QTest::qWaitFor([&] { return files().size() == 1; }));
    EXPECT_EQ(next.history.pictures().read(known), kRed);
    next.history.deleteItem(next.at(0));
    EXPECT_EQ(next.history.pictures().read(known), QByteArray());
    EXPECT_TRUE(next.history.bringBack().newest);
    EXPECT_EQ(next.history.pictures().read(known), kRed);
    // Gone from the disk by another hand, it cannot be held.
    QFile::remove(known);
    next.history.deleteItem(next.at(0));
    EXPECT_EQ(next.history.deletedClips().latest(), DeletedClips::Latest::Lost);
}

TEST_F(KeptPicturesTest, isPastedAsAPictureAndAsItsFile)
{
    copyPicture(kRed);
    ASSERT_TRUE(comesTo({kText}));
    m_rig.copy(u"text"_s);
    m_rig.platform.workspace.addFile(path(1));
    QSignalSpy replaced(&m_rig.paster, &ClipPaster::unrecordedReplaced);
    copyPicture(kBlue);
    ASSERT_TRUE(comesTo({kText, u"text"_s, kText}));
    m_rig.paster.performPaste(2, {});
    EXPECT_EQ(replaced.size(), 0);
    const std::optional<PasteboardContents> pasted = m_rig.platform.pasteboard.contents();
    ASSERT_TRUE(pasted);
    EXPECT_EQ(pasted->picture, kRed);
    EXPECT_EQ(pasted->fileNames, QStringList{path(2)});
    EXPECT_EQ(pasted->offer, Copy::Offer::Picture);
    m_rig.capture.timeout();
    EXPECT_EQ(m_rig.texts(), QStringList({kText, kText, u"text"_s}));
    EXPECT_EQ(m_rig.history.pictures().read(path(0)), kRed);
}

} // namespace
