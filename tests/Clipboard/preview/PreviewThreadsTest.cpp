#include "Clipboard/preview/PreviewThreads.h"

#include <QStringList>
#include <QTest>

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace {

/// A job that hangs until it is let go, as one on a dead file system does.
struct Hanging
{
    PreviewThreads::Job job()
    {
        return [gate = gate, started = started](const PreviewStop &) {
            ++*started;
            gate.wait();
            return PreviewThreads::Delivery();
        };
    }

    std::promise<void> end;
    std::shared_future<void> gate = end.get_future().share();
    std::shared_ptr<std::atomic<int>> started = std::make_shared<std::atomic<int>>(0);
};

PreviewThreads::Job noting(QStringList *notes, const QString &note)
{
    return [=](const PreviewStop &) { return [=] { notes->append(note); }; };
}

TEST(PreviewThreadsTest, whatNobodyWaitsForIsNeitherBegunNorDelivered)
{
    PreviewThreads threads;
    Hanging hanging;
    QStringList notes;
    const PreviewTicket first = threads.run(hanging.job());
    const PreviewTicket second = threads.run(hanging.job());
    {
        const PreviewTicket passedBy = threads.run(noting(&notes, QStringLiteral("passed by")));
    }
    const PreviewTicket older = threads.run(noting(&notes, QStringLiteral("older")));
    const PreviewTicket latest = threads.run(noting(&notes, QStringLiteral("latest")));
    hanging.end.set_value();
    ASSERT_TRUE(QTest::qWaitFor([&] { return notes.size() == 2; }));
    notes.sort();
    EXPECT_EQ(notes, QStringList({QStringLiteral("latest"), QStringLiteral("older")}));
}

TEST(PreviewThreadsTest, jobsThatHangDoNotKeepTheNextFromRunning)
{
    Hanging hanging;
    QStringList notes;
    PreviewThreads threads;
    for (int i = 0; i < 5; ++i)
        const PreviewTicket abandoned = threads.run(hanging.job());
    std::vector<PreviewTicket> held;
    for (int i = 0; i < 2; ++i) {
        held.push_back(threads.run(hanging.job()));
        ASSERT_TRUE(QTest::qWaitFor([&] { return *hanging.started > i; }));
    }
    held.clear();
    const PreviewTicket next = threads.run(noting(&notes, QStringLiteral("next")));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !notes.isEmpty(); }));
    hanging.end.set_value();
}

TEST(PreviewThreadsTest, anOwnerThatEndsDoesNotWaitForAJobThatHangs)
{
    Hanging hanging;
    QElapsedTimer timer;
    {
        PreviewThreads threads;
        const PreviewTicket ticket = threads.run(hanging.job());
        ASSERT_TRUE(QTest::qWaitFor([&] { return *hanging.started == 1; }));
        timer.start();
    }
    EXPECT_LT(timer.elapsed(), 3000);
    hanging.end.set_value();
}

} // namespace
