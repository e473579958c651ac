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

#include <algorithm>
#include <chrono>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

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

QString evenText(int number)
{
    static const ClipTexts texts(ClipTexts::Sizes::Even);
    return QString::fromStdString(texts.text(static_cast<unsigned>(number)));
}

/// What an argument says of a store's clips.
struct Store
{
    explicit Store(const benchmark::State &state, bool isReal = false)
        : clips(static_cast<int>(state.range(0))), isReal(isReal)
    {
    }

    int clips;
    bool isReal; ///< Of the sizes that people copy.

    bool operator<(const Store &other) const
    {
        return std::pair(clips, isReal) < std::pair(other.clips, other.isReal);
    }
};

/// The folder of such a store, made once.
QString folderOf(const Store &store)
{
    const QString folder = g_directory->filePath(
        (store.isReal ? QStringLiteral("real-%1") : QStringLiteral("even-%1")).arg(store.clips));
    if (QDir(folder).exists())
        return folder;
    // An empty store in the shape that the history gives it.
    ClipHistory(folder, g_clock, g_settings).loadClipItems();
    SQLite::Database database((folder + QStringLiteral("/Quillmarsh.sqlite")).toStdString(),
                              SQLite::OPEN_READWRITE);
    SQLite::Transaction transaction(database);
    SQLite::Statement insertion(
        database, "INSERT INTO ClipItem (strValue, applicationName, createDate) VALUES (?, ?, ?)");
    const ClipTexts texts(store.isReal ? ClipTexts::Sizes::Real : ClipTexts::Sizes::Even);
    for (int i = 0; i < store.clips; ++i) {
        insertion.bind(1, texts.text(static_cast<unsigned>(i)));
        insertion.bind(2, "Editor");
        insertion.bind(3, 1.7e9 + i);
        insertion.exec();
        insertion.reset();
    }
    transaction.commit();
    return folder;
}

/// A loaded and indexed history of them.
ClipHistory &historyOf(const Store &store)
{
    static std::map<Store, std::unique_ptr<ClipHistory>> histories;
    std::unique_ptr<ClipHistory> &history = histories[store];
    if (!history) {
        history = std::make_unique<ClipHistory>(folderOf(store), g_clock, g_settings);
        history->loadClipItems();
        history->searchClipItem(QStringLiteral("index everything"));
    }
    return *history;
}

void openAndLoad(benchmark::State &state)
{
    const QString folder = folderOf(Store(state));
    for (auto _ : state) {
        ClipHistory history(folder, g_clock, g_settings);
        history.loadClipItems();
        benchmark::DoNotOptimize(history.clipItemArr().data());
    }
}

void firstSearch(benchmark::State &state)
{
    const QString folder = folderOf(Store(state));
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
    ClipHistory &history = historyOf(Store(state));
    g_settings.maxItems = clips;
    static int number = 10'000'000;
    for (auto _ : state) {
        state.PauseTiming();
        const QString text = evenText(++number);
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
    ClipHistory &history = historyOf(Store(state));
    QString html;
    while (html.size() < 100'000)
        html +=
            QStringLiteral("<p>Some <b>words</b> of a <a href=\"https://example.org/\">page</a>,"
                           " as long as they usually are.</p>\n");
    static int number = 20'000'000;
    for (auto _ : state) {
        Clip clip({evenText(++number)}, QStringLiteral("Browser"));
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
    ClipHistory &history = historyOf(Store(state));
    for (auto _ : state) {
        state.PauseTiming();
        const QString text =
            *history.clipItemArr()[static_cast<std::size_t>(clips / 2)]->strValue();
        g_clock.advance(std::chrono::seconds(1));
        state.ResumeTiming();
        history.addToClipList({text, std::nullopt, QStringLiteral("Editor"), std::nullopt});
    }
}

/// Each time from nothing, as if the letters had been pasted into the field.
void search(benchmark::State &state, const char *term)
{
    ClipHistory &history = historyOf(Store(state));
    const QString text = QString::fromUtf8(term);
    for (auto _ : state) {
        state.PauseTiming();
        history.searchClipItem(QStringLiteral("\x01"));
        state.ResumeTiming();
        history.filterClipItemArr(text);
    }
    state.counters["found"] = static_cast<double>(history.clipItemArr().size());
    history.loadClipItems();
}

/// Letter by letter in clips of the sizes that people copy; the time is a letter's.
void typing(benchmark::State &state, const char *term)
{
    using Clock = std::chrono::steady_clock;
    ClipHistory &history = historyOf(Store(state, true));
    const QString text = QString::fromUtf8(term);
    Clock::duration longest{};
    for (auto _ : state) {
        history.searchClipItem(QStringLiteral("\x01"));
        const auto begun = Clock::now();
        for (qsizetype letters = 1; letters <= text.size(); ++letters) {
            const auto pressed = Clock::now();
            history.filterClipItemArr(text.left(letters));
            longest = std::max(longest, Clock::now() - pressed);
        }
        const std::chrono::duration<double> spent = Clock::now() - begun;
        state.SetIterationTime(spent.count() / static_cast<double>(text.size()));
    }
    state.counters["found"] = static_cast<double>(history.clipItemArr().size());
    state.counters["longest_ms"] = std::chrono::duration<double, std::milli>(longest).count();
    history.loadClipItems();
}

/// What nobody can beat who looks at all of the text: the same bytes in one piece of memory.
void scan(benchmark::State &state, const char *term)
{
    const ClipTexts texts(ClipTexts::Sizes::Real);
    static std::string all;
    for (unsigned i = 0; all.empty() || i % 100'000 != 0; ++i)
        all += texts.text(i);
    const std::string_view sought(term);
    for (auto _ : state) {
        std::size_t found = 0;
        const char *at = all.data();
        const char *const end = at + all.size();
        while ((at = static_cast<const char *>(::memmem(at, static_cast<std::size_t>(end - at),
                                                        sought.data(), sought.size())))) {
            at += sought.size();
            ++found;
        }
        benchmark::DoNotOptimize(found);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(all.size()));
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
BENCHMARK_CAPTURE(typing, frequent, "the re")
    ->Arg(100'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typing, rare, "zyxw")
    ->Arg(100'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typing, once, "comclaver 4711")
    ->Arg(100'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typing, cyrillic, "при")
    ->Arg(100'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(scan, rare, "zyxw")->Unit(benchmark::kMillisecond);
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
