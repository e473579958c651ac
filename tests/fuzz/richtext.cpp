/// HTML and RTF, read and written. The first byte says what the input is: HTML, RTF, or HTML behind
/// its length in two bytes and the RTF of the same copy. Kept inputs: tests/data/fuzz/richtext.

#include "platform/richtext/RichText.h"
#include "fuzz/Demand.h"
#include "platform/richtext/RichTextDocument.h"
#include "platform/richtext/RtfReader.h"

#include <QGuiApplication>

namespace {

/// Of a preview; small, so that its bounds are met.
constexpr qsizetype kShown = 4'000;

void saySilently(QtMsgType, const QMessageLogContext &, const QString &) {}

void checkShown(const QByteArray &rtf)
{
    const auto document = RichTextDocument::of(rtf, kShown);
    demand(!document || document->characterCount() < kShown * 4, "a document is bounded");
    const auto html = RtfReader::htmlOf(rtf, kShown);
    demand(!html || html->size() < kShown * 64 + rtf.size(), "HTML of RTF is bounded");
    static_cast<void>(RichText::htmlOf(rtf));
}

void checkHtml(const QByteArray &html)
{
    const auto rtf = RichText::withHtml(html, std::nullopt);
    demand(rtf.has_value() == !html.isEmpty(), "any HTML can be carried");
    if (!rtf)
        return;
    demand(RichText::carriedHtml(*rtf) == html, "the very bytes come back");
    demand(rtf->size() < html.size() * 64 + 8'192, "carried HTML is bounded");
    demand(RichText::withHtml(html, rtf) == rtf, "what is carried already is not added again");
    checkShown(*rtf);
}

void checkBoth(const QByteArray &html, const QByteArray &rtf)
{
    const auto both = RichText::withHtml(html, rtf);
    if (!both)
        return;
    demand(RichText::carriedHtml(*both) == html, "the HTML comes back from beside the RTF");
    demand(both->size() <= rtf.size() + html.size() * 12 + 256, "it takes little room there");
    checkShown(*both);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(saySilently);
    new QGuiApplication(*argc, *argv); // For as long as the program runs.
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Input input(data, size);
    switch (input.byte() % 3) {
    case 0:
        checkHtml(input.rest());
        break;
    case 1:
        checkShown(input.rest());
        break;
    default:
        const QByteArray html = input.bytes(input.number());
        checkBoth(html, input.rest());
    }
    return 0;
}
