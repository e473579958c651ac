// How clips leave the history, and come back.

#include "history/CaptureSettings.h"
#include "history/ClipHistory.h"
#include "history/ClipItem.h"
#include "history/ClipSearch.h"
#include "history/HistoryLog.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace {

bool isNewer(const std::shared_ptr<ClipItem> &one, const std::shared_ptr<ClipItem> &other)
{
    return one->isNewerThan(*other);
}

} // namespace

void ClipHistory::forget(const std::shared_ptr<ClipItem> &item)
{
    m_mayPicturesBeGone |= item->hasFilepath();
    if (item == m_lastClipItem)
        m_context.keepText(item);
    m_context.remove(item);
    m_index.remove(*item);
}

/// Before they are deleted. What cannot be read whole is not held at all.
void ClipHistory::hold(const Items &items)
{
    std::optional<std::vector<ClipChange>> clips =
        m_context.records(items, m_deletedClips.mostBytes());
    if (!clips) {
        m_deletedClips.lose();
        return;
    }
    const bool isWhole = holdPictures(*clips);
    m_deletedClips.push({std::move(*clips), static_cast<qint64>(m_history.size()),
                         m_settings.getMaxItems(), isWhole});
}

/// Their files go with the clips, so that the bytes are all that is left of them. Clips whose
/// pictures are too much to be held are not held either; false when there are such.
bool ClipHistory::holdPictures(std::vector<ClipChange> &clips) const
{
    const qint64 mostBytes = m_deletedClips.mostBytes() / 2;
    qint64 bytes = 0;
    const auto isPicture = [this](const ClipChange &deleted) {
        const std::optional<QString> path = deleted.clip->filepath();
        return path && m_pictures.isOurs(*path);
    };
    for (ClipChange &deleted : clips) {
        if (!isPicture(deleted) || bytes > mostBytes)
            continue;
        deleted.clip->picture = m_pictures.read(*deleted.clip->filepath());
        bytes += deleted.clip->picture.size();
    }
    return std::erase_if(clips, [&](const ClipChange &deleted) {
               return isPicture(deleted) && deleted.clip->picture.isEmpty();
           }) == 0;
}

void ClipHistory::deleteItems(Items items)
{
    const Items &shown = clipItemArr();
    std::erase_if(items, [&](const std::shared_ptr<ClipItem> &item) {
        return std::find(shown.begin(), shown.end(), item) == shown.end();
    });
    deleteClips(items);
}

void ClipHistory::deleteClips(const Items &items)
{
    if (items.empty() || refusesChange())
        return;
    hold(items);
    for (const std::shared_ptr<ClipItem> &deleted : items)
        forget(deleted);
    const auto isGone = [](const std::shared_ptr<ClipItem> &item) { return !item->isInHistory(); };
    std::erase_if(m_history, isGone);
    std::erase_if(m_found, isGone);
    m_search.reset();
    saveContext();
    dropPictures();
    emptyLogSoon();
    Q_EMIT clipItemArrChanged();
}

void ClipHistory::clearAll()
{
    if (refusesChange())
        return;
    m_pictures.giveUp();
    // What a search hides goes too, and what another program has added.
    loadClipItems();
    hold(m_history);
    deleteAndLoad(Items(m_history));
    m_context.store().vacuum();
    emptyLog();
}

void ClipHistory::maxItemsModified(qint64 maxItems)
{
    if (refusesChange())
        return;
    // Another program may have pinned some.
    loadForeignChanges();
    const Items &shown = clipItemArr();
    const auto kept =
        std::min(shown.size(), static_cast<std::size_t>(std::max<qint64>(maxItems, 0)));
    Items items(shown.begin() + static_cast<std::ptrdiff_t>(kept), shown.end());
    std::erase_if(items, [this](const std::shared_ptr<ClipItem> &item) {
        return item->isPinned() || !m_context.store().arePinsKnown();
    });
    deleteAndLoad(items);
}

void ClipHistory::deleteAndLoad(const Items &items)
{
    for (const std::shared_ptr<ClipItem> &item : items)
        forget(item);
    std::erase_if(m_history,
                  [](const std::shared_ptr<ClipItem> &item) { return !item->isInHistory(); });
    saveContext();
    dropPictures();
    loadClipItems();
    if (!items.empty())
        emptyLog();
}

/// Whether a clip with the same text was recorded since the deletion: had there been none, it would
/// be the deleted one, which it becomes.
bool ClipHistory::isThereAgain(const ClipChange &deleted)
{
    const std::shared_ptr<ClipItem> item = deleted.clip->text && !m_history.empty()
                                               ? newestLike(*deleted.clip->text, &*deleted.clip)
                                               : nullptr;
    if (!item)
        return false;
    if (deleted.isPinned)
        m_context.setPinned(item, true);
    if (deleted.pasteCount && !item->pasteCount())
        m_context.setPasteCount(item, *deleted.pasteCount);
    return true;
}

BroughtBack ClipHistory::bringBack()
{
    if (m_deletedClips.count() == 0 || refusesChange())
        return {};
    loadClipItems();
    DeletedClips::Step step = m_deletedClips.takeLatest();
    Items restored;
    for (const ClipChange &deleted : step.clips) {
        if (!isThereAgain(deleted))
            restored.push_back(m_context.restore(deleted));
    }
    step.clips = trimmed(restored, step);
    for (const std::shared_ptr<ClipItem> &item : restored) {
        m_hasTextless = m_hasTextless || !item->hasText();
        if (item->hasText())
            m_index.add(*item, *item->strValue());
        else
            m_index.remove(*item);
    }
    for (const std::shared_ptr<ClipItem> &item : restored) {
        const Clip clip = item->clip();
        if (!clip.picture.isEmpty() && !m_pictures.restore(*clip.filepath(), clip.picture))
            qCWarning(lcHistory, "A picture that was deleted could not be brought back");
    }
    m_history.insert(m_history.end(), restored.begin(), restored.end());
    // The keys that clips get when they are saved are a part of their order.
    saveContext();
    dropPictures();
    std::sort(m_history.begin(), m_history.end(), isNewer);
    const BroughtBack result{
        restored.empty() ? nullptr : *std::min_element(restored.begin(), restored.end(), isNewer),
        m_settings.getMaxItems(), static_cast<int>(step.clips.size())};
    m_deletedClips.putBehind(std::move(step));
    loadClipItems();
    return result;
}

/// Leaves of history and `restored` together what would be there without the deletion of `step`:
/// a limit that was lowered since, and what was copied, have taken the oldest. Gives back what of
/// `restored` is among those.
std::vector<ClipChange> ClipHistory::trimmed(Items &restored, const DeletedClips::Step &step)
{
    const qint64 limit = m_settings.getMaxItems();
    const qint64 most = limit < step.maxItems ? limit : std::max(limit, step.count);
    Items all = m_history;
    all.insert(all.end(), restored.begin(), restored.end());
    std::sort(all.begin(), all.end(), isNewer);
    const std::unordered_set<std::shared_ptr<ClipItem>> returning(restored.begin(), restored.end());
    qint64 excess = static_cast<qint64>(all.size()) - most;
    std::vector<ClipChange> unfit;
    for (auto item = all.rbegin(); item != all.rend() && excess > 0; ++item) {
        const bool isReturning = returning.contains(*item);
        if ((*item)->isPinned() || (!isReturning && !m_context.store().arePinsKnown()))
            continue;
        --excess;
        if (isReturning) {
            unfit.push_back(m_context.withdraw(*item));
        } else {
            forget(*item);
            emptyLogLater();
        }
    }
    const auto isGone = [](const std::shared_ptr<ClipItem> &item) { return !item->isInHistory(); };
    std::erase_if(m_history, isGone);
    std::erase_if(restored, isGone);
    return unfit;
}
