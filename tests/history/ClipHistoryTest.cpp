#include "history/FoldedText.h"
#include "history/HistoryRig.h"
#include "history/SearchPattern.h"
#include "platform/richtext/RichText.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class ClipHistoryTest : public testing::Test
{
protected:
    StoreFolder m_folder;
    HistoryRig m_rig{m_folder.path()};
};

TEST_F(ClipHistoryTest, aFreshHistoryIsEmptyAndWhatIsAddedIsThereAfterARestart)
{
    EXPECT_EQ(m_rig.texts(), QStringList());
    m_rig.history.addToClipList({QStringLiteral("größer\0🎉"), QStringLiteral("{\\rtf1}"),
                                 QStringLiteral("Editor"), QStringLiteral("/tmp/a b")});
    const HistoryRig again(m_folder.path());
    ASSERT_EQ(again.history.clipItemArr().size(), 1u);
    const ClipItem &item = *again.at(0);
    EXPECT_EQ(item.strValue(), QStringLiteral("größer\0🎉"));
    EXPECT_EQ(item.rtfValue(), QStringLiteral("{\\rtf1}"));
    EXPECT_EQ(item.applicationName(), QStringLiteral("Editor"));
    EXPECT_EQ(item.filepath(), QStringLiteral("/tmp/a b"));
    EXPECT_EQ(item.createDate(), m_rig.platform.clock.now());
    EXPECT_EQ(item.pasteCount(), std::nullopt);
    EXPECT_EQ(item.id(), std::nullopt);
}

TEST_F(ClipHistoryTest, aRepeatOfTheLatestCopyChangesNothing)
{
    m_rig.add(QStringLiteral("A"));
    const auto item = m_rig.at(0);
    const auto date = item->createDate();
    QSignalSpy changes(&m_rig.history, &ClipHistory::clipItemArrChanged);
    m_rig.add(QStringLiteral("A"), QStringLiteral("/tmp/A"));
    EXPECT_EQ(item->createDate(), date);
    EXPECT_EQ(item->filepath(), std::nullopt);
    EXPECT_EQ(changes.size(), 0);
}

TEST_F(ClipHistoryTest, aTextCopiedAgainMovesToTheTopAsTheSameClip)
{
    m_rig.history.addToClipList({QStringLiteral("A"), QStringLiteral("rtf"), QStringLiteral("One"),
                                 QStringLiteral("/tmp/A")});
    const auto first = m_rig.at(0);
    m_rig.history.countPaste(first);
    m_rig.add(QStringLiteral("B"));
    m_rig.add(QStringLiteral("A"));
    EXPECT_EQ(m_rig.texts(), list("A B"));
    EXPECT_EQ(m_rig.at(0), first);
    EXPECT_EQ(m_rig.history.lastClipItem(), first);
    EXPECT_EQ(first->rtfValue(), std::nullopt);
    EXPECT_EQ(first->filepath(), std::nullopt);
    EXPECT_EQ(first->shortText(), QStringLiteral("A"));
    EXPECT_EQ(first->pasteCount(), 0);
    EXPECT_EQ(HistoryRig(m_folder.path()).texts(), list("A B"));
}

TEST_F(ClipHistoryTest, htmlComesIntoTheRtfOfItsOwnCopyAMomentLater)
{
    const auto copied = [](const char *html, std::optional<QString> rtf = {}) {
        Clip clip({QStringLiteral("text"), std::move(rtf)}, QStringLiteral("Editor"));
        if (html)
            clip.html = QString::fromLatin1(html);
        return clip;
    };
    const auto rtfBytes = [this] { return m_rig.at(0)->rtfValue().value_or(QString()).toLatin1(); };
    const auto carried = [&](const QByteArray &html) {
        return QTest::qWaitFor([&] { return RichText::carriedHtml(rtfBytes()) == html; });
    };
    m_rig.history.addToClipList(copied("<b>t\xFFxt</b>"));
    EXPECT_TRUE(carried("<b>t\xFFxt</b>"));
    m_rig.add(QStringLiteral("between"));
    const QString rtf = QStringLiteral("{\\rtf1 text}");
    m_rig.history.addToClipList(copied("<i>text</i>", rtf));
    EXPECT_TRUE(carried("<i>text</i>"));
    EXPECT_TRUE(rtfBytes().startsWith("{\\rtf1 text"));
    // What is made too late for its copy is nobody's.
    m_rig.add(QStringLiteral("between again"));
    m_rig.history.addToClipList(copied("<s>text</s>"));
    m_rig.add(QStringLiteral("between once more"));
    m_rig.history.addToClipList(copied(nullptr));
    Clip last({QStringLiteral("last")}, QStringLiteral("Editor"));
    last.html = QStringLiteral("<u>last</u>");
    m_rig.history.addToClipList(last);
    EXPECT_TRUE(carried("<u>last</u>"));
    EXPECT_EQ(m_rig.at(1)->rtfValue(), std::nullopt);
}

struct ClockRow
{
    const char *name;
    const char *storedDates; ///< Of the clips that are there at first, the newest last.
    qint64 minutesSet;       ///< How far the clock is set after the first copy.
};

using SetClock = testing::TestWithParam<ClockRow>;

TEST_P(SetClock, leavesTheNewestCopyAtTheTopAndTheOldestToGo)
{
    const StoreFolder folder;
    HistoryRig(folder.path()).history.loadClipItems();
    {
        SQLite::Database database = folder.database();
        const QStringList dates = list(GetParam().storedDates);
        for (int i = 0; i < dates.size(); ++i)
            database.exec(QStringLiteral("INSERT INTO ClipItem (strValue, createDate) VALUES "
                                         "('old%1', %2)")
                              .arg(QString::number(i), dates[i])
                              .toStdString());
    }
    const auto fill = [](HistoryRig &rig, const char *texts) {
        rig.settings.maxItems = 3;
        rig.fill(texts);
    };
    HistoryRig rig(folder.path());
    fill(rig, "A");
    rig.platform.clock.advance(std::chrono::minutes(GetParam().minutesSet));
    fill(rig, "B C");
    EXPECT_EQ(rig.texts(), list("C B A"));
    fill(rig, "D B");
    EXPECT_EQ(rig.texts(), list("B D"));
    EXPECT_EQ(rig.history.lastClipItem(), rig.at(0));

    HistoryRig again(folder.path());
    EXPECT_EQ(again.texts(), list("B D"));
    again.platform.clock.advance(std::chrono::minutes(2 * GetParam().minutesSet));
    fill(again, "E F");
    EXPECT_EQ(again.texts(), list("F E B"));
}

constexpr qint64 kYear = 365 * 24 * 60;

INSTANTIATE_TEST_SUITE_P(Clocks, SetClock,
                         testing::Values(ClockRow{"aYearBack", "", -kYear},
                                         ClockRow{"clipsOf2099", "4070908800 4070908800.5", -60},
                                         ClockRow{"clipsOf1970", "0 1", -60 * kYear},
                                         ClockRow{"noDate", "NULL 9e999", -60},
                                         ClockRow{"noDateEither", "-9e999 1e12", -60}),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_F(ClipHistoryTest, aCopyIsKeptEvenWhereThereIsRoomForNone)
{
    m_rig.settings.maxItems = 0;
    m_rig.add(QStringLiteral("A"));
    EXPECT_EQ(m_rig.texts(), list("A"));
    m_rig.add(QStringLiteral("B"));
    EXPECT_EQ(m_rig.texts(), list("B"));
}

TEST_F(ClipHistoryTest, anEmptyTextIsNotRecorded)
{
    m_rig.history.addToClipList({QString(), {}, {}, {}});
    m_rig.history.addToClipList({std::nullopt, {}, {}, QStringLiteral("/tmp/A")});
    EXPECT_EQ(m_rig.texts(), QStringList());
}

TEST_F(ClipHistoryTest, halfASurrogatePairIsOneClipHoweverOftenItIsCopied)
{
    const QString broken = QStringLiteral("a") + QChar(0xD83C);
    m_rig.add(broken);
    m_rig.add(QStringLiteral("B"));
    m_rig.add(broken);
    m_rig.add(broken);
    EXPECT_EQ(m_rig.texts().size(), 2);
}

TEST_F(ClipHistoryTest, aSearchShowsWhatItFindsUntilTheNextLoad)
{
    m_rig.add(QStringLiteral("report.pdf"), QStringLiteral("/home/x/report.pdf"));
    m_rig.add(QStringLiteral(" report"), QStringLiteral("/home/y"));
    m_rig.add(QStringLiteral("a report"));
    m_rig.add(QStringLiteral("notes"), QStringLiteral("/home/report/notes"));
    const auto found = [&](const char *term) {
        return HistoryRig::textsOf(m_rig.history.searchClipItem(QString::fromUtf8(term)))
            .join(u'|');
    };
    EXPECT_EQ(found("REPORT"), QStringLiteral("a report| report|report.pdf"));
    EXPECT_EQ(found("file:"), QStringLiteral("notes| report|report.pdf"));
    EXPECT_EQ(found("FiLE:report"), QStringLiteral(" report|report.pdf"));
    EXPECT_EQ(found("file: report"), QStringLiteral(" report|report.pdf"));
    EXPECT_EQ(found("file:  report"), QStringLiteral(" report"));
    EXPECT_EQ(found(" file:"), QString());
    EXPECT_EQ(m_rig.texts().size(), 4);
    m_rig.history.filterClipItemArr(QStringLiteral("pdf"));
    m_rig.history.filterClipItemArr(std::nullopt);
    EXPECT_EQ(m_rig.texts(), list("report.pdf"));
    m_rig.history.filterClipItemArr(QString());
    EXPECT_EQ(m_rig.texts().size(), 4);
}

TEST_F(ClipHistoryTest, aTextTooLongToKeepInMemoryIsFoundAndMeasuredLikeAnyOther)
{
    const QString tail = QStringLiteral("THE END");
    const QString huge = QString(5'000'000, u'é') + tail;
    m_rig.add(huge);
    m_rig.add(QStringLiteral("small"));
    m_rig.history.filterClipItemArr(QStringLiteral("é*the end"));
    ASSERT_EQ(m_rig.history.clipItemArr().size(), 1u);
    EXPECT_EQ(m_rig.at(0)->strValue(), huge);
    EXPECT_EQ(*m_rig.at(0)->shortText(), QString(m_rig.at(0)->shortText()->size(), u'é'));
    m_rig.add(huge);
    EXPECT_EQ(m_rig.history.clipItemArr().size(), 2u);
    HistoryRig again(m_folder.path());
    EXPECT_EQ(again.history.searchClipItem(tail).size(), 1u);
    again.add(huge.chopped(1));
    EXPECT_EQ(again.history.clipItemArr().size(), 3u);
}

TEST_F(ClipHistoryTest, whateverWasTypedBeforeASearchFindsTheSame)
{
    // So much that of the long ones some are in memory, some summarised, and the last in the store
    // alone.
    QStringList texts;
    for (int i = 0; i < 16; ++i)
        texts.append(QString(900'000, QChar(u'k' + i)) + QStringLiteral(" Straße %1").arg(i % 3));
    texts.append(QString(1'200'000, u'y') + QStringLiteral(" strand"));
    texts += list("stray Strandgut") + QStringList(QStringLiteral("a str"));
    for (const QString &text : texts)
        m_rig.add(text);
    const char *const kTyped[] = {"s",  "st", "str",   "stra",   "straß",    "stra", "stran", "zz",
                                  "z",  "",   "stra?", "stra?e", "stra?e*2", "str",  "kk",    "k s",
                                  "st", "S",  "yy s",  "file:s", "s*",       "s*g",  "Ä"};
    for (const char *typed : kTyped) {
        const QString term = QString::fromUtf8(typed);
        QStringList expected;
        for (const QString &text : texts) {
            const SearchPattern pattern(term);
            if (pattern.matches(FoldedText::fold(text.toUtf8()).toStdString()))
                expected.prepend(text);
        }
        if (term.startsWith(QStringLiteral("file:")))
            expected.clear();
        m_rig.history.filterClipItemArr(term);
        EXPECT_TRUE(m_rig.texts() == expected)
            << typed << ": " << m_rig.texts().size() << " instead of " << expected.size();
    }
}

TEST_F(ClipHistoryTest, aSearchThatTakesItsTimeShowsTheOldListUntilItIsDone)
{
    const QString huge = QString(6'000'000, u'x') + QStringLiteral(" needle");
    m_rig.add(huge);
    m_rig.add(QStringLiteral("needle"));
    m_rig.add(QStringLiteral("pin"));
    QSignalSpy searched(&m_rig.history, &ClipHistory::searched);
    const auto rows = [&] { return m_rig.history.clipItemArr().size(); };

    EXPECT_FALSE(m_rig.history.beginSearch(QStringLiteral("needle")));
    EXPECT_EQ(rows(), 3u);
    ASSERT_TRUE(searched.wait());
    EXPECT_EQ(m_rig.texts(), (QStringList{QStringLiteral("needle"), huge}));

    // What is typed next takes the place of what was sought.
    EXPECT_FALSE(m_rig.history.beginSearch(QStringLiteral("x ")));
    EXPECT_TRUE(m_rig.history.beginSearch(QString()));
    EXPECT_FALSE(searched.wait(50));
    EXPECT_EQ(rows(), 3u);

    EXPECT_FALSE(m_rig.history.beginSearch(QStringLiteral("dle")));
    EXPECT_EQ(rows(), 3u);
    m_rig.history.finishSearch();
    EXPECT_EQ(rows(), 2u);

    // What is copied meanwhile ends it: the list is the whole history again.
    EXPECT_FALSE(m_rig.history.beginSearch(QStringLiteral("edle")));
    m_rig.add(QStringLiteral("new"));
    EXPECT_EQ(rows(), 4u);
    EXPECT_FALSE(searched.wait(50));
    EXPECT_EQ(rows(), 4u);
}

struct ShortTextRow
{
    const char *name;
    QString text;
    std::optional<QString> filepath;
    QString line;
};

using ShortText = testing::TestWithParam<ShortTextRow>;

TEST_P(ShortText, isTheTextInOneLineOrTheFile)
{
    StoreFolder folder;
    HistoryRig rig(folder.path());
    rig.add(GetParam().text, GetParam().filepath);
    EXPECT_EQ(rig.at(0)->shortText(), GetParam().line);
    EXPECT_EQ(HistoryRig(folder.path()).at(0)->shortText(), GetParam().line);
}

const ShortTextRow kShortText[] = {
    {"blanksAtBothEnds", QStringLiteral(" \t a b\u00A0 "), {}, QStringLiteral("a b")},
    {"lineBreaksFallOut", QStringLiteral("a\nb\n\n c"), {}, QStringLiteral("ab c")},
    {"blanksBehindALineBreakStay", QStringLiteral(" \n  a"), {}, QStringLiteral("  a")},
    {"onlyBlanks", QStringLiteral(" \n\t"), {}, QString()},
    {"file", QStringLiteral("a"), QStringLiteral("/tmp/a"), QStringLiteral("File: /tmp/a")}};

INSTANTIATE_TEST_SUITE_P(Lines, ShortText, testing::ValuesIn(kShortText),
                         [](const auto &row) { return std::string(row.param.name); });

} // namespace
