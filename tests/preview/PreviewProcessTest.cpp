#include "preview/PreviewProcess.h"
#include "platform/FileQuestions.h"
#include "preview/PreviewFile.h"
#include "preview/TextContent.h"
#include "support/ExpectedWarnings.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <ostream>

/// How a failure names it.
static void PrintTo(PreviewTrouble trouble, std::ostream *out)
{
    *out << "trouble " << int(trouble);
}

namespace {

using std::chrono::milliseconds;

class PreviewProcessTest : public testing::Test
{
protected:
    static constexpr auto kCrashed = "what reads files for previews crashed";

    /// What becomes of a file that has the reader do what `word` says.
    PreviewOutcome ask(PreviewProcess &process, const char *word, milliseconds wanted = kWanted,
                       milliseconds time = kWanted)
    {
        QFile written(folder.filePath(QStringLiteral("file")));
        EXPECT_TRUE(written.open(QIODevice::WriteOnly) && written.write(word) > 0);
        written.close();
        const std::stop_source nobodyStops;
        const Patience patience(nobodyStops.get_token(), &std::chrono::steady_clock::now,
                                std::chrono::steady_clock::now() + wanted);
        PreviewFile file(written.fileName(), patience);
        EXPECT_TRUE(file.openRegular());
        PreviewOrder order;
        order.pixels = QSize(1, 1);
        order.size = file.size();
        order.time = time;
        return process.ask(order, file.descriptor(), patience);
    }

    QString textOf(PreviewProcess &process, const char *word)
    {
        const PreviewOutcome outcome = ask(process, word);
        const auto text = std::dynamic_pointer_cast<const TextContent>(outcome.content);
        return text ? text->text() : QStringLiteral("trouble %1").arg(int(outcome.trouble));
    }

    /// Generous, for a sanitized run on a busy machine.
    static constexpr milliseconds kWanted{30'000};

    const QString program = QStringLiteral(TAKEN_OVER_READER);
    QTemporaryDir folder;
};

TEST_F(PreviewProcessTest, whatAFileDoesToItsReaderEndsWithThatFile)
{
    const struct
    {
        const char *word;
        PreviewTrouble trouble;
        const char *log;
    } kTable[] = {
        {"crash", PreviewTrouble::Crashed, kCrashed},
        {"leave", PreviewTrouble::Crashed, kCrashed},
        {"spin", PreviewTrouble::TookLong, "what reads files for previews took too long"},
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__) // To which all memory belongs.
        {"memory", PreviewTrouble::TooLarge, "what reads files for previews needed too much"},
#endif
        {"huge", PreviewTrouble::Crashed, kCrashed},
        {"unmarked", PreviewTrouble::Crashed, kCrashed},
        {"other", PreviewTrouble::Crashed, kCrashed},
        {"cut", PreviewTrouble::Crashed, kCrashed},
        {"claim", PreviewTrouble::Crashed, kCrashed},
    };
    for (const auto &row : kTable) {
        SCOPED_TRACE(row.word);
        PreviewProcess process(program);
        EXPECT_EQ(textOf(process, "count"), QStringLiteral("1"));
        EXPECT_EQ(textOf(process, "count"), QStringLiteral("2"));
        process.rest();
        ExpectedWarnings::expect(QString::fromLatin1(row.log));
        const PreviewOutcome outcome = ask(process, row.word, kWanted, milliseconds(100));
        EXPECT_EQ(outcome.trouble, row.trouble);
        EXPECT_FALSE(outcome.content);
        EXPECT_EQ(textOf(process, "count"), QStringLiteral("1")) << "another process";
    }
}

TEST_F(PreviewProcessTest, whoeverTakesTheReaderOverReachesNothingFromThere)
{
    for (const char *word : {"open", "create", "again", "look", "change", "map", "program", "share",
                             "kill", "limits", "fork"}) {
        PreviewProcess process(program);
        EXPECT_EQ(textOf(process, word), QStringLiteral("EPERM")) << word;
    }
    for (const char *word : {"connect", "exec", "trace"}) {
        PreviewProcess process(program);
        ExpectedWarnings::expect(QString::fromLatin1(kCrashed));
        EXPECT_EQ(ask(process, word).trouble, PreviewTrouble::Crashed) << word;
    }
}

TEST_F(PreviewProcessTest, addressesThatAreSetAsideAreNoMemory)
{
    PreviewProcess process(program);
    EXPECT_EQ(textOf(process, "reserve"), QStringLiteral("done"));
}

TEST_F(PreviewProcessTest, itStartsThreeTimesAMinuteAndNoMore)
{
    std::chrono::steady_clock::time_point now = std::chrono::steady_clock::now();
    PreviewProcess process(program, [&now] { return now; });
    for (size_t start = 0; start < PreviewProcess::kMaxStarts; ++start) {
        ExpectedWarnings::expect(QString::fromLatin1(kCrashed));
        EXPECT_EQ(ask(process, "crash").trouble, PreviewTrouble::Crashed);
    }
    EXPECT_EQ(ask(process, "count").trouble, PreviewTrouble::Resting);
    now += std::chrono::minutes(1);
    EXPECT_EQ(textOf(process, "count"), QStringLiteral("1"));
}

TEST_F(PreviewProcessTest, anOrderThatIsNotWantedAnyMoreIsGivenUpAndTheNextIsAnswered)
{
    PreviewProcess process(program);
    EXPECT_EQ(textOf(process, "count"), QStringLiteral("1"));
    ask(process, "patient", milliseconds(100));
    EXPECT_EQ(textOf(process, "count"), QStringLiteral("3")) << "of the same process";
}

TEST_F(PreviewProcessTest, whereItCannotBeStartedOrKeptApartNothingIsRead)
{
    PreviewProcess missing(folder.filePath(QStringLiteral("nothing")));
    ExpectedWarnings::expect(QStringLiteral("what reads files for previews cannot be started"));
    EXPECT_EQ(ask(missing, "count").trouble, PreviewTrouble::NotStarted);

    const QString link = folder.filePath(QStringLiteral("reader-apart"));
    ASSERT_TRUE(QFile::link(program, link));
    PreviewProcess together(link);
    ExpectedWarnings::expect(QStringLiteral("cannot be kept apart on this system"));
    for (size_t time = 0; time <= PreviewProcess::kMaxStarts; ++time)
        EXPECT_EQ(ask(together, "count").trouble, PreviewTrouble::NotApart);
}

} // namespace
