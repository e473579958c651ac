#include "updates/crashes/CrashReports.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>

namespace {

struct Crash
{
    const char *kind;
    int signal;
    const char *says;  ///< Part of the report; null when there can be none.
    const char *where; ///< A function that its back trace passes through.
};

void PrintTo(const Crash &crash, std::ostream *out)
{
    *out << crash.kind;
}

class CrashReporterTest : public testing::TestWithParam<Crash>
{
protected:
    /// Runs the crashing program and returns the number of the signal that ended it.
    int crash(const char *kind)
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), home());
        // A sanitizer would keep the faults for itself.
        for (const char *name : {"ASAN_OPTIONS", "TSAN_OPTIONS"})
            environment.insert(QString::fromLatin1(name),
                               QStringLiteral("handle_segv=0:handle_sigbus=0:handle_sigfpe=0:"
                                              "handle_sigill=0:handle_abort=0"));
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(CRASHER), {folder(), QString::fromLatin1(kind)});
        EXPECT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitStatus(), QProcess::CrashExit) << program.readAll().constData();
        return program.exitCode();
    }

    static QString home() { return QFileInfo(QStringLiteral(CRASHER)).path(); }
    QString folder() const { return m_folder.filePath(QStringLiteral("crashes")); }
    CrashReports reports() const { return CrashReports(folder()); }

    /// The functions that the report's offsets into the program stand for.
    static QString functions(const QString &report)
    {
        QStringList arguments{QStringLiteral("-f"), QStringLiteral("-e"), QStringLiteral(CRASHER)};
        static const QRegularExpression frame(QStringLiteral("^#\\d+ crasher (0x[0-9a-f]+)$"),
                                              QRegularExpression::MultilineOption);
        for (auto found = frame.globalMatch(report); found.hasNext();)
            arguments.append(found.next().captured(1));
        QProcess lookUp;
        lookUp.start(QStringLiteral("addr2line"), arguments);
        lookUp.closeWriteChannel();
        EXPECT_TRUE(lookUp.waitForFinished());
        return QString::fromUtf8(lookUp.readAll());
    }

    QTemporaryDir m_folder;
};

TEST_P(CrashReporterTest, theReportSaysHowAndWhereAndNothingOfWhatTheProgramHeld)
{
    EXPECT_EQ(crash(GetParam().kind), GetParam().signal);
    reports().tidy();
    const QString text = reports().text();
    if (!GetParam().says) {
        EXPECT_EQ(text, QString());
        return;
    }
    EXPECT_TRUE(
        text.startsWith(QStringLiteral("Quillmarsh 7.8\n") + QString::fromLatin1(GetParam().says)))
        << qPrintable(text);
    EXPECT_TRUE(functions(text).contains(QLatin1String(GetParam().where)))
        << qPrintable(text) << qPrintable(functions(text));
    static const QRegularExpression program(QStringLiteral("^~/crasher [0-9a-f]{40}$"),
                                            QRegularExpression::MultilineOption);
    EXPECT_TRUE(text.contains(program)) << qPrintable(text);
    for (const QString &held : {QStringLiteral("SECRET"), QStringLiteral("41414141"), home()})
        EXPECT_FALSE(text.contains(held)) << qPrintable(text);
    const auto files = QDir(folder()).entryInfoList(QDir::Files);
    ASSERT_EQ(files.size(), 1);
    EXPECT_EQ(files.first().permissions() & 0x0fff, QFile::ReadUser | QFile::WriteUser);
}

INSTANTIATE_TEST_SUITE_P(
    Crashes, CrashReporterTest,
    testing::Values(Crash{"fault", SIGSEGV, "SIGSEGV, main thread", "crashHere"},
                    Crash{"abort", SIGABRT, "SIGABRT, main thread", "main"},
                    Crash{"fatal", SIGABRT, "SIGABRT, main thread", "main"},
                    Crash{"exception", SIGABRT,
                          "SIGABRT, uncaught exception std::runtime_error, main thread", "main"},
                    Crash{"overflow", SIGSEGV, "SIGSEGV, main thread", "overflow"},
                    Crash{"smash", SIGSEGV, "SIGSEGV, main thread", "smashStack"},
                    Crash{"illegal", SIGILL, "SIGILL, main thread", "main"},
                    Crash{"division", SIGFPE, "SIGFPE, main thread", "main"},
                    Crash{"bus", SIGBUS, "SIGBUS, main thread", "main"},
                    Crash{"thread", SIGSEGV, "SIGSEGV, another thread", "crashHere"},
                    Crash{"thread overflow", SIGSEGV, "SIGSEGV, another thread", "overflow"},
                    Crash{"no folder", SIGSEGV, nullptr, nullptr},
                    Crash{"disk full", SIGSEGV, nullptr, nullptr}));

TEST_F(CrashReporterTest, aProgramThatCrashesAtEveryStartKeepsFewReports)
{
    for (int i = 0; i < 7; ++i) {
        QFile old(folder() + QStringLiteral("/crash-170000000%1-1.txt").arg(i));
        ASSERT_TRUE(QDir().mkpath(folder()) && old.open(QIODevice::WriteOnly));
        old.write(QByteArray::number(i));
    }
    reports().tidy();
    EXPECT_EQ(reports().text(), QStringLiteral("6\n\n5\n\n4\n\n3\n\n2"));
    reports().discard();
    EXPECT_EQ(reports().count(), 0);
    // What somebody else has put there: much is not read, and a link is not followed.
    QFile large(folder() + QStringLiteral("/crash-1700000008-1.txt"));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    large.write(QByteArray(1024 * 1024, '\xff'));
    large.close();
    ASSERT_TRUE(
        QFile::link(QStringLiteral(CRASHER), folder() + QStringLiteral("/crash-1700000009-1.txt")));
    EXPECT_EQ(reports().text().size(), 64 * 1024);
}

} // namespace
