/// Times rich text both ways: HTML into RTF, the bytes out again, HTML made of the RTF, and the
/// document that is shown of it. Each with 100 KB of a page as browsers copy it, and of a sheet.

#include "platform/richtext/RichText.h"
#include "platform/richtext/RichTextDocument.h"
#include "platform/richtext/RtfReader.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

namespace {

constexpr qsizetype kBytes = 100'000;
constexpr qsizetype kMaxShown = 20'000;

QByteArray page()
{
    QByteArray html("<meta http-equiv=\"content-type\" content=\"text/html; charset=utf-8\">");
    for (int number = 1; html.size() < kBytes; ++number)
        html += "<h2>Heading " + QByteArray::number(number) +
                "</h2><p style=\"color: rgb(32, 33, 34); font-size: 16px; text-align: start\">Some "
                "words of a page, with <a href=\"https://example.org/" +
                QByteArray::number(number) +
                "\">a link</a>, and <b>more of them</b> behind it, until the line ends at last."
                "</p>\n<ul><li>One of a list</li><li>and another</li></ul>";
    return html;
}

QByteArray sheet()
{
    QByteArray html("<table>");
    for (int number = 1; html.size() < kBytes; ++number)
        html += "<tr><td align=\"left\">row</td><td align=\"right\"><b>" +
                QByteArray::number(number) + "</b></td></tr>\n";
    return html + "</table>";
}

QByteArray source(const benchmark::State &state)
{
    return state.range(0) == 0 ? page() : sheet();
}

void htmlIntoRtf(benchmark::State &state)
{
    const QByteArray html = source(state);
    qsizetype size = 0;
    for (auto _ : state)
        size = RichText::withHtml(html, std::nullopt)->size();
    state.counters["times the HTML"] = double(size) / double(html.size());
}

void carriedHtml(benchmark::State &state)
{
    const QByteArray rtf = *RichText::withHtml(source(state), std::nullopt);
    for (auto _ : state)
        benchmark::DoNotOptimize(RichText::htmlOf(rtf));
}

void htmlOfRtf(benchmark::State &state)
{
    const QByteArray rtf = *RichText::withHtml(source(state), std::nullopt);
    for (auto _ : state)
        benchmark::DoNotOptimize(RtfReader::htmlOf(rtf));
}

void documentShown(benchmark::State &state)
{
    const QByteArray rtf = *RichText::withHtml(source(state), std::nullopt);
    for (auto _ : state)
        benchmark::DoNotOptimize(RichTextDocument::of(rtf, kMaxShown));
}

BENCHMARK(htmlIntoRtf)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);
BENCHMARK(carriedHtml)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);
BENCHMARK(htmlOfRtf)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);
BENCHMARK(documentShown)->DenseRange(0, 1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
