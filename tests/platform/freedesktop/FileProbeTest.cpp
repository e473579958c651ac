#include "platform/freedesktop/FileProbe.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QTest>

#include <gtest/gtest.h>

#include <atomic>

namespace {

/// File systems of which those under /hung answer only once they are released.
class FileProbeTest : public testing::Test
{
protected:
    struct Disk
    {
        QSemaphore released;
        std::atomic<int> running = 0;
    };

    ~FileProbeTest() override
    {
        disk->released.release(1000);
        // Their threads may still read this test's code.
        EXPECT_TRUE(QTest::qWaitFor([this] { return disk->running == 0; }));
    }

    std::shared_ptr<Disk> disk = std::make_shared<Disk>();
    FileProbe probe{[disk = disk](const QString &path) {
                        ++disk->running;
                        if (path.startsWith(QLatin1String("/hung")))
                            disk->released.acquire();
                        --disk->running;
                        return !path.endsWith(QLatin1String("missing"));
                    },
                    [](const QString &path) { return path.section(u'/', 0, 1); }};
};

QString onHungMount(int number)
{
    return QStringLiteral("/hung/%1").arg(number);
}

TEST_F(FileProbeTest, aHungMountCountsAsMissingAfterTheLimitAndOnlyUntilItAnswers)
{
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(probe.exists(onHungMount(0)));
    EXPECT_GE(timer.elapsed(), 190);
    EXPECT_LT(timer.elapsed(), 1000);
    // The same question again is past its time already.
    timer.restart();
    EXPECT_FALSE(probe.exists(onHungMount(0)));
    EXPECT_LT(timer.elapsed(), 100);

    disk->released.release(1000);
    EXPECT_TRUE(QTest::qWaitFor([&] { return probe.exists(onHungMount(0)); }));
}

TEST_F(FileProbeTest, aHungMountTakesABoundedNumberOfThreadsAndNoOtherMountWithIt)
{
    int answers = 0;
    QObject context;
    for (int number = 0; number < 50; ++number)
        probe.ask(onHungMount(number), &context, [&](bool exists) { answers += exists ? 100 : 1; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers == 50; }));
    EXPECT_EQ(disk->running, FileProbe::kMostPerMount);
    EXPECT_TRUE(probe.exists(QStringLiteral("/disk/file")));
    EXPECT_FALSE(probe.exists(QStringLiteral("/disk/missing")));
}

TEST_F(FileProbeTest, aQuestionWithoutWaitingIsAnsweredOnceAndNotAfterItsContext)
{
    QList<bool> answers;
    const auto note = [&](bool exists) { answers.append(exists); };
    QObject context;
    probe.ask(QStringLiteral("/disk/file"), &context, note);
    EXPECT_EQ(answers, QList<bool>{}); // Later, even when the answer is quick.
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers == QList<bool>{true}; }));

    auto gone = std::make_unique<QObject>();
    probe.ask(onHungMount(0), gone.get(), note);
    gone.reset();
    probe.ask(onHungMount(1), &context, note);
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers.size() == 2; }));
    disk->released.release(1000);
    EXPECT_TRUE(QTest::qWaitFor([this] { return disk->running == 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(answers, (QList<bool>{true, false}));
}

} // namespace
