#include "history/HistoryRig.h"

#include "support/ExpectedWarnings.h"

#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class DeletedClipsTest : public testing::Test
{
protected:
    void remove(const char *texts)
    {
        ClipHistory::Items items = rig.history.clipItemArr();
        std::erase_if(items, [wanted = list(texts)](const auto &item) {
            return !wanted.contains(*item->strValue());
        });
        rig.history.deleteItems(items);
    }
    void limit(qint64 maxItems)
    {
        rig.settings.maxItems = maxItems;
        rig.history.maxItemsModified(maxItems);
    }
    /// Every value of every record, and the pins.
    QStringList stored() const
    {
        SQLite::Database store = m_folder.database();
        QStringList records;
        const bool hasPins =
            SQLite::Statement(store, "SELECT 1 FROM sqlite_schema WHERE name = 'ClipPin'")
                .executeStep();
        for (const char *table : {"ClipItem", "ClipPin"}) {
            if (table == std::string("ClipPin") && !hasPins)
                continue;
            SQLite::Statement query(store, std::string("SELECT * FROM ") + table + " ORDER BY 1");
            while (query.executeStep()) {
                QStringList values;
                for (int i = 0; i < query.getColumnCount(); ++i)
                    values.append(query.getColumn(i).isNull()
                                      ? QStringLiteral("NULL")
                                      : QString::fromStdString(query.getColumn(i).getString()));
                records.append(values.join(u'|'));
            }
        }
        return records;
    }
    bool isInFiles(const char *text) const
    {
        const auto contains = [text](const QString &path) {
            QFile file(path);
            return file.open(QIODevice::ReadOnly) && file.readAll().contains(text);
        };
        return contains(m_folder.file()) || contains(m_folder.file("-wal")) ||
               contains(m_folder.file("-shm"));
    }

    StoreFolder m_folder;
    HistoryRig rig{m_folder.path()};
};

TEST_F(DeletedClipsTest, whatIsBroughtBackIsAsItWas)
{
    rig.history.addToClipList({QStringLiteral("file.txt"), QStringLiteral("{\\rtf1 needle}"),
                               QStringLiteral("Editor"), QStringLiteral("/tmp/file.txt")});
    rig.fill("A B");
    // As older stores and other programs have them: without a date or a text, with an id, of one
    // moment.
    m_folder.database().exec("INSERT INTO ClipItem (id, strValue, createDate) VALUES (7, 'X', 5), "
                             "(NULL, 'Y', 5), (NULL, 'none', NULL), (NULL, NULL, 6)");
    rig.history.loadForeignChanges();
    rig.history.countPaste(rig.at(2));
    rig.history.countPaste(rig.at(2));
    rig.history.setPinned({rig.at(2), rig.at(0)}, true);
    const QStringList before = stored();
    const QStringList order = rig.texts();
    const QStringList deletions[] = {list("B"), list("A"), list("file.txt Y"), list("X"),
                                     list("none <none>")};
    for (const QStringList &texts : deletions) {
        ClipHistory::Items items = rig.history.clipItemArr();
        std::erase_if(items, [&](const auto &item) {
            return !texts.contains(item->strValue().value_or(QStringLiteral("<none>")));
        });
        rig.history.deleteItems(items);
    }
    EXPECT_EQ(rig.texts(), QStringList());
    EXPECT_EQ(rig.history.deletedClips().count(), 5);
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(rig.history.bringBack().newest);
    EXPECT_EQ(rig.texts(), order);
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(HistoryRig(m_folder.path()).texts(), order);

    rig.history.filterClipItemArr(QStringLiteral("file"));
    rig.history.clearAll();
    EXPECT_EQ(stored(), QStringList());
    const std::shared_ptr<ClipItem> newest = rig.history.bringBack().newest;
    EXPECT_EQ(newest, rig.at(0));
    EXPECT_EQ(stored(), before);
    EXPECT_EQ(rig.history.searchClipItem(QStringLiteral("fil?")).size(), 1u);
    EXPECT_FALSE(rig.history.bringBack().newest) << "nothing is held any more";
}

TEST_F(DeletedClipsTest, whatIsHeldIsInNoFile)
{
    rig.fill("needle-one needle-two needle-three");
    rig.history.setPinned({rig.at(0)}, true);
    remove("needle-one");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isInFiles("needle-one"); }));
    rig.history.clearAll();
    limit(1);
    EXPECT_FALSE(isInFiles("needle"));
    // The pinned one has a place; the other is not even written for a moment.
    rig.settings.maxItems = 0;
    EXPECT_EQ(rig.history.bringBack().unfit, 1);
    EXPECT_FALSE(isInFiles("needle-two"));
    EXPECT_TRUE(isInFiles("needle-three"));
}

struct FitRow
{
    const char *name;
    const char *deleted; ///< Of "1 2 3 4 5", of which 5 is the newest; all for Clear All.
    const char *pinned;
    qint64 maxItems; ///< Afterwards; 5 before.
    const char *copied;
    const char *texts; ///< After the deletion was taken back.
    int unfit;
};

class Fit : public DeletedClipsTest, public testing::WithParamInterface<FitRow>
{
};

TEST_P(Fit, isWhatWouldBeThereWithoutTheDeletion)
{
    const FitRow &row = GetParam();
    rig.settings.maxItems = 5;
    rig.fill("1 2 3 4 5");
    const QStringList pinned = list(row.pinned);
    for (const auto &item : rig.history.clipItemArr())
        if (pinned.contains(*item->strValue()))
            rig.history.setPinned({item}, true);
    if (row.deleted == std::string("all"))
        rig.history.clearAll();
    else
        remove(row.deleted);
    limit(row.maxItems);
    rig.fill(row.copied);
    EXPECT_EQ(rig.history.bringBack().unfit, row.unfit);
    EXPECT_EQ(rig.texts(), list(row.texts));
    EXPECT_EQ(HistoryRig(m_folder.path()).texts(), list(row.texts));
    // What had no place has one as soon as there is more.
    EXPECT_EQ(rig.history.deletedClips().count(), row.unfit > 0 ? 1 : 0);
    limit(100);
    rig.history.bringBack();
    EXPECT_EQ(rig.texts().size(), list(row.texts).size() + row.unfit);
}

const FitRow kFits[] = {
    {"everything", "3 5", "", 5, "", "5 4 3 2 1", 0},
    {"everythingAfterClearAll", "all", "", 5, "", "5 4 3 2 1", 0},
    {"theLimitWasLowered", "2 4", "", 3, "", "5 4 3", 1},
    {"theLimitWasLoweredAfterClearAll", "all", "", 2, "", "5 4", 3},
    {"pinnedOnesHaveAPlace", "all", "1 2", 3, "", "5 2 1", 2},
    {"aCopyPushedTheOldestOut", "5", "", 5, "6", "6 5 4 3 2", 0},
    {"copiesTookThePlaces", "all", "", 5, "6 7", "7 6 5 4 3", 2},
    {"copiedAgainItIsTheSameClip", "3", "3", 5, "3", "3 5 4 2 1", 0},
    {"theLimitWasRaised", "1 2", "", 10, "6", "6 5 4 3 2 1", 0},
};

INSTANTIATE_TEST_SUITE_P(Rows, Fit, testing::ValuesIn(kFits),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(DeletedClipsTest, aHistoryLongerThanItsLimitLosesNothingByADeletionTakenBack)
{
    rig.fill("1 2 3 4 5");
    rig.settings.maxItems = 3;
    remove("4");
    EXPECT_EQ(rig.history.bringBack().unfit, 0);
    EXPECT_EQ(rig.texts(), list("5 4 3 2 1"));
}

TEST_F(DeletedClipsTest, aKeyThatAnotherClipHasByNowIsReplaced)
{
    rig.fill("A B");
    remove("B");
    m_folder.database().exec("INSERT INTO ClipItem (strValue, createDate) VALUES ('foreign', 1)");
    EXPECT_EQ(rig.history.bringBack().newest->strValue(), QStringLiteral("B"));
    EXPECT_EQ(rig.texts(), list("B A foreign"));
    EXPECT_EQ(HistoryRig(m_folder.path()).texts(), list("B A foreign"));
}

TEST_F(DeletedClipsTest, whatTheDiskRefusesIsBroughtBackAllTheSame)
{
    rig.fill("A B");
    SQLite::Database other = m_folder.database();
    remove("A");
    other.exec("BEGIN IMMEDIATE");
    ExpectedWarnings::expect(QStringLiteral("database is locked"));
    ExpectedWarnings::expect(QStringLiteral("database is locked"));
    remove("B");
    rig.history.bringBack();
    EXPECT_EQ(rig.texts(), list("B"));
    other.exec("ROLLBACK");
    rig.history.bringBack();
    EXPECT_EQ(rig.texts(), list("B A"));
    EXPECT_EQ(HistoryRig(m_folder.path()).texts(), list("B A"));
}

TEST_F(DeletedClipsTest, whatIsTooMuchToBeHeldIsLostAndSaidToBe)
{
    using Latest = DeletedClips::Latest;
    DeletedClips &held = rig.history.deletedClips();
    const QString large(1000, u'L');
    const QString other(1000, u'O');
    rig.fill(qPrintable(QStringLiteral("A B ") + large + u' ' + other));
    held.setMostBytes(1500);
    EXPECT_EQ(held.latest(), Latest::Held) << "no deletion yet";
    remove("B");
    EXPECT_EQ(held.latest(), Latest::Held);
    rig.history.deleteItems({rig.at(0), rig.at(1)});
    EXPECT_EQ(held.latest(), Latest::Lost);
    EXPECT_EQ(held.count(), 0) << "the one before would be taken for it";
    remove("A");
    EXPECT_EQ(held.latest(), Latest::Held);
    EXPECT_EQ(held.count(), 1);
    DeletedClips::Step part = held.takeLatest();
    part.isWhole = false;
    held.push(part);
    EXPECT_EQ(held.latest(), Latest::InPart);
    part.clips.clear();
    held.push(part);
    EXPECT_EQ(held.latest(), Latest::Lost);
    held.clear();
    EXPECT_EQ(held.latest(), Latest::Held);
}

TEST_F(DeletedClipsTest, nothingIsHeldOnceTheWindowHasBeenClosedForAWhile)
{
    const auto step = [] {
        ClipChange clip;
        clip.clip = Clip(QStringLiteral("A"), {}, {}, {});
        return DeletedClips::Step{{clip}};
    };
    DeletedClips clips(std::chrono::milliseconds(1));
    DeletedClips later(std::chrono::milliseconds(2));
    later.push(step());
    clips.windowOpens();
    clips.push(step());
    clips.windowCloses();
    clips.windowOpens();
    EXPECT_TRUE(QTest::qWaitFor([&] { return later.count() == 0; }));
    EXPECT_EQ(clips.count(), 1) << "opened again in time";
    clips.windowCloses();
    EXPECT_TRUE(QTest::qWaitFor([&] { return clips.count() == 0; }));
    clips.push(step());
    EXPECT_EQ(clips.count(), 1) << "Clear All while the window is closed";
    EXPECT_TRUE(QTest::qWaitFor([&] { return clips.count() == 0; }));
    clips.push({});
    EXPECT_EQ(clips.count(), 0);
}

} // namespace
