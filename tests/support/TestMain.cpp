#include "support/ExpectedWarnings.h"

#include <QApplication>
#include <QMutex>

#include <gtest/gtest.h>

#include <cstdio>

namespace {

QMutex g_mutex;
QStringList g_messages;
QStringList g_expected;
QStringList g_unexpected;

void collect(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    const QMutexLocker lock(&g_mutex);
    g_messages.append(message);
    if (type == QtFatalMsg) {
        // A death test reads its message from the error stream.
        std::fprintf(stderr, "%s\n", qUtf8Printable(message));
        return;
    }
    if (type != QtWarningMsg && type != QtCriticalMsg)
        return;
    // What the display-less plug-in says of itself is no fault of the code under test, nor is what
    // newer test libraries say of an event that a read-only field leaves to its surroundings, or
    // newer toolkits of a seat whose only keyboard has gone.
    if (message.startsWith(u"This plugin does not support") ||
        message == u"unknown keymap format: 0" ||
        (message.startsWith(u"Mouse event ") && message.endsWith(u"by receiving widget")))
        return;
    const auto known = std::find_if(g_expected.begin(), g_expected.end(),
                                    [&](const QString &text) { return message.contains(text); });
    if (known == g_expected.end())
        g_unexpected.append(message);
    else
        g_expected.erase(known);
}

class WarningListener : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo &) override
    {
        const QMutexLocker lock(&g_mutex);
        g_messages.clear();
        g_expected.clear();
        g_unexpected.clear();
    }

    void OnTestEnd(const testing::TestInfo &) override
    {
        const QMutexLocker lock(&g_mutex);
        for (const QString &message : std::as_const(g_unexpected))
            ADD_FAILURE() << "unexpected warning: " << qUtf8Printable(message);
        for (const QString &text : std::as_const(g_expected))
            ADD_FAILURE() << "expected warning did not come: " << qUtf8Printable(text);
    }
};

} // namespace

void ExpectedWarnings::expect(const QString &text)
{
    const QMutexLocker lock(&g_mutex);
    g_expected.append(text);
}

QStringList ExpectedWarnings::messages()
{
    const QMutexLocker lock(&g_mutex);
    return g_messages;
}

int main(int argc, char **argv)
{
    testing::InitGoogleTest(&argc, argv);
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    qputenv("LC_ALL", "C.UTF-8");
    // Listing the tests at build time must not need a display either.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    qInstallMessageHandler(collect);
    testing::UnitTest::GetInstance()->listeners().Append(new WarningListener);
    return RUN_ALL_TESTS();
}
