#include "Clipboard/exchange/ForeignFormats.h"
#include "Clipboard/exchange/ClipFile.h"
#include "Clipboard/exchange/ForeignHistories.h"
#include "Clipboard/exchange/KlipperStore.h"

#include <QBuffer>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sqlite3.h>

namespace {

using ForeignFormats::Contents;

struct Sample
{
    const char *file; ///< As the program itself wrote it.
    Contents (*read)(QIODevice &file);
    QStringList texts; ///< Newest first.
    QStringList files; ///< Of the clip that has some.
    qint64 passedOver;
};

const QString kSecond =
    QStringLiteral("zweite Zeile\nmit Umbruch, ünïcode 😀 und \"Anführung\" \\n <b>&amp;</b>");
const QString kIndented = QStringLiteral("  indented\ttab\n");

const QList<Sample> &samples()
{
    static const QList<Sample> kSamples{
        {"copyq_tab.dat",
         &ForeignFormats::readCopyQ,
         {QStringLiteral("zweite Zeile\nmit Umbruch, ünïcode 😀"), QStringLiteral("the first copy"),
          QStringLiteral("long ").repeated(20),
          QStringLiteral("/etc/hostname\n/usr/share/doc/a name"),
          QStringLiteral("with formatting")},
         {QStringLiteral("/etc/hostname"), QStringLiteral("/usr/share/doc/a name")},
         1},
        {"klipper_history2.lst",
         &ForeignFormats::readKlipper,
         {QStringLiteral("the last one"), QStringLiteral("/usr/share/doc/xclip\n/etc/hostname"),
          QStringLiteral("a; b; c"), kIndented, kSecond, QStringLiteral("the first copy")},
         {QStringLiteral("/usr/share/doc/xclip"), QStringLiteral("/etc/hostname")},
         0},
        {"gpaste_history.xml",
         &ForeignFormats::readGPaste,
         {QStringLiteral("never told"), QStringLiteral("vm\n"),
          kSecond + QStringLiteral(" ]]> end"), QStringLiteral("the first copy")},
         {},
         1},
        {"clipman.json",
         &ForeignFormats::readClipman,
         {QStringLiteral("the last one"), QStringLiteral("  indented\ttab"), kSecond,
          QStringLiteral("the first copy")},
         {},
         0},
        {"xfce_clipman_textsrc",
         &ForeignFormats::readXfceClipman,
         {QStringLiteral("the last one"), QStringLiteral("a; b; c"), kIndented, kSecond,
          QStringLiteral("the first copy")},
         {},
         0},
        {"cliphist_db",
         &ForeignFormats::readCliphist,
         {QStringLiteral("the last one"), kIndented, kSecond, QStringLiteral("the first copy")},
         {},
         1},
    };
    return kSamples;
}

QByteArray bytesOf(const Sample &sample)
{
    QFile file(QStringLiteral(TEST_DATA_DIR "/foreign/") + QLatin1String(sample.file));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << sample.file;
    return file.readAll();
}

Contents read(const Sample &sample, QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return sample.read(buffer);
}

QStringList textsOf(const Contents &contents)
{
    QStringList texts;
    for (const ForeignFormats::Clip &clip : contents.clips)
        texts.append(clip.text);
    return texts;
}

TEST(ForeignFormatsTest, whatEachProgramHasWrittenIsReadNewestFirst)
{
    for (const Sample &sample : samples()) {
        SCOPED_TRACE(sample.file);
        const Contents contents = read(sample, bytesOf(sample));
        EXPECT_TRUE(contents.isUnderstood);
        EXPECT_EQ(textsOf(contents).join(u'|').toStdString(),
                  sample.texts.join(u'|').toStdString());
        EXPECT_EQ(contents.passedOver, sample.passedOver);
        QStringList files;
        for (const ForeignFormats::Clip &clip : contents.clips)
            files += clip.fileNames;
        EXPECT_EQ(files, sample.files);
    }
}

TEST(ForeignFormatsTest, aBrokenFileGivesAtMostWhatItHas)
{
    for (const Sample &sample : samples()) {
        SCOPED_TRACE(sample.file);
        const QByteArray whole = bytesOf(sample);
        const QByteArray half = whole.left(whole.size() / 2);
        EXPECT_LE(read(sample, half).clips.size(), sample.texts.size());
        EXPECT_FALSE(read(sample, "none of it").isUnderstood);
        EXPECT_FALSE(read(sample, QByteArray(8192, '\xff')).isUnderstood);
        // Each number in it claims something else.
        for (qsizetype at = 0; at < std::min<qsizetype>(whole.size(), 20'000); at += 7) {
            QByteArray bent = whole;
            bent[at] = static_cast<char>(bent[at] ^ 0xff);
            EXPECT_LE(read(sample, bent).clips.size(), 10'000);
        }
    }
}

TEST(ForeignFormatsTest, aStoreThatClaimsMoreThanThereIsTakesNoMemoryForIt)
{
    // An entry of CopyQ whose text is said to have two gigabytes.
    QByteArray claim = QByteArray::fromHex("00000001fffffffe000000010000000c003800"
                                           "70006c00610069006e007ffffff0");
    const Contents contents = read(samples().first(), claim + "short");
    EXPECT_FALSE(contents.isUnderstood);
    EXPECT_TRUE(contents.clips.isEmpty());
}

TEST(ForeignHistoriesTest, theyAreFoundWhereTheProgramsKeepThemAndMergedByDate)
{
    const QTemporaryDir home;
    for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(variable, QFile::encodeName(home.filePath(QLatin1String(variable))));
    EXPECT_TRUE(ForeignHistories::read().isEmpty());
    const char *const places[] = {"XDG_CONFIG_HOME/copyq/copyq_tab_JmNsaXBib2FyZA==.dat",
                                  "XDG_DATA_HOME/klipper/history2.lst",
                                  "XDG_DATA_HOME/gpaste/history.xml",
                                  "XDG_DATA_HOME/clipman.json",
                                  "XDG_CACHE_HOME/xfce4/clipman/textsrc",
                                  "XDG_CACHE_HOME/cliphist/db"};
    for (qsizetype i = 0; i < samples().size(); ++i) {
        const QString path = home.filePath(QLatin1String(places[i]));
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytesOf(samples().at(i)));
        file.flush();
        file.setFileTime(QDateTime::fromSecsSinceEpoch(1'700'000'000 - i * 1000),
                         QFileDevice::FileModificationTime);
    }
    QStringList programs;
    for (const ForeignHistories::Found &found : ForeignHistories::read())
        programs.append(found.program);
    EXPECT_EQ(programs.join(u' ').toStdString(), "CopyQ Klipper GPaste Clipman Clipman cliphist");
    const QList<SharedClip> merged = ForeignHistories::merged(ForeignHistories::read());
    EXPECT_EQ(merged.first().text, samples().first().texts.first());
    EXPECT_EQ(merged.first().createSeconds, 1'700'000'000);
    EXPECT_EQ(std::count_if(merged.begin(), merged.end(),
                            [](const SharedClip &clip) { return clip.text == u"the last one"; }),
              1);
}

/// Its folder as Klipper of Plasma 6.3 wrote it.
class KlipperStoreTest : public testing::Test
{
protected:
    void SetUp() override
    {
        const QDir fixture(QStringLiteral(TEST_DATA_DIR "/foreign/klipper"));
        QDirIterator files(fixture.path(), QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString name =
                QStringLiteral("klipper/") + fixture.relativeFilePath(files.next());
            QDir().mkpath(QFileInfo(home.filePath(name)).path());
            ASSERT_TRUE(QFile::copy(files.filePath(), home.filePath(name)));
            QFile::setPermissions(home.filePath(name), QFile::ReadOwner | QFile::WriteOwner);
        }
    }
    void write(const QByteArray &bytes) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray bytes() const
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    const QTemporaryDir home;
    const QString path = home.filePath(QStringLiteral("klipper/history3.sqlite"));
};

TEST_F(KlipperStoreTest, isReadAsItsProgramLeftItAndWhileThatHasItOpen)
{
    const Contents left = KlipperStore::read(path);
    EXPECT_TRUE(left.isUnderstood);
    EXPECT_EQ(
        textsOf(left).join(u'|').toStdString(),
        "the last one|/etc/hostname\n/usr/share/doc/a|starred one|third|second\nclip ü|first clip");
    EXPECT_EQ(left.clips.at(1).fileNames.size(), 2);
    EXPECT_EQ(left.passedOver, 1) << "a picture";
    for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(variable, QFile::encodeName(home.path()));
    const QList<ForeignHistories::Found> found = ForeignHistories::read();
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().clips.first().createSeconds, left.clips.first().createSeconds);
    EXPECT_GT(left.clips.first().createSeconds, left.clips.last().createSeconds);

    sqlite3 *program = nullptr;
    ASSERT_EQ(sqlite3_open(qPrintable(path), &program), SQLITE_OK);
    // What it has just written lies in its log.
    ASSERT_EQ(sqlite3_exec(program,
                           "PRAGMA journal_mode = WAL; INSERT INTO main VALUES "
                           "('aa', 9e9, 9e9, 'text/plain', 'just now', NULL)",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    const Contents open = KlipperStore::read(path);
    EXPECT_EQ(open.clips.size(), left.clips.size() + 1);
    EXPECT_EQ(open.clips.first().text, QStringLiteral("just now"));
    EXPECT_EQ(open.clips.first().createSeconds, 9e9);
    sqlite3_close(program);
}

TEST_F(KlipperStoreTest, aBrokenOneGivesAtMostWhatItHas)
{
    const QByteArray whole = bytes();
    const qsizetype count = KlipperStore::read(path).clips.size();
    for (const QByteArray &broken :
         {whole.left(whole.size() / 2), QByteArray("none of it"), QByteArray(8192, '\xff')}) {
        write(broken);
        EXPECT_FALSE(KlipperStore::read(path).isUnderstood);
    }
    for (qsizetype at = 0; at < whole.size(); at += 499) {
        QByteArray bent = whole;
        bent[at] = static_cast<char>(bent[at] ^ 0xff);
        write(bent);
        EXPECT_LE(KlipperStore::read(path).clips.size(), 10 * count);
    }
    EXPECT_FALSE(KlipperStore::read(home.filePath(QStringLiteral("none"))).isUnderstood);
}

SharedClip clip()
{
    SharedClip clip;
    clip.text = QStringLiteral("ein \"Text\"\nmit \u0001 Zeichen\u0000 und 😀");
    clip.rtf = QStringLiteral("{\\rtf1 \u00e4}");
    clip.fileNames = {QStringLiteral("/etc/hostname")};
    clip.applicationName = QStringLiteral("Editor");
    clip.createSeconds = 1'763'830'000.123456;
    clip.pasteCount = 3;
    return clip;
}

TEST(ClipFileTest, whatWasWrittenIsReadBackEqual)
{
    SharedClip bare;
    bare.text = QStringLiteral("bare");
    for (const QList<SharedClip> &clips :
         {QList<SharedClip>{}, QList<SharedClip>{clip()}, QList<SharedClip>{clip(), bare}}) {
        QBuffer file;
        file.open(QIODevice::ReadWrite);
        ClipFile::Writer writer(file);
        for (const SharedClip &clip : clips)
            writer.write(clip);
        ASSERT_TRUE(writer.finish());
        // As it is, and after another program has set it anew.
        QByteArray spaced = ' ' + file.data();
        for (const QByteArray &bytes : {file.data(), spaced}) {
            QBuffer again;
            again.setData(bytes);
            again.open(QIODevice::ReadOnly);
            const std::optional<QList<SharedClip>> back = ClipFile::read(again);
            ASSERT_TRUE(back);
            ASSERT_EQ(back->size(), clips.size());
            for (qsizetype i = 0; i < clips.size(); ++i) {
                EXPECT_EQ(back->at(i).text, clips.at(i).text);
                EXPECT_EQ(back->at(i).rtf, clips.at(i).rtf);
                EXPECT_EQ(back->at(i).fileNames, clips.at(i).fileNames);
                EXPECT_EQ(back->at(i).applicationName, clips.at(i).applicationName);
                EXPECT_EQ(back->at(i).createSeconds, clips.at(i).createSeconds);
                EXPECT_EQ(back->at(i).pasteCount, clips.at(i).pasteCount);
            }
        }
    }
}

TEST(ClipFileTest, whatIsNoFileOfClipsIsRefused)
{
    for (const char *bytes :
         {"", "[]", "{}", "{\"clips\":7}", "{\"clips\":[1]}",
          "{\"quillmarsh\":1,\"clips\":[\n{\"text\":\"cut", "{\"quillmarsh\":1,\"clips\":[\n"}) {
        QBuffer file;
        file.setData(bytes);
        file.open(QIODevice::ReadOnly);
        EXPECT_FALSE(ClipFile::read(file)) << bytes;
    }
}

} // namespace
