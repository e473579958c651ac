/// The feed of updates, before anybody's signature was looked at. Kept inputs:
/// tests/data/fuzz/feed.

#include "fuzz/Demand.h"
#include "updates/updater/UpdateFeed.h"

#include <algorithm>

namespace {

void saySilently(QtMsgType, const QMessageLogContext &, const QString &) {}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    qInstallMessageHandler(saySilently);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const auto read = UpdateFeed::parse(Input(data, size).rest());
    const auto *items = std::get_if<QList<UpdateItem>>(&read);
    if (!items) {
        demand(!std::get<QString>(read).isEmpty(), "a refusal says why");
        return 0;
    }
    demand(std::none_of(items->begin(), items->end(),
                        [](const UpdateItem &item) { return UpdateFeed::faultOf(item); }),
           "an item without what it needs refuses the feed");
    for (const bool withAll : {false, true}) {
        const UpdateFeed::Wanted wanted{QStringLiteral("1.0.0"),
                                        QStringLiteral("2.36"),
                                        QStringLiteral("prefix"),
                                        QStringLiteral("x86_64"),
                                        withAll,
                                        withAll};
        const UpdateItem *newest = UpdateFeed::newest(*items, wanted);
        demand(!newest || (newest->kind == wanted.kind && newest->machine == wanted.machine),
               "what is chosen is for this machine");
    }
    return 0;
}
