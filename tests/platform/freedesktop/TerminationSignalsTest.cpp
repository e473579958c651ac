#include "platform/freedesktop/TerminationSignals.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>

namespace {

TEST(TerminationSignals, eachOfThemAsksForTheQuitOnTheEventLoop)
{
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        SCOPED_TRACE(number);
        TerminationSignals signals_;
        QSignalSpy spy(&signals_, &TerminationSignals::terminationRequested);
        ::raise(number);
        EXPECT_EQ(spy.count(), 0);
        EXPECT_TRUE(QTest::qWaitFor([&] { return spy.count() == 1; }));
    }
}

TEST(TerminationSignals, whatWasIgnoredAtStartStaysIgnored)
{
    ::signal(SIGHUP, SIG_IGN);
    {
        TerminationSignals signals_;
        QSignalSpy spy(&signals_, &TerminationSignals::terminationRequested);
        ::raise(SIGHUP);
        QCoreApplication::processEvents();
        EXPECT_EQ(spy.count(), 0);
        ::raise(SIGTERM);
        EXPECT_TRUE(QTest::qWaitFor([&] { return spy.count() == 1; }));
    }
    EXPECT_EQ(::signal(SIGHUP, SIG_DFL), SIG_IGN);
}

TEST(TerminationSignalsDeathTest, aSecondOneEndsAProcessThatHangs)
{
    EXPECT_EXIT(
        {
            TerminationSignals signals_;
            ::raise(SIGTERM);
            ::raise(SIGTERM);
        },
        testing::KilledBySignal(SIGTERM), "");
}

} // namespace
