#include "history/HistoryRig.h"

#include "support/ExpectedWarnings.h"
#include "support/FullDisk.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTest>
#include <QThread>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace {

class ClipStoreTest : public testing::Test
{
protected:
    void execute(const char *statements) const { m_folder.database().exec(statements); }

    QByteArray bytesOf(const char *suffix = "") const
    {
        QFile file(m_folder.file(suffix));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    bool isTextInFiles(const char *text) const
    {
        return bytesOf().contains(text) || bytesOf("-wal").contains(text);
    }

    std::unique_ptr<QProcess> start(const char *mode) const
    {
        auto probe = std::make_unique<QProcess>();
        probe->start(QStringLiteral(STORE_PROBE), {QLatin1String(mode), m_folder.path()});
        EXPECT_TRUE(probe->waitForStarted());
        return probe;
    }
    /// Opens the store in a process of its own, which must be stopped by that.
    QByteArray lineOfFatalOpening() const
    {
        const auto probe = start("open");
        EXPECT_TRUE(probe->waitForFinished());
        EXPECT_EQ(probe->exitStatus(), QProcess::CrashExit);
        return probe->readAllStandardError();
    }

    StoreFolder m_folder;
};

constexpr const char *kRightTable =
    "CREATE TABLE ClipItem (pk INTEGER PRIMARY KEY, id INTEGER, strValue TEXT, rtfValue TEXT, "
    "applicationName TEXT, filepath TEXT, createDate REAL, pasteCount INTEGER);"
    "INSERT INTO ClipItem (strValue, createDate) VALUES ('old', 1)";

TEST_F(ClipStoreTest, folderAndFilesAreForTheirOwnerOnly)
{
    const mode_t mask = umask(0);
    HistoryRig rig(m_folder.path());
    umask(mask);
    rig.add(QStringLiteral("A"));
    const auto modeOf = [](const QString &path) {
        struct stat status = {};
        EXPECT_EQ(stat(qPrintable(path), &status), 0) << path.toStdString();
        return status.st_mode & 0777;
    };
    EXPECT_EQ(modeOf(m_folder.path()), 0700u);
    for (const char *suffix : {"", "-wal", "-shm"})
        EXPECT_EQ(modeOf(m_folder.file(suffix)), 0600u) << suffix;
}

struct ShapeRow
{
    const char *name;
    const char *statements;
    QStringList texts; ///< What is read, oldest first; empty when the store is refused.
    const char *reason = "";
};

class StoreShape : public ClipStoreTest, public testing::WithParamInterface<ShapeRow>
{
};

TEST_P(StoreShape, isAdaptedWithItsClipsOrRefusedUntouched)
{
    execute(GetParam().statements);
    if (!GetParam().texts.isEmpty()) {
        HistoryRig(m_folder.path()).add(QStringLiteral("new"));
        EXPECT_EQ(HistoryRig(m_folder.path()).texts(),
                  QStringList{QStringLiteral("new")} + GetParam().texts);
        return;
    }
    const QByteArray before = bytesOf();
    const QByteArray line = lineOfFatalOpening();
    EXPECT_TRUE(line.startsWith("Unresolved error Error Domain=YOUR_ERROR_DOMAIN Code=9999 "
                                "\"Failed to initialize the application's saved data\", {"))
        << line.toStdString();
    EXPECT_TRUE(line.contains("There was an error creating or loading the application's saved "
                              "data."));
    EXPECT_TRUE(line.contains(GetParam().reason)) << line.toStdString();
    EXPECT_EQ(bytesOf(), before);
}

const QStringList kOld{QStringLiteral("old")};

const ShapeRow kStoreShape[] = {
    {"ours", kRightTable, kOld},
    {"aMissingColumn",
     "CREATE TABLE ClipItem (pk INTEGER PRIMARY KEY, strValue TEXT, createDate REAL);"
     "INSERT INTO ClipItem (strValue, createDate) VALUES ('old', 1)",
     kOld},
    {"anUnknownColumnBesideOurs",
     "CREATE TABLE ClipItem (pk INTEGER PRIMARY KEY, colour INTEGER DEFAULT 7, strValue "
     "VARCHAR(20), createDate DOUBLE);"
     "INSERT INTO ClipItem (strValue, createDate) VALUES ('old', 1)",
     kOld},
    {"aClipWithoutDateIsTheOldest",
     "CREATE TABLE ClipItem (pk INTEGER PRIMARY KEY, strValue TEXT, createDate REAL);"
     "INSERT INTO ClipItem (strValue, createDate) VALUES ('old', -5), ('none', NULL), "
     "('word', 'today')",
     {QStringLiteral("old"), QStringLiteral("word"), QStringLiteral("none")}},
    {"otherTablesOnly", "CREATE TABLE Song (title TEXT)", {}, "no table ClipItem"},
    {"aColumnOfAnotherKind",
     "CREATE TABLE ClipItem (pk INTEGER PRIMARY KEY, strValue INTEGER)",
     {},
     "another kind"},
    {"noKey", "CREATE TABLE ClipItem (strValue TEXT)", {}, "no key"},
    {"aColumnThatMustNotBeEmpty",
     "CREATE TABLE ClipItem (pk INTEGER PRIMARY KEY, colour INTEGER NOT NULL)",
     {},
     "must not be empty"},
    {"aViewInPlaceOfTheTable",
     "CREATE TABLE a (x); CREATE VIEW ClipItem AS SELECT x FROM a",
     {},
     "no table ClipItem"},
    {"anotherEncoding",
     "PRAGMA encoding = 'UTF-16'; CREATE TABLE ClipItem (pk INTEGER PRIMARY KEY)",
     {},
     "UTF-8"},
    {"aNewerMajorVersion",
     "PRAGMA journal_mode = WAL; PRAGMA user_version = 2;"
     "CREATE TABLE ClipItem (pk INTEGER PRIMARY KEY)",
     {},
     "newer version"}};

INSTANTIATE_TEST_SUITE_P(Shapes, StoreShape, testing::ValuesIn(kStoreShape),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(ClipStoreTest, whatIsNoDatabaseIsRefusedUntouched)
{
    QDir().mkpath(m_folder.path());
    for (const QByteArray &garbage : {QByteArray("x"), QByteArray(5000, 'x'),
                                      QByteArray("SQLite format 3\0", 16) + QByteArray(90, '\7')}) {
        QFile file(m_folder.file());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(garbage);
        file.close();
        EXPECT_TRUE(lineOfFatalOpening().startsWith("Unresolved error "));
        EXPECT_EQ(bytesOf(), garbage);
    }
}

TEST_F(ClipStoreTest, aNewerStoreWhoseWriterCrashedKeepsItsWriteAheadLog)
{
    SQLite::Database writer = m_folder.database();
    writer.exec("PRAGMA journal_mode = WAL; PRAGMA user_version = 2; CREATE TABLE Later (x)");
    const QByteArray log = bytesOf("-wal");
    ASSERT_FALSE(log.isEmpty());
    EXPECT_TRUE(lineOfFatalOpening().contains("newer version"));
    EXPECT_EQ(bytesOf("-wal"), log);
}

TEST_F(ClipStoreTest, aFolderThatCannotBeMadeStopsTheProcess)
{
    QFile file(m_folder.path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(lineOfFatalOpening().contains("could not be made"));
}

TEST_F(ClipStoreTest, aProcessKilledInABurstLeavesEverythingItSaved)
{
    const auto probe = start("burst");
    QByteArray output;
    while (output.count('\n') < 200) {
        ASSERT_TRUE(probe->waitForReadyRead());
        output += probe->readAllStandardOutput();
    }
    probe->kill();
    ASSERT_TRUE(probe->waitForFinished());
    output += probe->readAllStandardOutput();
    const auto saved = output.left(output.lastIndexOf('\n')).split('\n').size();
    EXPECT_EQ(m_folder.database().execAndGet("PRAGMA integrity_check").getString(), "ok");
    const QStringList texts = HistoryRig(m_folder.path()).texts();
    // One more may have been saved that was not told.
    ASSERT_GE(texts.size(), std::min<qsizetype>(saved, 1000));
    ASSERT_LE(texts.size(), saved + 1);
    for (qsizetype i = 0; i < texts.size(); ++i)
        EXPECT_EQ(texts[i], QStringLiteral("clip %1").arg(texts.size() - 1 - i));
}

TEST_F(ClipStoreTest, deletedAndClearedTextsAreGoneFromTheFiles)
{
    HistoryRig rig(m_folder.path());
    rig.add(QStringLiteral("needle-one ") + QString(20000, u'x'));
    rig.add(QStringLiteral("needle-two"));
    rig.add(QStringLiteral("needle-three"));
    EXPECT_TRUE(isTextInFiles("needle-one"));
    EXPECT_TRUE(isTextInFiles("needle-two"));
    rig.history.deleteItem(rig.at(2));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isTextInFiles("needle-one"); }));
    rig.history.maxItemsModified(1);
    EXPECT_FALSE(isTextInFiles("needle-two"));
    const qint64 size = QFileInfo(m_folder.file()).size();
    EXPECT_TRUE(isTextInFiles("needle-three"));
    rig.history.filterClipItemArr(QStringLiteral("nothing like it"));
    execute("INSERT INTO ClipItem (strValue, createDate) VALUES ('needle-three of another', 1)");
    rig.history.clearAll();
    EXPECT_EQ(rig.texts(), QStringList());
    EXPECT_FALSE(isTextInFiles("needle-three"));
    EXPECT_LT(QFileInfo(m_folder.file()).size(), size);
}

TEST_F(ClipStoreTest, theLogIsMadeReadyWhileIdleAndNotWhileTheWindowIsOpen)
{
    HistoryRig rig(m_folder.path());
    rig.history.windowOpens();
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
    EXPECT_EQ(bytesOf("-wal"), QByteArray());
    rig.history.windowCloses();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !bytesOf("-wal").isEmpty(); }));
}

TEST_F(ClipStoreTest, aLogThatHasGrownIsCarriedOverIntoTheStore)
{
    HistoryRig rig(m_folder.path());
    rig.add(QStringLiteral("needle ") + QString(8'000'000, u'x'));
    rig.add(QStringLiteral("written meanwhile"));
    QDeadlineTimer limit(10'000);
    while (!bytesOf().contains("needle") && !limit.hasExpired())
        QThread::msleep(5);
    EXPECT_TRUE(bytesOf().contains("needle"));
    EXPECT_EQ(HistoryRig(m_folder.path()).texts(), rig.texts());
}

TEST_F(ClipStoreTest, whatCouldNotBeSavedIsReadSearchedAndSavedByTheNextSave)
{
    HistoryRig rig(m_folder.path());
    rig.add(QStringLiteral("A"));
    rig.add(QStringLiteral("B"));
    const auto unsaved = QStringLiteral("unsaved ") + QString(100'000, u'x');
    {
        const FullDisk disk(16 * 1024);
        // An addition saves twice; a deletion and a paste once.
        for (int i = 0; i < 4; ++i)
            ExpectedWarnings::expect(QStringLiteral("Unresolved error Error Domain=SQLite Code="));
        rig.add(unsaved, QStringLiteral("/tmp/x"));
        rig.history.deleteItem(rig.at(2));
        rig.history.countPaste(rig.at(0));
    }
    EXPECT_EQ(rig.texts(), (QStringList{unsaved, QStringLiteral("B")}));
    EXPECT_EQ(rig.at(0)->pasteCount(), 0);
    EXPECT_EQ(rig.at(0)->shortText(), QStringLiteral("File: /tmp/x"));
    EXPECT_EQ(rig.history.searchClipItem(QStringLiteral("file: UNSAVED*xx")).size(), 1u);
    EXPECT_EQ(m_folder.database().execAndGet("SELECT count(*) FROM ClipItem").getInt(), 2);
    rig.add(QStringLiteral("B"));
    const HistoryRig again(m_folder.path());
    EXPECT_EQ(again.texts(), (QStringList{QStringLiteral("B"), unsaved}));
    EXPECT_EQ(again.at(1)->pasteCount(), 0);
}

TEST_F(ClipStoreTest, aStoreLockedByAnotherProgramDelaysASaveAndLosesNothing)
{
    HistoryRig rig(m_folder.path());
    rig.add(QStringLiteral("needle"));
    {
        SQLite::Database other = m_folder.database();
        other.exec("BEGIN IMMEDIATE");
        // A deletion saves once, an addition twice.
        for (int i = 0; i < 3; ++i)
            ExpectedWarnings::expect(QStringLiteral("database is locked"));
        rig.history.deleteItem(rig.at(0));
        rig.add(QStringLiteral("A"));
        EXPECT_EQ(HistoryRig(m_folder.path()).texts(), QStringList{QStringLiteral("needle")});
    }
    // Nobody does anything any more, and may never again.
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isTextInFiles("needle"); }, 20'000));
    EXPECT_EQ(HistoryRig(m_folder.path()).texts(), QStringList{QStringLiteral("A")});
}

TEST_F(ClipStoreTest, aStoreThatIsTakenAwayTakesItsClipsAlongAndNoneThatComeLater)
{
    const QString away = m_folder.path() + QStringLiteral(".away");
    const auto moveAway = [&] { EXPECT_TRUE(QDir().rename(m_folder.path(), away)); };
    const struct
    {
        const char *name;
        std::function<void()> fault;
        const char *texts;
    } kRows[] = {
        {"the folder", [&] { EXPECT_TRUE(QDir(m_folder.path()).removeRecursively()); }, "new"},
        {"the file, and not its log", [&] { EXPECT_TRUE(QFile::remove(m_folder.file())); }, "new"},
        {"moved", moveAway, "new"},
        {"another in its place",
         [&] {
             moveAway();
             execute(kRightTable);
         },
         "new|old"},
    };
    for (const auto &row : kRows) {
        SCOPED_TRACE(row.name);
        QDir(m_folder.path()).removeRecursively();
        QDir(away).removeRecursively();
        HistoryRig rig(m_folder.path());
        rig.add(QStringLiteral("A"));
        rig.add(QStringLiteral("B"));
        const auto gone = rig.at(0);
        row.fault();
        ExpectedWarnings::expect(QStringLiteral("was taken away"));
        rig.add(QStringLiteral("new"));
        EXPECT_EQ(rig.texts().join(u'|').toStdString(), row.texts);
        EXPECT_EQ(gone->strValue(), std::nullopt);
        EXPECT_EQ(HistoryRig(m_folder.path()).texts(), rig.texts());
    }
}

TEST_F(ClipStoreTest, whereNoStoreCanBeWhatIsCopiedWaitsForOne)
{
    HistoryRig rig(m_folder.path());
    rig.add(QStringLiteral("A"));
    EXPECT_TRUE(QDir(m_folder.path()).removeRecursively());
    QFile obstacle(m_folder.path());
    EXPECT_TRUE(obstacle.open(QIODevice::WriteOnly));
    for (int i = 0; i < 2; ++i)
        ExpectedWarnings::expect(QStringLiteral("its file was taken away"));
    rig.add(QStringLiteral("new"));
    EXPECT_EQ(rig.texts().value(0), QStringLiteral("new"));
    EXPECT_TRUE(obstacle.remove());
    ExpectedWarnings::expect(QStringLiteral("another one is in its place"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return rig.texts().size() == 1; }, 20'000));
    EXPECT_EQ(HistoryRig(m_folder.path()).texts(), QStringList{QStringLiteral("new")});
}

TEST_F(ClipStoreTest, whatAnotherProgramAddsChangesOrRemovesIsThereAtTheNextLoad)
{
    HistoryRig rig(m_folder.path());
    for (const char *text : {"A", "B", "C"})
        rig.add(QString::fromLatin1(text));
    const auto kept = rig.at(1);
    const auto removed = rig.at(2);
    EXPECT_EQ(kept->shortText(), QStringLiteral("B"));
    execute("DELETE FROM ClipItem WHERE strValue = 'A';"
            "UPDATE ClipItem SET strValue = 'other' WHERE strValue = 'B';"
            "INSERT INTO ClipItem (strValue, createDate) VALUES ('later', 4e9), ('old', 1);"
            "INSERT INTO ClipItem (createDate) VALUES (2)");
    rig.history.loadClipItems();
    EXPECT_EQ(rig.texts().join(u'|'), QStringLiteral("later|C|other|<none>|old"));
    EXPECT_EQ(rig.at(2), kept);
    EXPECT_EQ(kept->shortText(), QStringLiteral("other"));
    EXPECT_EQ(removed->strValue(), std::nullopt);
    EXPECT_EQ(rig.history.searchClipItem(QStringLiteral("o*h")).size(), 1u);
    // What has no text is found by no search, not by an empty one either.
    EXPECT_EQ(rig.history.searchClipItem(QString()).size(), 4u);

    // A repeat of a clip that another program has removed is none.
    execute("DELETE FROM ClipItem");
    rig.add(QStringLiteral("later"));
    EXPECT_EQ(rig.texts(), QStringList{QStringLiteral("later")});
    EXPECT_EQ(HistoryRig(m_folder.path()).texts(), rig.texts());
}

TEST_F(ClipStoreTest, anEmptySearchReadsNoText)
{
    HistoryRig(m_folder.path()).add(QString(2'000'000, u'x'));
    HistoryRig rig(m_folder.path());
    rig.history.searchClipItem(QStringLiteral("y"));
    // What cannot be read any more would not be found by a search that reads.
    execute("UPDATE ClipItem SET strValue = NULL");
    EXPECT_EQ(rig.history.searchClipItem(QStringLiteral("x")).size(), 0u);
    rig.history.filterClipItemArr(QString());
    EXPECT_EQ(rig.history.clipItemArr().size(), 1u);
    EXPECT_EQ(rig.history.searchClipItem(QString()).size(), 1u);
}

TEST_F(ClipStoreTest, whatIsNotSavedYetOutlivesTheChangesOfOthers)
{
    HistoryRig rig(m_folder.path());
    rig.add(QStringLiteral("A"));
    {
        SQLite::Database other = m_folder.database();
        other.exec("BEGIN IMMEDIATE; INSERT INTO ClipItem (strValue, createDate) VALUES ('X', 4)");
        for (int i = 0; i < 2; ++i)
            ExpectedWarnings::expect(QStringLiteral("database is locked"));
        rig.add(QStringLiteral("unsaved"));
        other.exec("COMMIT");
    }
    rig.history.loadClipItems();
    const QStringList all{QStringLiteral("unsaved"), QStringLiteral("A"), QStringLiteral("X")};
    EXPECT_EQ(rig.texts(), all);
    EXPECT_EQ(rig.history.searchClipItem(QStringLiteral("UNS")).size(), 1u);
    rig.history.saveContext();
    EXPECT_EQ(HistoryRig(m_folder.path()).texts(), all);
}

TEST_F(ClipStoreTest, aStoreThatCannotBeWrittenIsShownAndTakesNothing)
{
    constexpr uid_t kNobody = 65534;
    const auto give = [this](uid_t folder, mode_t folderMode, uid_t file, mode_t fileMode) {
        ASSERT_EQ(chmod(qPrintable(m_folder.path()), folderMode), 0);
        ASSERT_EQ(chown(qPrintable(m_folder.path()), folder, folder), 0);
        ASSERT_EQ(chmod(qPrintable(m_folder.file()), fileMode), 0);
        ASSERT_EQ(chown(qPrintable(m_folder.file()), file, file), 0);
    };
    struct Row
    {
        const char *name;
        mode_t folderMode;
        bool isFolderForeign;
        mode_t fileMode;
        bool isFileForeign;
        std::optional<QByteArray> log; ///< A write-ahead log of root's; filled when it is empty.
        mode_t logMode;
        bool isFatal;
    };
    const Row kRows[] = {
        {"another's file", 0700, false, 0444, true, {}, 0, false},
        {"another's folder", 0755, true, 0600, false, {}, 0, false},
        {"another's file in another's folder", 0755, true, 0444, true, {}, 0, false},
        {"another's log, which can be read", 0700, false, 0600, false, "filled", 0644, false},
        {"another's log, which cannot", 0700, false, 0600, false, "filled", 0600, true},
        {"another's log, with nothing in it", 0700, false, 0600, false, "", 0600, false},
    };
    execute(kRightTable);
    HistoryRig(m_folder.path()).add(QStringLiteral("kept"));
    chmod(qPrintable(QFileInfo(m_folder.path()).path()), 0711);
    for (const Row &row : kRows) {
        // For root every file can be written, so the probe becomes nobody then.
        if (geteuid() != 0)
            break;
        SCOPED_TRACE(row.name);
        if (row.log && !row.log->isEmpty()) {
            SQLite::Database writer = m_folder.database();
            sqlite3_db_config(writer.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
            writer.exec("PRAGMA user_version = 1");
        } else if (row.log) {
            QFile(m_folder.file("-wal")).open(QIODevice::WriteOnly);
        }
        for (const char *suffix : {"-wal", "-shm"})
            chmod(qPrintable(m_folder.file(suffix)), row.logMode);
        give(row.isFolderForeign ? 0 : kNobody, row.folderMode, row.isFileForeign ? 0 : kNobody,
             row.fileMode);
        const QByteArray before = bytesOf();
        const auto probe = start("add");
        ASSERT_TRUE(probe->waitForFinished());
        const QByteArray log = probe->readAllStandardError();
        EXPECT_EQ(probe->exitStatus(), row.isFatal ? QProcess::CrashExit : QProcess::NormalExit);
        EXPECT_EQ(probe->readAllStandardOutput(), row.isFatal ? "" : "kept\nold\n");
        EXPECT_TRUE(log.contains(row.isFatal ? "Unresolved error " : "cannot be written"))
            << log.toStdString();
        EXPECT_EQ(bytesOf(), before);
        give(0, 0700, 0, 0600);
        for (const char *suffix : {"-wal", "-shm"})
            QFile::remove(m_folder.file(suffix));
    }
    // A file of one's own is made writable.
    if (geteuid() == 0)
        give(kNobody, 0700, kNobody, 0444);
    else
        chmod(qPrintable(m_folder.file()), 0444);
    const auto probe = start("add");
    ASSERT_TRUE(probe->waitForFinished());
    EXPECT_EQ(probe->readAllStandardOutput(), "added\nkept\nold\n");
    EXPECT_EQ(HistoryRig(m_folder.path()).texts().value(0), QStringLiteral("added"));
}

} // namespace
