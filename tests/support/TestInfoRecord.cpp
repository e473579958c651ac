// The record of the programs that journeys run against servers of their own: which addresses they
// ask, whom they trust and which version they are comes from outside. Linked into nothing that
// people run.

#include "platform/Info.h"

#include <QFile>
#include <QThread>

#include <csignal>
#include <cstdio>
#include <sys/resource.h>

namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The version lies in the prefix, so that one program can stand for an old and a new one. The
/// helper lies one folder deeper than the program.
QString version()
{
    const QString program = QFile::symLinkTarget(QStringLiteral("/proc/self/exe"));
    const int levels = program.contains(QStringLiteral("/libexec/")) ? 4 : 3;
    const QString prefix = program.section(u'/', 0, -levels);
    const QByteArray told = contents(prefix + QStringLiteral("/share/quillmarsh/test-version"));
    return told.isEmpty() ? QStringLiteral("1.0.0") : QString::fromUtf8(told).trimmed();
}

/// At the stage of an update that a test has named, the program is killed, the disk is full, or it
/// takes its time until the test has made a file.
void watchStages(QtMsgType, const QMessageLogContext &, const QString &message)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(message));
    const QString stage = QStringLiteral("update stage: ");
    if (!message.startsWith(stage))
        return;
    const QString name = message.mid(stage.size());
    if (name == qEnvironmentVariable("QUILLMARSH_TEST_KILL_AT"))
        std::raise(SIGKILL);
    if (name == qEnvironmentVariable("QUILLMARSH_TEST_FULL_AT")) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit nothing{0, 0};
        setrlimit(RLIMIT_FSIZE, &nothing);
    }
    if (name == qEnvironmentVariable("QUILLMARSH_TEST_WAIT_AT")) {
        while (!QFile::exists(qEnvironmentVariable("QUILLMARSH_TEST_GO_ON")))
            QThread::msleep(5);
    }
}

} // namespace

Info Info::main()
{
    static const bool isWatched = (qInstallMessageHandler(&watchStages), true);
    Q_UNUSED(isWatched);
    Info info;
    info.bundleIdentifier = QStringLiteral("org.quillmarsh.Quillmarsh");
    info.bundleVersion = version();
    info.bundleShortVersionString = info.bundleVersion;
    info.feedUrl = qEnvironmentVariable("QUILLMARSH_TEST_FEED_URL");
    info.feedKey = qgetenv("QUILLMARSH_TEST_FEED_KEY");
    info.feedbackUrl = qEnvironmentVariable("QUILLMARSH_TEST_FEEDBACK_URL");
    info.certificateAuthorities = contents(qEnvironmentVariable("QUILLMARSH_TEST_AUTHORITIES"));
    return info;
}
