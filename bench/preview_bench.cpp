/// Times the preview of a file, from the request to its first painting, and the longest time that
/// the main thread could not run meanwhile. usage: preview_bench FILE...

#include "Clipboard/preview/FilePreview.h"
#include "Clipboard/preview/PreviewRegistry.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <cstdio>

namespace {

constexpr qint64 kMostMilliseconds = 5000;

void measure(const QString &path)
{
    PreviewRegistry registry;
    QElapsedTimer sinceTick;
    qint64 longest = 0;
    const auto note = [&] { longest = qMax(longest, sinceTick.nsecsElapsed()); };
    QTimer ticks;
    QObject::connect(&ticks, &QTimer::timeout, &ticks, [&] {
        note();
        sinceTick.start();
    });
    ticks.start(0);
    sinceTick.start();

    QElapsedTimer whole;
    whole.start();
    FilePreview view(registry, path, nullptr);
    view.resize(520, 400);
    view.refresh();
    while (!view.body() && whole.elapsed() < kMostMilliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    const bool hasBody = view.body();
    view.grab();
    note();
    std::printf("%s: %s in %.1f ms, longest stall %.1f ms\n", qPrintable(path),
                hasBody ? "shown" : "card only", double(whole.nsecsElapsed()) / 1e6,
                double(longest) / 1e6);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList files = QCoreApplication::arguments().mid(1);
    for (const QString &file : files)
        measure(file);
    return files.isEmpty() ? 2 : 0;
}
