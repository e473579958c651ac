#include "platform/freedesktop/InstanceSocket.h"

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

using Claim = InstanceSocket::Claim;
using std::chrono::milliseconds;

const DoorMessage kMessage{QStringLiteral("swop"), QStringLiteral("token-1")};

mode_t modeOf(const QString &path)
{
    struct stat facts = {};
    ::lstat(QFile::encodeName(path).constData(), &facts);
    return facts.st_mode & 07777;
}

class InstanceSocketTest : public testing::Test
{
protected:
    InstanceSocketTest()
    {
        // Longer than an address of a socket may be.
        const QString runtime = folder.filePath(QString(120, u'r'));
        QDir().mkdir(runtime);
        ::chmod(qPrintable(runtime), 0700);
        setRuntimeFolder(runtime);
        qputenv("TMPDIR", folder.path().toLocal8Bit());
    }

    ~InstanceSocketTest() override
    {
        qunsetenv("XDG_RUNTIME_DIR");
        qunsetenv("TMPDIR");
    }

    static void setRuntimeFolder(const QString &path)
    {
        qputenv("XDG_RUNTIME_DIR", path.toLocal8Bit());
    }

    QString fallback() const
    {
        return folder.filePath(QStringLiteral("quillmarsh-%1").arg(::geteuid()));
    }

    QTemporaryDir folder;
};

TEST_F(InstanceSocketTest, aSecondStartReachesTheFirst)
{
    InstanceSocket first;
    InstanceSocket second;
    ASSERT_EQ(first.claim(), Claim::Taken);
    ASSERT_EQ(second.claim(), Claim::Held);

    auto forwarded = std::async(std::launch::async,
                                [&] { return second.forward(kMessage, milliseconds(5000)); });
    pollfd readable{first.descriptor(), POLLIN, 0};
    ASSERT_EQ(::poll(&readable, 1, 5000), 1);
    const auto message = first.receive();
    EXPECT_TRUE(forwarded.get());
    ASSERT_TRUE(message);
    EXPECT_EQ(message->action, kMessage.action);
    EXPECT_EQ(message->activationToken, kMessage.activationToken);
    EXPECT_FALSE(first.receive());
}

TEST_F(InstanceSocketTest, aFirstThatHangsIsGivenUpInTime)
{
    InstanceSocket first;
    InstanceSocket second;
    ASSERT_EQ(first.claim(), Claim::Taken);
    ASSERT_EQ(second.claim(), Claim::Held);
    // More than the kernel keeps for a reader that never reads.
    for (int attempt = 0; attempt < 30; ++attempt) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_FALSE(second.forward(kMessage, milliseconds(10)));
        EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(500));
    }
}

TEST_F(InstanceSocketTest, aKilledInstanceLocksNobodyOut)
{
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        InstanceSocket killed;
        const char claim = killed.claim() == Claim::Taken ? 'y' : 'n';
        [[maybe_unused]] const ssize_t told = ::write(ready[1], &claim, 1);
        for (;;)
            ::pause();
    }
    char claim = 0;
    ASSERT_EQ(::read(ready[0], &claim, 1), 1);
    EXPECT_EQ(claim, 'y');
    InstanceSocket next;
    EXPECT_EQ(next.claim(), Claim::Held);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    EXPECT_FALSE(next.forward(kMessage, milliseconds(1000)));
    EXPECT_EQ(next.claim(), Claim::Taken);
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST_F(InstanceSocketTest, withoutARuntimeFolderOneOfOurOwnIsMadeForThisUserOnly)
{
    for (const QString &unusable : {QString(), folder.filePath(QStringLiteral("none"))}) {
        setRuntimeFolder(unusable);
        InstanceSocket first;
        ASSERT_EQ(first.claim(), Claim::Taken);
        EXPECT_EQ(modeOf(fallback()), mode_t(0700));
        const QString socket = QStringLiteral("/org.quillmarsh.Quillmarsh.socket");
        EXPECT_EQ(modeOf(fallback() + socket), mode_t(0600));
        InstanceSocket second;
        EXPECT_EQ(second.claim(), Claim::Held);
    }
}

TEST_F(InstanceSocketTest, aFolderThatOthersMayEnterIsNotUsed)
{
    setRuntimeFolder(QString());
    struct Trap
    {
        const char *name;
        std::function<void(const QByteArray &)> lay;
    };
    const QByteArray path = fallback().toLocal8Bit();
    const Trap traps[] = {
        {"open to all",
         [](const QByteArray &at) {
             ::mkdir(at.constData(), 0700);
             ::chmod(at.constData(), 0777);
         }},
        {"a link",
         [](const QByteArray &at) { [[maybe_unused]] int made = ::symlink("/", at.constData()); }},
        {"a file", [](const QByteArray &at) { ::close(::creat(at.constData(), 0600)); }},
    };
    for (const Trap &trap : traps) {
        SCOPED_TRACE(trap.name);
        ::remove(path.constData());
        trap.lay(path);
        ExpectedWarnings::expect(QStringLiteral("no runtime folder"));
        EXPECT_EQ(InstanceSocket().claim(), Claim::Unusable);
    }
}

} // namespace
