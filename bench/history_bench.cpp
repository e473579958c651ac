// How long the history takes for what a person waits for: recording a copy, a search at each key
// press, opening the store. The clips are made in a throw-away folder before the clock runs.

#include "ClipTexts.h"

#include "history/CaptureSettings.h"
#include "history/ClipHistory.h"
#include "history/ClipItem.h"
#include "platform/memory/MemoryPlatform.h"

#include <QDir>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QThread>

#include <benchmark/benchmark.h>

#include <SQLiteCpp/SQLiteCpp.h>

#include <map>
#include <memory>

namespace {

class UnlimitedSettings : public CaptureSettings
{
public:
    qint64 maxItems = 1'000'000;

    // ^CaptureSettings
    qint64 getMaxItems() const override { return maxItems; }
    qint64 getMaxStringSize() const override { return 1'000'000; }
    bool isNotificationsEnabled() const override { return false; }
    QStringList ignoredNames() const override { return {}; }
    bool isRecordingAllowed() const override { return true; }
};

MemoryClock g_clock;
UnlimitedSettings g_settings;
std::unique_ptr<QTemporaryDir> g_directory;

/// The folder of a store with so many clips, made once.
QString storeOf(int clips)
{
    const QString folder = g_directory->filePath(QString::number(clips));
    if (QDir(folder).exists())
        return folder;
    // An empty store in the shape that the history gives it.
    ClipHistory(folder, g_clock, g_settings).loadClipItems();
    SQLite::Database database((folder + QStringLiteral("/Quillmarsh.sqlite")).toStdString(),
                              SQLite::OPEN_READWRITE);
    SQLite::Transaction transaction(database);
    SQLite::Statement insertion(
        database, "INSERT INTO ClipItem (strValue, applicationName, createDate) VALUES (?, ?, ?)");
    for (int i = 0; i < clips; ++i) {
        insertion.bind(1, benchClipText(i).toStdString());
        insertion.bind(2, "Editor");
        insertion.bind(3, 1.7e9 + i);
        insertion.exec();
        insertion.reset();
    }
    transaction.commit();
    return folder;
}

/// A loaded and indexed history with so many clips.
ClipHistory &historyOf(int clips)
{
    static std::map<int, std::unique_ptr<ClipHistory>> histories;
    std::unique_ptr<ClipHistory> &history = histories[clips];
    if (!history) {
        history = std::make_unique<ClipHistory>(storeOf(clips), g_clock, g_settings);
        history->loadClipItems();
        history->searchClipItem(QStringLiteral("index everything"));
    }
    return *history;
}

void openAndLoad(benchmark::State &state)
{
    const QString folder = storeOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        ClipHistory history(folder, g_clock, g_settings);
        history.loadClipItems();
        benchmark::DoNotOptimize(history.clipItemArr().data());
    }
}

void firstSearch(benchmark::State &state)
{
    const QString folder = storeOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        ClipHistory history(folder, g_clock, g_settings);
        history.loadClipItems();
        state.ResumeTiming();
        benchmark::DoNotOptimize(history.searchClipItem(QStringLiteral("report")).size());
    }
}

/// Adds to a full history, as most copies do, so that the number of clips stays.
void addCopy(benchmark::State &state)
{
    const int clips = static_cast<int>(state.range(0));
    ClipHistory &history = historyOf(clips);
    g_settings.maxItems = clips;
    static int number = 10'000'000;
    for (auto _ : state) {
        state.PauseTiming();
        const QString text = benchClipText(++number);
        g_clock.advance(std::chrono::seconds(1));
        state.ResumeTiming();
        history.addToClipList({text, std::nullopt, QStringLiteral("Editor"), std::nullopt});
    }
    g_settings.maxItems = 1'000'000;
}

/// What the main thread spends on a copy with 100 KB of HTML, while the rest is done elsewhere.
void addRichCopy(benchmark::State &state)
{
    using Clock = std::chrono::steady_clock;
    ClipHistory &history = historyOf(static_cast<int>(state.range(0)));
    QString html;
    while (html.size() < 100'000)
        html +=
            QStringLiteral("<p>Some <b>words</b> of a <a href=\"https://example.org/\">page</a>,"
                           " as long as they usually are.</p>\n");
    static int number = 20'000'000;
    for (auto _ : state) {
        Clip clip({benchClipText(++number)}, QStringLiteral("Browser"));
        clip.html = html;
        g_clock.advance(std::chrono::seconds(1));
        Clock::duration spent{};
        const auto spend = [&](const auto &work) {
            const auto begun = Clock::now();
            work();
            spent += Clock::now() - begun;
        };
        spend([&] { history.addToClipList(clip); });
        while (!history.clipItemArr().front()->rtfValue()) {
            QThread::msleep(5);
            spend([] { QCoreApplication::processEvents(); });
        }
        state.SetIterationTime(std::chrono::duration<double>(spent).count());
    }
}

void addKnownCopy(benchmark::State &state)
{
    const int clips = static_cast<int>(state.range(0));
    ClipHistory &history = historyOf(clips);
    for (auto _ : state) {
        state.PauseTiming();
        const QString text =
            *history.clipItemArr()[static_cast<std::size_t>(clips / 2)]->strValue();
        g_clock.advance(std::chrono::seconds(1));
        state.ResumeTiming();
        history.addToClipList({text, std::nullopt, QStringLiteral("Editor"), std::nullopt});
    }
}

void search(benchmark::State &state, const char *term)
{
    ClipHistory &history = historyOf(static_cast<int>(state.range(0)));
    const QString text = QString::fromUtf8(term);
    for (auto _ : state)
        history.filterClipItemArr(text);
    state.counters["found"] = static_cast<double>(history.clipItemArr().size());
    history.loadClipItems();
}

void sizes(benchmark::internal::Benchmark *benchmark)
{
    benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(openAndLoad)->Apply(sizes);
BENCHMARK(firstSearch)->Apply(sizes)->Iterations(5);
BENCHMARK_CAPTURE(search, everything, "")->Apply(sizes);
BENCHMARK_CAPTURE(search, oneLetter, "e")->Apply(sizes);
BENCHMARK_CAPTURE(search, twoLetters, "rr")->Apply(sizes);
BENCHMARK_CAPTURE(search, word, "garden password")->Apply(sizes);
BENCHMARK_CAPTURE(search, nothing, "zyx")->Apply(sizes);
BENCHMARK_CAPTURE(search, unicode, "STRAßE")->Apply(sizes);
BENCHMARK_CAPTURE(search, wildcards, "gar?en*in?oice*err")->Apply(sizes);
BENCHMARK(addCopy)->Apply(sizes);
BENCHMARK(addRichCopy)->Apply(sizes)->UseManualTime();
BENCHMARK(addKnownCopy)->Apply(sizes);

} // namespace

int main(int argc, char **argv)
{
    // The document that HTML becomes asks for fonts.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("quillmarsh.history.info=false"));
    g_directory = std::make_unique<QTemporaryDir>();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    g_directory.reset();
    return 0;
}
