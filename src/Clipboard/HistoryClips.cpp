#include "Clipboard/HistoryClips.h"

#include "history/CaptureSettings.h"
#include "history/ClipHistory.h"
#include "history/ClipItem.h"

#include <QSet>
#include <QStringDecoder>

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <utility>

namespace {

SharedClip shared(const ClipItem &item)
{
    SharedClip clip;
    const Clip stored = item.clip();
    static_cast<Copy &>(clip) = stored;
    clip.id = item.recordKey();
    clip.applicationName = stored.applicationName;
    if (!std::isnan(item.createSeconds()))
        clip.createSeconds = item.createSeconds();
    clip.pasteCount = item.pasteCount();
    return clip;
}

/// What the store is to keep of a clip that has a text.
ClipChange stored(const SharedClip &clip)
{
    ClipChange change;
    change.clip = Clip(clip, clip.applicationName);
    change.clip->fileNames = clip.fileNames.mid(0, 1);
    change.clip->html.reset();
    const double date = clip.createSeconds.value_or(std::numeric_limits<double>::quiet_NaN());
    change.createDate =
        std::abs(date) <= ClipStore::kMaxDate ? date : std::numeric_limits<double>::quiet_NaN();
    change.pasteCount = clip.pasteCount;
    return change;
}

} // namespace

HistoryClips::HistoryClips(ClipHistory &history, Application application)
    : m_history(history), m_application(std::move(application))
{
}

SharedClips::Answer<QList<qlonglong>> HistoryClips::find(const QString &term)
{
    if (m_application.catchUp)
        m_application.catchUp();
    const ClipHistory::Items found =
        term.isEmpty() ? m_history.everyClip() : m_history.searchClipItem(term);
    QList<qlonglong> ids;
    ids.reserve(static_cast<qsizetype>(found.size()));
    for (const std::shared_ptr<ClipItem> &item : found) {
        // What the disk has refused so far has no record to be named by.
        if (item->recordKey() != 0)
            ids.append(item->recordKey());
    }
    return {ids};
}

ClipHistory::Items HistoryClips::itemsOf(const QList<qlonglong> &ids)
{
    const ClipHistory::Items &all = m_history.everyClip();
    ClipHistory::Items items;
    items.reserve(static_cast<std::size_t>(ids.size()));
    // A list is asked for in its order, part after part: one walk finds all of a part.
    auto next = all.begin();
    auto id = ids.begin();
    for (; id != ids.end(); ++id) {
        next = std::find_if(next, all.end(), [id](const std::shared_ptr<ClipItem> &item) {
            return *id != 0 && item->recordKey() == *id;
        });
        if (next == all.end())
            break;
        items.push_back(*next++);
    }
    if (id == ids.end())
        return items;
    std::unordered_map<qint64, std::shared_ptr<ClipItem>> byKey;
    byKey.reserve(all.size());
    for (const std::shared_ptr<ClipItem> &item : all)
        byKey.emplace(item->recordKey(), item);
    byKey.erase(0);
    for (; id != ids.end(); ++id) {
        const auto found = byKey.find(*id);
        if (found != byKey.end())
            items.push_back(found->second);
    }
    return items;
}

SharedClips::Answer<QList<SharedClips::Line>> HistoryClips::lines(const QList<qlonglong> &ids)
{
    ClipContext &context = m_history.managedObjectContext();
    Answer<QList<Line>> lines;
    lines.value.reserve(ids.size());
    for (const std::shared_ptr<ClipItem> &item : itemsOf(ids))
        lines.value.append({item->recordKey(), context.plainLine(*item, kLineLength)});
    context.closeText();
    return lines;
}

SharedClips::Answer<QList<SharedClip>> HistoryClips::clips(const QList<qlonglong> &ids)
{
    Answer<QList<SharedClip>> clips;
    qint64 bytes = 0;
    for (const std::shared_ptr<ClipItem> &item : itemsOf(ids)) {
        SharedClip clip = shared(*item);
        bytes += clip.bytes();
        if (bytes > kMaxHandedOver && !clips.value.isEmpty())
            break;
        clips.value.append(std::move(clip));
    }
    return clips;
}

SharedClips::Fault HistoryClips::copy(const QByteArray &utf8)
{
    if (!m_application.copy)
        return Fault::Nobody;
    auto decoder =
        QStringDecoder(QStringDecoder::Utf8,
                       QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QString text = decoder(utf8);
    if (text.isEmpty() || decoder.hasError())
        return Fault::NotText;
    if (utf8.size() > m_history.settings().getMaxStringSize())
        return Fault::TooLarge;
    return m_application.copy(text) ? Fault::None : Fault::Unwritable;
}

SharedClips::Fault HistoryClips::paste(qint64 id)
{
    if (!m_application.paste)
        return Fault::Nobody;
    const ClipHistory::Items items = itemsOf({id});
    if (items.empty())
        return Fault::NoSuchClip;
    m_application.paste(items.front());
    return Fault::None;
}

SharedClips::Answer<qint64> HistoryClips::remove(const QList<qlonglong> &ids)
{
    const ClipHistory::Items items = itemsOf(ids);
    if (items.empty())
        return {0, Fault::NoSuchClip};
    if (!m_history.canChange())
        return {0, Fault::Unwritable};
    m_history.deleteClips(items);
    return {static_cast<qint64>(items.size())};
}

SharedClips::Answer<SharedClips::Room> HistoryClips::room()
{
    const CaptureSettings &settings = m_history.settings();
    return {{static_cast<qint64>(m_history.everyClip().size()), settings.getMaxItems(),
             settings.getMaxStringSize()}};
}

SharedClips::Answer<SharedClips::Added> HistoryClips::add(const QList<SharedClip> &clips,
                                                          bool onlyCount)
{
    const Room room = this->room().value;
    Added added;
    QSet<QString> texts;
    std::vector<ClipChange> changes;
    for (const SharedClip &offered : clips) {
        SharedClip clip = offered;
        clip.text = offered.withText().text;
        if (ClipHistory::isNilOrEmpty(clip.text))
            continue;
        if (clip.text->toUtf8().size() > room.largestText)
            ++added.tooLarge;
        else if (texts.contains(*clip.text) || m_history.hasText(*clip.text))
            ++added.known;
        else if (room.clips + added.added >= room.limit)
            ++added.noRoom;
        else {
            ++added.added;
            texts.insert(*clip.text);
            changes.push_back(stored(clip));
        }
    }
    if (onlyCount || changes.empty())
        return {added};
    if (!m_history.canChange() || !m_history.bringIn(changes))
        return {{}, Fault::Unwritable};
    return {added};
}
