#include "history/ClipIndex.h"

#include "history/ClipItem.h"
#include "history/FoldedText.h"
#include "history/SearchPattern.h"

#include <QHashFunctions>

#include <algorithm>
#include <string_view>

namespace {

constexpr qint64 kMaxFolded = 1024 * 1024;      // bytes of one text
constexpr qint64 kAllFolded = 32 * 1024 * 1024; // bytes of all texts
constexpr qsizetype kHashedBytes = 4 * 1024;    // of a text's beginning
constexpr int kItemsBetweenLooks = 32;

std::size_t hashOfStart(QByteArrayView start, qint64 size)
{
    return qHashBits(start.data(), static_cast<std::size_t>(std::min(start.size(), kHashedBytes)),
                     static_cast<std::size_t>(size));
}

} // namespace

void ClipIndex::enqueue(const ClipContext::Items &items)
{
    m_queue = items;
    m_next = 0;
    for (const std::shared_ptr<ClipItem> &item : items) {
        // One that is not saved is known, and by nobody else.
        if (item->m_pk == 0)
            continue;
        remove(*item);
        item->m_text = item->m_hasText ? ClipItem::Text::Unknown : ClipItem::Text::None;
    }
}

void ClipIndex::work(const std::function<bool()> &isLate)
{
    while (m_next < m_queue.size() && !(m_next % kItemsBetweenLooks == 0 && isLate()))
        read(*m_queue[m_next++]);
    m_context.closeTextStart();
    if (m_next == m_queue.size())
        m_queue = {};
}

void ClipIndex::finish()
{
    if (!isComplete())
        work([] { return false; });
}

void ClipIndex::read(ClipItem &item)
{
    // Deleted or met again since it was put into the queue.
    if (!item.m_context || item.m_text != ClipItem::Text::Unknown)
        return;
    const std::optional<ClipStore::TextStart> start = m_context.textStart(item, kMaxFolded);
    if (!start) {
        item.m_text = ClipItem::Text::None;
        return;
    }
    item.m_textHash = hashOfStart(start->bytes, start->size);
    if (start->size > kMaxFolded)
        item.m_text = ClipItem::Text::InStore;
    else
        keepFolded(item, start->bytes);
}

void ClipIndex::add(ClipItem &item, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    item.m_textHash = hashOf(utf8);
    if (utf8.size() > kMaxFolded)
        item.m_text = ClipItem::Text::InStore;
    else
        keepFolded(item, utf8);
}

void ClipIndex::keepFolded(ClipItem &item, QByteArrayView utf8)
{
    const QByteArray folded = FoldedText::fold(utf8);
    if (m_foldedBytes + folded.size() > kAllFolded) {
        item.m_text = ClipItem::Text::InStore;
        return;
    }
    item.m_text = ClipItem::Text::InMemory;
    item.m_foldedSize = static_cast<quint32>(folded.size());
    item.m_folded = std::make_unique_for_overwrite<char[]>(item.m_foldedSize);
    std::copy(folded.begin(), folded.end(), item.m_folded.get());
    m_foldedBytes += folded.size();
}

void ClipIndex::remove(ClipItem &item)
{
    m_foldedBytes -= item.m_foldedSize;
    item.m_folded.reset();
    item.m_foldedSize = 0;
    item.m_text = ClipItem::Text::None;
}

bool ClipIndex::matches(const ClipItem &item, const SearchPattern &pattern, bool onlyFiles)
{
    if (onlyFiles && !item.m_hasFilepath)
        return false;
    if (item.m_text == ClipItem::Text::InMemory)
        return pattern.matches({item.m_folded.get(), item.m_foldedSize});
    if (item.m_text != ClipItem::Text::InStore)
        return false;
    const QByteArray folded = FoldedText::fold(m_context.wholeText(item));
    return pattern.matches({folded.data(), static_cast<std::size_t>(folded.size())});
}

bool ClipIndex::mayEqual(const ClipItem &item, std::size_t hash) const
{
    return item.m_text != ClipItem::Text::None && item.m_textHash == hash;
}

std::size_t ClipIndex::hashOf(QByteArrayView utf8)
{
    return hashOfStart(utf8, utf8.size());
}
