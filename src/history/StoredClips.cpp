#include "history/StoredClips.h"

#include "history/ClipStore.h"
#include "history/HistoryLog.h"
#include "history/KeptPictures.h"

#include <QFileInfo>

bool StoredClips::clear(const QString &storeFolder)
{
    if (!QFileInfo::exists(storeFolder + QStringLiteral("/Quillmarsh.sqlite")))
        return true;
    ClipStore store(storeFolder);
    const std::optional<std::vector<ClipStore::Row>> rows = store.readRows();
    if (!rows)
        return false;
    std::vector<qint64> pks;
    pks.reserve(rows->size());
    for (const ClipStore::Row &row : *rows)
        pks.push_back(row.pk);
    std::vector<ClipChange> nothing;
    if (const std::optional<StoreError> error = store.write(nothing, pks)) {
        qCCritical(lcHistory).noquote() << error->logLine();
        return false;
    }
    KeptPictures(storeFolder).removeAllBut({});
    // What the deleted clips leave in the files goes with them.
    store.vacuum();
    if (store.emptyLog())
        return true;
    qCCritical(lcHistory, "the deleted clips are still in the store's log: another program reads");
    return false;
}
