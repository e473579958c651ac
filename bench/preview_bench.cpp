/// Times the preview of a file, from the request to its first painting: by a process that has to be
/// started for it, as after a rest, and by one that runs. And the longest time that the main thread
/// could not run meanwhile: by the clock, and by the work it did itself, which a busy machine does
/// not prolong as much. Each the least, the median and the most of some runs.
/// usage: preview_bench FILE...
/// With --memory, the private memory instead: before, after stepping through 64 links to the files,
/// and once the kept results are forgotten.

#include "Clipboard/preview/FilePreview.h"
#include "Clipboard/preview/PreviewRegistry.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>

namespace {

constexpr int kRuns = 15;
constexpr qint64 kMaxMilliseconds = 5000;

/// The longest that the main thread was away from its loop, in milliseconds.
class Stall
{
public:
    Stall()
    {
        m_ticks.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_ticks, &QTimer::timeout, &m_ticks, [this] { note(); });
        m_ticks.start(1);
        m_sinceTick.start();
    }

    void note()
    {
        m_longest = std::max(m_longest, double(m_sinceTick.nsecsElapsed()) / 1e6);
        m_sinceTick.start();
        const double work = ownWork();
        m_maxWork = std::max(m_maxWork, work - m_workBefore);
        m_workBefore = work;
    }

    double longest() const { return m_longest; }
    double maxWork() const { return m_maxWork; }

private:
    static double ownWork()
    {
        timespec time = {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
    }

    QTimer m_ticks;
    QElapsedTimer m_sinceTick;
    double m_longest = 0;
    double m_workBefore = ownWork();
    double m_maxWork = 0;
};

using Runs = std::array<double, kRuns>;

void print(const char *what, Runs values)
{
    std::sort(values.begin(), values.end());
    std::printf("  %-22s %6.1f %6.1f %6.1f ms\n", what, values.front(), values[kRuns / 2],
                values.back());
}

/// Milliseconds until the file was shown; `hasBody` is whether more than its card was.
double timeToShow(PreviewRegistry &registry, const QString &path, bool *hasBody)
{
    QElapsedTimer whole;
    whole.start();
    FilePreview view(registry, path, nullptr);
    view.resize(520, 400);
    view.show();
    view.refresh();
    while (!view.body() && whole.elapsed() < kMaxMilliseconds)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    view.grab();
    *hasBody = view.body();
    return double(whole.nsecsElapsed()) / 1e6;
}

void measure(const QString &path)
{
    Runs rested = {};
    Runs shown = {};
    Runs stalls = {};
    Runs work = {};
    bool hasBody = false;
    for (size_t run = 0; run < kRuns; ++run) {
        FileQuestions questions;
        // Each its own, because none starts often.
        PreviewRegistry registry(questions);
        rested[run] = timeToShow(registry, path, &hasBody);
        registry.forget();
        Stall stall;
        shown[run] = timeToShow(registry, path, &hasBody);
        stall.note();
        stalls[run] = stall.longest();
        work[run] = stall.maxWork();
    }
    std::printf("%s%s\n", qPrintable(path), hasBody ? "" : " (card only)");
    print("shown after a rest", rested);
    print("shown", shown);
    print("longest stall", stalls);
    print("most work in one go", work);
}

double privateMebibytes()
{
    QFile told(QStringLiteral("/proc/self/smaps_rollup"));
    if (!told.open(QIODevice::ReadOnly))
        return 0;
    double kibibytes = 0;
    for (const QByteArray &line : told.readAll().split('\n'))
        if (line.startsWith("Private_Dirty:"))
            kibibytes = line.mid(14).trimmed().chopped(3).toDouble();
    return kibibytes / 1024;
}

void measureMemory(const QStringList &files)
{
    constexpr int kSteps = 64;
    const QTemporaryDir links;
    FileQuestions questions;
    PreviewRegistry registry(questions);
    const auto linked = [&](int step) {
        const QString link = links.filePath(QString::number(step));
        QFile::link(QFileInfo(files.at(step % files.size())).absoluteFilePath(), link);
        return link;
    };
    bool hasBody = false;
    timeToShow(registry, links.path(), &hasBody);
    std::printf("at first           %6.1f MiB\n", privateMebibytes());
    for (int step = 0; step < kSteps; ++step)
        timeToShow(registry, linked(step), &hasBody);
    std::printf("%zu results kept    %6.1f MiB\n", registry.keptCount(), privateMebibytes());
    registry.forget();
    // Its threads have their own time.
    QThread::msleep(200);
    std::printf("forgotten          %6.1f MiB\n", privateMebibytes());
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QStringList files = QCoreApplication::arguments().mid(1);
    if (files.removeOne(QStringLiteral("--memory")) && !files.isEmpty()) {
        measureMemory(files);
        return 0;
    }
    for (const QString &file : std::as_const(files))
        measure(file);
    return files.isEmpty() ? 2 : 0;
}
