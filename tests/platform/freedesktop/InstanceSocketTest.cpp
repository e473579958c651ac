#include "platform/freedesktop/instance/InstanceSocket.h"

#include "support/ExpectedWarnings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <future>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Answer = InstanceSocket::Answer;
using Claim = InstanceSocket::Claim;
using std::chrono::milliseconds;

const InstanceMessage kMessage{QStringLiteral("swop"), QStringLiteral("token-1")};

mode_t modeOf(const QString &path)
{
    struct stat facts = {};
    ::lstat(QFile::encodeName(path).constData(), &facts);
    return facts.st_mode & 07777;
}

class InstanceSocketTest : public testing::Test
{
protected:
    // Two levels that are not there yet, and longer than an address of a socket may be.
    QTemporaryDir folder;
    const QString store = folder.filePath(QStringLiteral("share/") + QString(120, u'r'));
    InstanceSocket first{store};
    InstanceSocket second{store};
};

TEST_F(InstanceSocketTest, aSecondStartReachesTheFirstWhichAnswersWhatItMakesOfIt)
{
    ASSERT_EQ(first.claim(), Claim::Taken);
    ASSERT_EQ(second.claim(), Claim::Held);
    for (const Answer answer : {Answer::Taken, Answer::Refused, Answer::Unable}) {
        auto forwarded = std::async(std::launch::async,
                                    [&] { return second.forward(kMessage, milliseconds(5000)); });
        pollfd readable{first.descriptor(), POLLIN, 0};
        ASSERT_EQ(::poll(&readable, 1, 5000), 1);
        first.receive([&](const InstanceMessage &message) {
            EXPECT_EQ(message.action, kMessage.action);
            EXPECT_EQ(message.activationToken, kMessage.activationToken);
            return answer;
        });
        EXPECT_EQ(forwarded.get(), answer);
    }
    first.receive([](const InstanceMessage &) {
        ADD_FAILURE() << "nothing waits";
        return Answer::Refused;
    });
}

TEST_F(InstanceSocketTest, aFirstThatHangsIsGivenUpInTime)
{
    ASSERT_EQ(first.claim(), Claim::Taken);
    ASSERT_EQ(second.claim(), Claim::Held);
    // More than the kernel keeps for a reader that never reads.
    for (int attempt = 0; attempt < 30; ++attempt)
        EXPECT_EQ(second.forward(kMessage, milliseconds(10)), Answer::None);
}

TEST_F(InstanceSocketTest, aFirstThatLeavesSendsThoseAwayWhoWaitForIt)
{
    // Longer than any test may take: who is not sent away fails by its time limit.
    constexpr std::chrono::hours kForEver(1);
    struct Row
    {
        const char *name;
        std::function<void(InstanceSocket &)> leave;
    };
    for (const Row &row :
         {Row{"saves first", [](InstanceSocket &socket) { socket.stopListening(); }},
          Row{"is gone", [](InstanceSocket &socket) { socket.release(); }}}) {
        SCOPED_TRACE(row.name);
        InstanceSocket leaving(store);
        ASSERT_EQ(leaving.claim(), Claim::Taken);
        ASSERT_EQ(second.claim(), Claim::Held);
        auto forwarded =
            std::async(std::launch::async, [&] { return second.forward(kMessage, kForEver); });
        pollfd readable{leaving.descriptor(), POLLIN, 0};
        ASSERT_EQ(::poll(&readable, 1, 5000), 1);
        row.leave(leaving);
        EXPECT_EQ(forwarded.get(), Answer::Nobody);
        EXPECT_EQ(second.forward(kMessage, kForEver), Answer::Nobody);
    }
    EXPECT_EQ(second.claim(), Claim::Taken);
}

TEST_F(InstanceSocketTest, aKilledInstanceLocksNobodyOut)
{
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        InstanceSocket killed(store);
        const char claim = killed.claim() == Claim::Taken ? 'y' : 'n';
        [[maybe_unused]] const ssize_t told = ::write(ready[1], &claim, 1);
        for (;;)
            ::pause();
    }
    char claim = 0;
    ASSERT_EQ(::read(ready[0], &claim, 1), 1);
    EXPECT_EQ(claim, 'y');
    InstanceSocket &next = first;
    EXPECT_EQ(next.claim(), Claim::Held);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_EQ(next.forward(kMessage, milliseconds(1000)), Answer::Nobody);
    EXPECT_EQ(next.claim(), Claim::Taken);
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST_F(InstanceSocketTest, itsFolderIsThisUsersAlone)
{
    for (const mode_t before : {mode_t(0), mode_t(0755)}) {
        if (before != 0)
            ::chmod(qPrintable(store), before);
        InstanceSocket socket(store);
        ASSERT_EQ(socket.claim(), Claim::Taken);
        EXPECT_EQ(modeOf(store), mode_t(0700));
        for (const char *name : {"/Quillmarsh.lock", "/Quillmarsh.socket"})
            EXPECT_EQ(modeOf(store + QLatin1String(name)), mode_t(0600)) << name;
    }
}

TEST_F(InstanceSocketTest, whereNoLockCanBeKeptThatIsSaid)
{
    for (const char *why : {"Not a directory", "Not a directory", "symbolic links"})
        ExpectedWarnings::expect(QLatin1String(why));
    const QString file = folder.filePath(QStringLiteral("file"));
    ::close(::creat(qPrintable(file), 0600));
    EXPECT_EQ(InstanceSocket(file).claim(), Claim::Unusable);
    EXPECT_EQ(InstanceSocket(file + QStringLiteral("/below")).claim(), Claim::Unusable);
    // A link in the place of the lock would lock another file.
    ASSERT_TRUE(QDir().mkpath(store));
    ASSERT_TRUE(QFile::link(file, store + QStringLiteral("/Quillmarsh.lock")));
    EXPECT_EQ(first.claim(), Claim::Unusable);
}

} // namespace
