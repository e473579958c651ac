#include "history/HistoryRig.h"

#include "support/ExpectedWarnings.h"

#include <gtest/gtest.h>

namespace {

class ClipPinsTest : public testing::Test
{
protected:
    std::shared_ptr<ClipItem> clip(const char *text) const
    {
        const auto &all = rig->history.clipItemArr();
        const auto found = std::find_if(all.begin(), all.end(), [text](const auto &item) {
            return item->strValue() == QLatin1String(text);
        });
        return found == all.end() ? nullptr : *found;
    }
    void pin(const char *text, bool isPinned = true)
    {
        rig->history.setPinned({clip(text)}, isPinned);
    }
    QStringList pinned() const
    {
        QStringList texts;
        for (const auto &item : rig->history.clipItemArr()) {
            if (item->isPinned())
                texts.append(*item->strValue());
        }
        return texts;
    }
    void restart() { rig = std::make_unique<HistoryRig>(m_folder.path()); }
    /// As another program does it.
    void execute(const char *statements) const { m_folder.database().exec(statements); }
    int count(const char *query) const { return m_folder.database().execAndGet(query).getInt(); }

    StoreFolder m_folder;
    std::unique_ptr<HistoryRig> rig = std::make_unique<HistoryRig>(m_folder.path());
};

TEST_F(ClipPinsTest, aStoreWithoutPinsIsAsItEverWas)
{
    rig->fill("A B");
    pin("A", false);
    EXPECT_EQ(count("SELECT count(*) FROM sqlite_schema WHERE name LIKE 'ClipPin%'"), 0);
    pin("A");
    EXPECT_EQ(count("SELECT count(*) FROM pragma_table_info('ClipItem')"), 8);
}

TEST_F(ClipPinsTest, trimmingPassesPinnedClipsOverAndClearAllDoesNot)
{
    rig->fill("A B C D");
    pin("A");
    rig->settings.maxItems = 4;
    rig->fill("E");
    EXPECT_EQ(rig->texts(), list("E D C A"));
    restart();
    EXPECT_EQ(pinned(), list("A"));
    rig->history.maxItemsModified(2);
    EXPECT_EQ(rig->texts(), list("E D A"));
    rig->settings.maxItems = 2;
    pin("D");
    pin("E");
    rig->fill("F G");
    EXPECT_EQ(rig->texts(), list("G E D A")) << "a copy is kept where all others are pinned";
    rig->fill("A");
    EXPECT_EQ(rig->texts(), list("A E D")) << "copied again, it moves and keeps its pin";
    EXPECT_EQ(pinned(), list("A E D"));
    pin("D", false);
    rig->fill("H");
    EXPECT_EQ(rig->texts(), list("H A E"));
    rig->history.clearAll();
    EXPECT_EQ(rig->texts(), QStringList());
    EXPECT_EQ(count("SELECT count(*) FROM ClipPin"), 0);
}

TEST_F(ClipPinsTest, onlyPinnedClipsAreFoundWhileThatIsAskedFor)
{
    rig->fill("one two three");
    pin("one");
    pin("three");
    rig->history.setPinnedOnly(true);
    rig->history.filterClipItemArr(QString());
    EXPECT_EQ(rig->texts(), list("three one"));
    rig->history.filterClipItemArr(QStringLiteral("TW"));
    EXPECT_EQ(rig->texts(), QStringList());
    rig->history.filterClipItemArr(QStringLiteral("o"));
    EXPECT_EQ(rig->texts(), list("one"));
    EXPECT_EQ(rig->history.searchClipItem(QStringLiteral("o")).size(), 2u);
    rig->history.setPinnedOnly(false);
    rig->history.filterClipItemArr(QString());
    EXPECT_EQ(rig->texts().size(), 3);
}

TEST_F(ClipPinsTest, anotherProgramsPinsAndDeletionsCount)
{
    rig->fill("A B C");
    pin("C");
    execute("INSERT INTO ClipPin SELECT pk FROM ClipItem WHERE strValue = 'A'");
    rig->history.maxItemsModified(1);
    EXPECT_EQ(rig->texts(), list("C A")) << "pinned since the last load";
    // The key of a deleted clip goes to the next one.
    execute("DELETE FROM ClipItem WHERE strValue = 'C'; INSERT INTO ClipItem (strValue, createDate)"
            " VALUES ('new', 4e9)");
    rig->history.loadForeignChanges();
    EXPECT_EQ(rig->texts(), list("new A"));
    EXPECT_EQ(pinned(), list("A"));
    execute("DELETE FROM ClipItem");
    const auto gone = clip("A");
    rig->history.setPinned({gone}, true);
    EXPECT_EQ(count("SELECT count(*) FROM ClipPin"), 0);
}

struct DamageRow
{
    const char *name;
    const char *statements; ///< By another program, while ours does not run.
    const char *pinned;     ///< After a new start.
    bool takesPins;
};

class DamagedPins : public ClipPinsTest, public testing::WithParamInterface<DamageRow>
{
};

TEST_P(DamagedPins, costNoClip)
{
    rig->fill("A B C");
    pin("A");
    rig.reset();
    execute(GetParam().statements);
    restart();
    EXPECT_EQ(pinned(), list(GetParam().pinned));
    if (!GetParam().takesPins)
        ExpectedWarnings::expect(QStringLiteral("The pin could not be kept: "));
    pin("B");
    EXPECT_EQ(clip("B")->isPinned(), GetParam().takesPins);
    rig->fill("D");
    rig->history.deleteItem(clip("C"));
    EXPECT_EQ(rig->texts(), list("D B A"));
    restart();
    EXPECT_EQ(rig->texts(), list("D B A"));
    EXPECT_EQ(pinned().contains(u"B"), GetParam().takesPins);
}

const DamageRow kDamages[] = {
    {"noTrigger", "DROP TRIGGER ClipPin_deleted", "A", true},
    {"noTable", "DROP TABLE ClipPin", "", true},
    {"anotherTable",
     "DROP TABLE ClipPin; CREATE TABLE ClipPin (song TEXT); INSERT INTO ClipPin VALUES ('x')", "",
     false},
    {"aViewInPlaceOfTheTable", "DROP TABLE ClipPin; CREATE VIEW ClipPin AS SELECT 1 AS clip", "",
     false},
    {"aPinOfNoClip", "INSERT INTO ClipPin VALUES (4)", "A", true},
};

INSTANTIATE_TEST_SUITE_P(Damages, DamagedPins, testing::ValuesIn(kDamages),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(ClipPinsTest, whileTheStoreDoesNotTellItsPinsNothingIsTrimmed)
{
    rig->fill("A B C");
    pin("A");
    rig.reset();
    const int page = count("SELECT rootpage FROM sqlite_schema WHERE name = 'ClipPin'");
    const int size = count("PRAGMA page_size");
    {
        QFile file(m_folder.file());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.seek(qint64(page - 1) * size);
        file.write(QByteArray(size, '\xFF'));
    }
    ExpectedWarnings::expect(QStringLiteral("The history could not be read: "));
    restart();
    rig->settings.maxItems = 2;
    rig->fill("D");
    rig->history.maxItemsModified(1);
    EXPECT_EQ(rig->texts(), list("D C B A"));
}

} // namespace
