#include "history/ClipHistory.h"

#include "history/CaptureSettings.h"
#include "history/ClipItem.h"
#include "history/ClipSearch.h"
#include "history/HistoryLog.h"
#include "platform/Clock.h"

#include <QDeadlineTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <iterator>
#include <utility>

using namespace std::chrono_literals;

namespace {

/// Shorter than a frame, so that work while idle is never seen.
constexpr auto kIdleSlice = 4ms;
constexpr auto kLogDelay = 1min;
/// Before what could not be saved is tried again, and each time twice as long.
constexpr auto kFirstSaveDelay = 1s;
constexpr std::chrono::seconds kLastSaveDelay = 1min;
/// After so long without a copy a long text is not about to be asked for again.
constexpr auto kTextRest = 30s;
/// Longer than between two deletions by a key that is held down.
constexpr auto kDeletionRest = 300ms;
/// So much of a search is done before anything else, in bytes of text in memory: what takes half a
/// frame. Not by time, so that the same search of the same history ends in the same way.
constexpr qint64 kSearchAtOnce = 32 * 1024 * 1024;

constexpr auto kNeverLate = [](qint64) { return false; };

bool isNewer(const std::shared_ptr<ClipItem> &one, const std::shared_ptr<ClipItem> &other)
{
    return one->isNewerThan(*other);
}

} // namespace

ClipHistory::ClipHistory(const QString &storeFolder, Clock &clock, CaptureSettings &settings)
    : m_clock(clock), m_settings(settings), m_context(storeFolder), m_index(m_context),
      m_pictures(storeFolder), m_saveDelay(kFirstSaveDelay)
{
    m_idleTimer.setInterval(0);
    connect(&m_idleTimer, &QTimer::timeout, this, &ClipHistory::workWhileIdle);
    m_textTimer.setSingleShot(true);
    m_textTimer.setInterval(kTextRest);
    connect(&m_textTimer, &QTimer::timeout, this, [this] { m_context.forgetLongText(); });
    m_logTimer.setSingleShot(true);
    connect(&m_logTimer, &QTimer::timeout, this, &ClipHistory::emptyLog);
    m_saveTimer.setSingleShot(true);
    connect(&m_saveTimer, &QTimer::timeout, this, &ClipHistory::saveAgain);
}

ClipHistory::~ClipHistory() = default;

void ClipHistory::loadClipItems()
{
    if (!m_isFetched || m_context.isChangedByOthers())
        fetch();
    m_search.reset();
    m_found.clear();
    m_shown = &m_history;
    m_lastClipItem = m_history.empty() ? nullptr : m_history.front();
    Q_EMIT clipItemArrChanged();
}

void ClipHistory::loadForeignChanges()
{
    if (m_isFetched && m_context.isChangedByOthers())
        loadClipItems();
}

/// Reads the records; from then on the list in memory is what the store holds and what is not saved
/// yet, until another program changes the store. Records that could not be read are asked for again
/// by the next load.
void ClipHistory::fetch()
{
    std::optional<ClipContext::Fetched> fetched = m_context.fetch(m_history);
    if (!fetched)
        return;
    m_isFetched = true;
    for (const std::shared_ptr<ClipItem> &item : fetched->gone) {
        m_context.letGo(item);
        m_index.remove(*item);
        m_mayPicturesBeGone |= item->hasFilepath();
    }
    m_history.assign(std::make_move_iterator(fetched->items.rbegin()),
                     std::make_move_iterator(fetched->items.rend()));
    m_hasTextless =
        !std::all_of(m_history.begin(), m_history.end(),
                     [](const std::shared_ptr<ClipItem> &item) { return item->hasText(); });
    if (!std::is_sorted(m_history.begin(), m_history.end(), isNewer))
        std::sort(m_history.begin(), m_history.end(), isNewer);
    m_index.enqueue(m_history);
    m_idleTimer.start();
}

void ClipHistory::workWhileIdle()
{
    const auto isLate = [slice = QDeadlineTimer(kIdleSlice)](qint64) { return slice.hasExpired(); };
    if (m_search) {
        if (!m_search->work(isLate))
            return;
        showFound();
        if (m_index.isComplete())
            m_idleTimer.stop();
        Q_EMIT searched();
        return;
    }
    if (m_isWindowOpen) {
        m_idleTimer.stop();
        return;
    }
    m_index.work(isLate);
    if (!m_index.isComplete())
        return;
    m_idleTimer.stop();
    if (std::exchange(m_isLogEmpty, false))
        m_context.store().prepareLog();
    dropPictures();
}

void ClipHistory::windowOpens()
{
    m_isWindowOpen = true;
    m_deletedClips.windowOpens();
}

void ClipHistory::windowCloses()
{
    m_isWindowOpen = false;
    m_deletedClips.windowCloses();
    m_textTimer.start();
    if (m_isFetched)
        m_idleTimer.start();
}

void ClipHistory::emptyLog()
{
    m_isLogEmpty = m_context.store().emptyLog();
    if (m_isLogEmpty)
        m_idleTimer.start();
    else
        m_logTimer.start(kLogDelay);
}

void ClipHistory::emptyLogLater()
{
    if (!m_logTimer.isActive())
        m_logTimer.start(kLogDelay);
}

/// Not at each of many deletions, because it waits for the disk.
void ClipHistory::emptyLogSoon()
{
    m_logTimer.start(kDeletionRest);
}

void ClipHistory::saveContext()
{
    m_context.save();
    if (!m_context.hasChanges()) {
        m_saveTimer.stop();
        m_saveDelay = kFirstSaveDelay;
    } else if (!m_saveTimer.isActive()) {
        m_saveTimer.start(m_saveDelay);
        m_saveDelay = std::min(m_saveDelay * 2, kLastSaveDelay);
    }
}

/// A disk that was full has room again, or another program has let go of the store.
void ClipHistory::saveAgain()
{
    saveContext();
    if (m_context.hasChanges())
        return;
    loadForeignChanges();
    // What was deleted then has left its traces behind until now.
    m_mayPicturesBeGone = true;
    dropPictures();
    emptyLog();
}

bool ClipHistory::isNilOrEmpty(const std::optional<QString> &text)
{
    return !text || text->isEmpty();
}

bool ClipHistory::refusesChange()
{
    if (!isReadOnly())
        return false;
    qCWarning(lcHistory, "The history cannot be written, so it stays as it is");
    return true;
}

void ClipHistory::addToClipList(const Clip &clip)
{
    if (isNilOrEmpty(clip.text) || refusesChange())
        return;
    add(clip, std::nullopt);
}

void ClipHistory::addPicture(const Clip &clip)
{
    if (refusesChange())
        return;
    loadForeignChanges();
    if (!m_isFetched)
        fetch();
    const double date = stamp();
    m_pictures.keep(clip.picture, m_settings.getMaxPictureSize(),
                    [this, date, application = clip.applicationName](const PictureFile &file) {
                        if (file.fault != PictureFile::Fault::None) {
                            Q_EMIT pictureRefused(file);
                            return;
                        }
                        const QString text =
                            tr("Picture %1 × %2").arg(file.size.width()).arg(file.size.height());
                        add(Clip(text, {}, application, file.path), date);
                    });
}

/// Removes the files of pictures whose clips are gone, in whatever way they went, once the store
/// knows them no more.
void ClipHistory::dropPictures()
{
    if (!m_mayPicturesBeGone || isReadOnly())
        return;
    m_mayPicturesBeGone = false;
    if (m_pictures.isEmpty())
        return;
    const std::optional<QStringList> stored = m_context.store().readFilepaths();
    if (!stored) {
        m_mayPicturesBeGone = true;
        return;
    }
    QStringList known = *stored;
    for (const std::shared_ptr<ClipItem> &item : m_history) {
        if (item->hasFilepath() && item->isUnsaved())
            known.append(item->filepath().value_or(QString()));
    }
    m_pictures.removeAllBut(known);
}

/// As copied at that moment, in seconds since 1970 UTC, or now.
void ClipHistory::add(const Clip &clip, std::optional<double> copied)
{
    // A text whose record another program has removed is no repeat.
    loadForeignChanges();
    if (!m_isFetched)
        fetch();
    // Half a surrogate pair would be stored as another text than the one that was compared.
    const QString text =
        clip.text->isValidUtf16() ? *clip.text : QString::fromUtf8(clip.text->toUtf8());
    if (m_lastClipItem && isRepeat(*m_lastClipItem, text, clip))
        return;

    std::shared_ptr<ClipItem> item = newestLike(text, &clip);
    const bool isNew = !item;
    if (isNew)
        item = m_context.insert();
    else
        qCInfo(lcHistory, "updating");
    const double date = copied ? *copied : stamp();
    if (!isNew)
        std::erase(m_history, item);
    Clip recorded = clip;
    recorded.text = text;
    recorded.fileNames = clip.fileNames.mid(0, 1);
    recorded.html.reset();
    recorded.picture.clear();
    m_context.setClip(item, recorded, date);
    if (isNew)
        m_index.add(*item, text);
    putInOrder(item);
    setShortText(item);
    saveContext();

    // Counted before the addition, and in what a search shows while one is shown: exactly one
    // clip goes, also when this one was there already. Deliberate.
    const qint64 shown =
        static_cast<qint64>(clipItemArr().size()) - (m_shown == &m_history && isNew ? 1 : 0);
    if (shown >= m_settings.getMaxItems())
        removeOldest(item);
    saveContext();
    dropPictures();
    loadClipItems();
    m_textTimer.start();
    keepHtml(clip, item);
}

const ClipHistory::Items &ClipHistory::everyClip()
{
    if (!m_isFetched)
        fetch();
    return m_history;
}

bool ClipHistory::bringIn(const std::vector<ClipChange> &clips)
{
    if (refusesChange())
        return false;
    everyClip();
    // From the last on, because of one date the later record counts as the newer.
    for (auto change = clips.rbegin(); change != clips.rend(); ++change) {
        const std::shared_ptr<ClipItem> item = m_context.insert();
        m_context.setClip(item, *change->clip, change->createDate);
        if (change->pasteCount)
            m_context.setPasteCount(item, *change->pasteCount);
        m_index.add(*item, *change->clip->text);
        putInOrder(item);
    }
    saveContext();
    loadClipItems();
    return !m_context.hasChanges();
}

void ClipHistory::keepHtml(const Clip &clip, const std::shared_ptr<ClipItem> &item)
{
    if (!clip.html)
        return;
    m_richTextMaker.make(
        *clip.html, clip.rtf,
        [this, weak = std::weak_ptr(item), date = item->createSeconds()](const QString &rtf) {
            const std::shared_ptr<ClipItem> recorded = weak.lock();
            // Copied again meanwhile, it may have come without.
            if (!recorded || !recorded->isInHistory() || recorded->createSeconds() != date)
                return;
            Clip whole = recorded->clip();
            whole.rtf = rtf;
            m_context.setClip(recorded, whole, date);
            saveContext();
            Q_EMIT clipItemArrChanged();
        });
}

/// The moment that an addition gets: never older than the newest clip, whatever the clock was set
/// to, because the newest copy is the one at the top, and the oldest is the next to go.
double ClipHistory::stamp() const
{
    constexpr double kStep = 1e-6;
    const double now = static_cast<double>(m_clock.now().toMSecsSinceEpoch()) / 1000;
    const double newest = m_history.empty() ? now : m_history.front()->createSeconds();
    if (m_history.empty() || !(newest >= now))
        return now;
    return std::max(newest + kStep, std::nextafter(newest, ClipStore::kMaxDate));
}

/// Pictures of one size have one text, so it is the file that tells them apart.
bool ClipHistory::isRepeat(const ClipItem &item, const QString &text, const Clip &clip) const
{
    const auto picture = [this](const std::optional<QString> &path) {
        return path && m_pictures.isOurs(*path) ? *path : QString();
    };
    return item.strValue() == text && picture(item.filepath()) == picture(clip.filepath());
}

/// With that text, and a repeat of that clip where one is given.
std::shared_ptr<ClipItem> ClipHistory::newestLike(const QString &text, const Clip *clip)
{
    m_index.finish();
    const std::size_t hash = ClipIndex::hashOf(text.toUtf8());
    const auto found = std::find_if(
        m_history.begin(), m_history.end(), [&](const std::shared_ptr<ClipItem> &item) {
            return m_index.mayEqual(*item, hash) &&
                   (clip ? isRepeat(*item, text, *clip) : item->strValue() == text);
        });
    return found == m_history.end() ? nullptr : *found;
}

void ClipHistory::putInOrder(const std::shared_ptr<ClipItem> &item)
{
    m_history.insert(std::lower_bound(m_history.begin(), m_history.end(), item, isNewer), item);
}

/// Pinned clips are passed over, and what was just added stays.
void ClipHistory::removeOldest(const std::shared_ptr<ClipItem> &added)
{
    // While the store does not tell its pins, any clip may be pinned.
    if (!m_context.store().arePinsKnown())
        return;
    const auto found =
        std::find_if(m_history.rbegin(), m_history.rend(),
                     [](const std::shared_ptr<ClipItem> &item) { return !item->isPinned(); });
    if (found == m_history.rend() || *found == added)
        return;
    const std::shared_ptr<ClipItem> oldest = *found;
    m_history.erase(std::next(found).base());
    forget(oldest);
    emptyLogLater();
}

void ClipHistory::setPinned(const Items &items, bool isPinned)
{
    if (refusesChange())
        return;
    for (const std::shared_ptr<ClipItem> &item : items) {
        if (item->isInHistory())
            m_context.setPinned(item, isPinned);
    }
    saveContext();
    Q_EMIT clipItemArrChanged();
}

void ClipHistory::filterClipItemArr(const std::optional<QString> &searchText)
{
    if (searchText && !beginSearch(*searchText))
        finishSearch();
}

bool ClipHistory::beginSearch(const QString &searchText)
{
    if (!m_isFetched)
        fetch();
    m_search.reset();
    // An empty search needs no look at clips to know that it finds everything.
    if (searchText.isEmpty() && !m_hasTextless && !m_isPinnedOnly) {
        m_found.clear();
        m_shown = &m_history;
        Q_EMIT clipItemArrChanged();
        return true;
    }
    m_search = std::make_unique<ClipSearch>(m_index, m_history, searchText, m_isPinnedOnly);
    const bool isDone = m_search->work(
        [all = qint64(0)](qint64 done) mutable { return (all += done) > kSearchAtOnce; });
    if (!isDone) {
        m_idleTimer.start();
        return false;
    }
    showFound();
    Q_EMIT clipItemArrChanged();
    return true;
}

void ClipHistory::finishSearch()
{
    if (!m_search)
        return;
    m_search->work(kNeverLate);
    showFound();
    Q_EMIT clipItemArrChanged();
}

void ClipHistory::showFound()
{
    // A search that finds everything shows the history itself.
    Items found = m_search->takeFound();
    m_search.reset();
    const bool isNarrow = found.size() != m_history.size();
    m_found = isNarrow ? std::move(found) : Items();
    m_shown = isNarrow ? &m_found : &m_history;
}

ClipHistory::Items ClipHistory::searchClipItem(const QString &searchText)
{
    if (!m_isFetched)
        fetch();
    ClipSearch search(m_index, m_history, searchText, false);
    search.work(kNeverLate);
    return search.takeFound();
}

void ClipHistory::setShortText(const std::shared_ptr<ClipItem> &item)
{
    m_context.forgetShortText(*item);
}

void ClipHistory::countPaste(const std::shared_ptr<ClipItem> &item)
{
    if (isReadOnly())
        return;
    // A first paste counts as 0, so a clip pasted n times reads n - 1. Deliberate: the stored
    // histories that exist count so. The count is 32 bits wide and wraps.
    const std::optional<qint32> count = item->pasteCount();
    m_context.setPasteCount(item,
                            count ? static_cast<qint32>(static_cast<quint32>(*count) + 1) : 0);
    saveContext();
}
