#include "platform/FileQuestions.h"

#include <QSemaphore>
#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

using namespace std::chrono_literals;
using Kind = FileQuestions::Kind;

/// File systems, one for each first part of a path. Those whose name begins with "hung" answer only
/// once they are released. Time stands still but by hand.
class FileQuestionsTest : public testing::Test
{
protected:
    struct Disk
    {
        QSemaphore released;
        std::atomic<int> running = 0;
        std::atomic<std::chrono::milliseconds> time = 0ms;
    };

    ~FileQuestionsTest() override
    {
        disk->released.release(1000);
        // Their threads may still read this test's code.
        EXPECT_TRUE(isRunning(0));
    }

    FileQuestions::Check check() const
    {
        return [disk = disk](const QString &path) {
            ++disk->running;
            if (path.startsWith(QLatin1String("/hung")))
                disk->released.acquire();
            --disk->running;
            return !path.endsWith(QLatin1String("missing"));
        };
    }

    /// Notes the path when it is delivered.
    FileTicket ask(const QString &path, Kind kind)
    {
        return questions.ask(path, kind, 200ms, [this, check = check(), path](const Patience &) {
            check(path);
            return [this, path] { notes.append(path); };
        });
    }

    std::vector<FileTicket> askMany(const char *folder, int count, Kind kind)
    {
        std::vector<FileTicket> tickets;
        for (int number = 0; number < count; ++number)
            tickets.push_back(
                ask(QStringLiteral("%1/%2").arg(QLatin1String(folder)).arg(number), kind));
        return tickets;
    }

    bool isRunning(int threads) const
    {
        return QTest::qWaitFor([&] { return disk->running == threads; });
    }

    const std::shared_ptr<Disk> disk = std::make_shared<Disk>();
    QStringList notes;
    FileQuestions questions{[disk = disk] { return Patience::TimePoint(disk->time.load()); },
                            [](const QString &path) { return path.section(u'/', 0, 1); }};
};

TEST_F(FileQuestionsTest, whatHangsHoldsAFewThreadsAndTheRestGoesOn)
{
    const struct
    {
        const char *name;
        std::vector<const char *> folders; ///< Each is asked ten times.
        Kind kind;
        int threads;
        bool isLookAnswered;
    } kTable[] = {
        {"looks at one mount", {"/hung"}, Kind::Look, 5, true},
        {"reads of one mount", {"/hung"}, Kind::Read, 3, true},
        {"reads everywhere", {"/hung1", "/hung2", "/hung3"}, Kind::Read, 7, true},
        {"looks everywhere", {"/hung1", "/hung2"}, Kind::Look, 8, false},
    };
    for (const auto &row : kTable) {
        std::vector<FileTicket> tickets;
        for (const char *folder : row.folders)
            for (FileTicket &ticket : askMany(folder, 10, row.kind))
                tickets.push_back(std::move(ticket));
        ASSERT_TRUE(isRunning(row.threads)) << row.name << ": " << disk->running;
        const FileTicket other = ask(QStringLiteral("/disk/file"), Kind::Look);
        if (!row.isLookAnswered)
            disk->time = disk->time.load() + 200ms;
        EXPECT_EQ(questions.await(other), row.isLookAnswered) << row.name;
        EXPECT_FALSE(questions.isHanging(QStringLiteral("/disk"))) << row.name;
        // What found no thread in time is still wanted.
        disk->released.release(100);
        EXPECT_TRUE(QTest::qWaitFor([&] { return notes.size() == qsizetype(tickets.size()) + 1; }));
        tickets.clear();
        EXPECT_TRUE(disk->released.tryAcquire(disk->released.available()));
        notes.clear();
    }
}

TEST_F(FileQuestionsTest, nobodyWaitsLongerThanTheBoundAndNotAgainForWhatIsKnownToHang)
{
    const QString path = QStringLiteral("/hung/0");
    const FileTicket asked = ask(path, Kind::Look);
    EXPECT_FALSE(questions.isHanging(path));
    disk->time = 200ms;
    EXPECT_FALSE(questions.await(asked));
    EXPECT_TRUE(questions.isHanging(path));
    EXPECT_FALSE(ask(path, Kind::Look)) << "the same file";
    const std::vector<FileTicket> others = askMany("/hung", 5, Kind::Look);
    EXPECT_TRUE(others.back()) << "another file may answer";
    disk->time = 400ms;
    EXPECT_FALSE(ask(QStringLiteral("/hung/5"), Kind::Look)) << "all threads of the mount hang";
    EXPECT_FALSE(questions.isSo(QStringLiteral("/hung/5"), 10s, check()));
    disk->released.release(100);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !questions.isHanging(path); }));
    EXPECT_TRUE(questions.isSo(path, 10s, check()));
    EXPECT_FALSE(questions.isSo(QStringLiteral("/hung/missing"), 10s, check()));
}

TEST_F(FileQuestionsTest, theLatestIsReadFirstAndWhatNobodyWaitsForIsNeitherBegunNorDelivered)
{
    std::vector<FileTicket> hanging = askMany("/hung", FileQuestions::kMaxReadsOfMount, Kind::Read);
    ASSERT_TRUE(isRunning(FileQuestions::kMaxReadsOfMount));
    const auto askQuick = [this](const char *path) {
        return questions.ask(QLatin1String(path), Kind::Read, 200ms,
                             [this, path](const Patience &) {
                                 return [this, path] { notes.append(QString::fromLatin1(path)); };
                             });
    };
    const FileTicket older = askQuick("/hung/older");
    FileTicket passedBy = askQuick("/hung/passed by");
    const FileTicket latest = askQuick("/hung/latest");
    hanging.clear();
    passedBy.reset();
    disk->released.release(); // One thread is enough for all that wait.
    EXPECT_TRUE(QTest::qWaitFor([this] { return notes.size() == 2; }));
    disk->released.release(100);
    EXPECT_TRUE(isRunning(0));
    QCoreApplication::processEvents();
    EXPECT_EQ(notes, QStringList({QStringLiteral("/hung/latest"), QStringLiteral("/hung/older")}));
}

TEST_F(FileQuestionsTest, aQuestionWithoutWaitingIsAnsweredOnceAndNotAfterItsContext)
{
    QList<bool> answers;
    const auto note = [&](bool is) { answers.append(is); };
    QObject context;
    questions.askWhether(QStringLiteral("/disk/file"), 10s, check(), &context, note);
    EXPECT_EQ(answers, QList<bool>{}); // Later, even when the answer is quick.
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers == QList<bool>{true}; }));

    auto gone = std::make_unique<QObject>();
    questions.askWhether(QStringLiteral("/hung/0"), 10s, check(), gone.get(), note);
    gone.reset();
    questions.askWhether(QStringLiteral("/hung/1"), 0s, check(), &context, note);
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers.size() == 2; }));
    disk->released.release(100);
    EXPECT_TRUE(isRunning(0));
    EXPECT_TRUE(questions.await(ask(QStringLiteral("/disk/file"), Kind::Look)));
    QCoreApplication::processEvents();
    EXPECT_EQ(answers, (QList<bool>{true, false}));
}

TEST_F(FileQuestionsTest, workNoticesThatItIsNotWantedAnyMore)
{
    std::stop_source stop;
    const Patience patience(
        stop.get_token(), [this] { return questions.now(); }, questions.now() + 200ms);
    const Patience shorter = patience.atMost(100ms);
    const Patience longer = patience.atMost(300ms);
    for (const auto time : {0ms, 99ms, 100ms, 199ms, 200ms}) {
        disk->time = time;
        EXPECT_EQ(shorter.isOver(), time >= 100ms);
        EXPECT_EQ(patience.isOver(), time >= 200ms);
        EXPECT_EQ(longer.isOver(), time >= 200ms);
    }
    disk->time = 0ms;
    stop.request_stop();
    EXPECT_TRUE(patience.isOver() && shorter.isOver());

    const auto work = [disk = disk](const Patience &wanted) {
        ++disk->running;
        while (!wanted.isOver())
            std::this_thread::yield();
        --disk->running;
        return FileQuestions::Delivery();
    };
    FileTicket ticket = questions.ask(QStringLiteral("/disk"), Kind::Read, 200ms, work);
    ASSERT_TRUE(isRunning(1));
    ticket.reset();
    EXPECT_TRUE(isRunning(0));
}

TEST_F(FileQuestionsTest, anEndDoesNotWaitForWhatHangs)
{
    auto ending = std::make_unique<FileQuestions>();
    const FileTicket ticket = ending->ask(QStringLiteral("/hung"), Kind::Look, 200ms,
                                          [check = check()](const Patience &) {
                                              check(QStringLiteral("/hung"));
                                              return FileQuestions::Delivery();
                                          });
    ASSERT_TRUE(isRunning(1));
    ending.reset();
    EXPECT_EQ(disk->running, 1);
}

} // namespace
