#include "history/ClipIndex.h"

#include "history/ClipItem.h"
#include "history/FoldedText.h"

#include <QHashFunctions>

#include <algorithm>
#include <string_view>
#include <utility>

namespace {

constexpr qint64 kMaxRead = 1024 * 1024; // bytes of one text
// In bytes of all texts: the newest are kept however long they are, later ones if they are short.
// What is left of a history of any size is its long texts, and they have summaries.
constexpr qint64 kAnyFolded = 12 * 1024 * 1024;
constexpr qint64 kAllFolded = 48 * 1024 * 1024;
constexpr qint64 kShort = 8 * 1024; // bytes of one text
constexpr qint64 kAllSummaries = 24 * 1024 * 1024;
constexpr qsizetype kHashedBytes = 4 * 1024; // of a text's beginning
constexpr int kItemsBetweenLooks = 32;
// Bytes of a text that is searched in the store: the first part is small, because what is found is
// mostly found soon.
constexpr qint64 kFirstPart = 8 * 1024;
constexpr qint64 kPart = 64 * 1024;
// What takes as long as to search so many bytes in memory: to look at a clip, whatever its size,
// and to read and fold a byte.
constexpr qint64 kClipEffort = 512;
constexpr qint64 kReadingEffort = 8;

std::size_t hashOfStart(QByteArrayView start, qint64 size)
{
    return qHashBits(start.data(), static_cast<std::size_t>(std::min(start.size(), kHashedBytes)),
                     static_cast<std::size_t>(size));
}

std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

/// Without the beginning of a character whose end is missing.
QByteArrayView wholeCharacters(QByteArrayView utf8)
{
    constexpr qsizetype kLongestCharacter = 4;
    qsizetype lead = utf8.size() - 1;
    while (lead >= 0 && lead > utf8.size() - kLongestCharacter && (utf8[lead] & 0xC0) == 0x80)
        --lead;
    const bool isCut = lead >= 0 && (utf8[lead] & 0xC0) == 0xC0;
    return isCut && lead > 0 ? utf8.first(lead) : utf8;
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

void ClipIndex::work(const IsLate &isLate)
{
    while (m_next < m_queue.size() && !(m_next % kItemsBetweenLooks == 0 && isLateNow(isLate)))
        read(*m_queue[m_next++]);
    closeTexts();
    if (m_next == m_queue.size())
        m_queue = {};
}

void ClipIndex::finish()
{
    if (!isComplete())
        work([](qint64) { return false; });
}

void ClipIndex::read(ClipItem &item)
{
    // Deleted or met again since it was put into the queue.
    if (!item.m_context || item.m_text != ClipItem::Text::Unknown)
        return;
    const std::optional<ClipStore::TextPart> start = m_context.textPart(item, 0, kMaxRead);
    if (!start) {
        item.m_text = ClipItem::Text::None;
        return;
    }
    m_done += start->bytes.size() * kReadingEffort;
    item.m_textHash = hashOfStart(start->bytes, start->size);
    if (start->size > kMaxRead)
        item.m_text = ClipItem::Text::InStore;
    else
        keep(item, start->bytes);
}

void ClipIndex::add(ClipItem &item, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    item.m_textHash = hashOf(utf8);
    if (utf8.size() > kMaxRead)
        item.m_text = ClipItem::Text::InStore;
    else
        keep(item, utf8);
}

void ClipIndex::keep(ClipItem &item, QByteArrayView utf8)
{
    const QByteArray folded = FoldedText::fold(utf8);
    const bool isKept =
        m_foldedBytes + folded.size() <= (folded.size() <= kShort ? kAllFolded : kAnyFolded);
    if (isKept) {
        item.m_text = ClipItem::Text::InMemory;
        item.m_foldedSize = static_cast<quint32>(folded.size());
        item.m_folded = std::make_unique_for_overwrite<char[]>(item.m_foldedSize);
        std::copy(folded.begin(), folded.end(), item.m_folded.get());
        m_foldedBytes += folded.size();
        return;
    }
    item.m_text = ClipItem::Text::InStore;
    if (m_summaryBytes < kAllSummaries) {
        item.m_summary = TextSummary(viewOf(folded));
        m_summaryBytes += item.m_summary.bytes();
    }
}

void ClipIndex::remove(ClipItem &item)
{
    m_foldedBytes -= item.m_foldedSize;
    m_summaryBytes -= item.m_summary.bytes();
    item.m_folded.reset();
    item.m_foldedSize = 0;
    item.m_summary = {};
    item.m_search = 0;
    item.m_text = ClipItem::Text::None;
    if (m_reading.item == &item)
        m_reading = {};
}

void ClipIndex::seek(const QString &term)
{
    if (term == m_term)
        return;
    // Half a character is sought by nobody, and followed by its other half it is another one.
    const auto isWithin = [](const QString &shorter, const QString &longer) {
        return !shorter.isEmpty() && !shorter.back().isHighSurrogate() &&
               longer.startsWith(shorter);
    };
    const quint32 previous = m_search++;
    if (!isWithin(m_term, term))
        m_widest = m_search;
    m_narrower = isWithin(term, m_term) ? previous : 0;
    m_term = term;
    m_pattern = SearchPattern(term);
    m_question = TextSummary::Question(m_pattern.literals(), m_pattern.isLiteral());
    m_reading = {};
}

std::optional<bool> ClipIndex::isFound(ClipItem &item, const IsLate &isLate)
{
    if (++m_asked % kItemsBetweenLooks == 0 && isLateNow(isLate))
        return std::nullopt;
    read(item);
    m_done += kClipEffort;
    std::optional<bool> found = judged(item);
    if (!found)
        found = look(item, isLate);
    if (found) {
        item.m_search = m_search;
        item.m_isFound = *found;
    }
    return found;
}

/// What searches before this one tell. A text never changes, and what stands in front of the last
/// letters was found wherever all is.
std::optional<bool> ClipIndex::judged(const ClipItem &item) const
{
    if (item.m_search == 0)
        return std::nullopt;
    if (item.m_isFound ? item.m_search == m_search || item.m_search == m_narrower
                       : item.m_search >= m_widest)
        return item.m_isFound;
    return std::nullopt;
}

std::optional<bool> ClipIndex::look(const ClipItem &item, const IsLate &isLate)
{
    if (item.m_text == ClipItem::Text::InMemory) {
        m_done += item.m_foldedSize;
        return m_pattern.matches({item.m_folded.get(), item.m_foldedSize});
    }
    if (item.m_text != ClipItem::Text::InStore)
        return false;
    switch (item.m_summary.answer(m_question)) {
    case TextSummary::Answer::Yes:
        return true;
    case TextSummary::Answer::No:
        return false;
    case TextSummary::Answer::Perhaps:
        break;
    }
    return lookInStore(item, isLate);
}

std::optional<bool> ClipIndex::lookInStore(const ClipItem &item, const IsLate &isLate)
{
    if (m_reading.item != &item)
        m_reading = {&item, 0, {}};
    for (;;) {
        const qint64 limit = m_reading.begin == 0 ? kFirstPart : kPart;
        const std::optional<ClipStore::TextPart> part =
            m_context.textPart(item, m_reading.begin, limit);
        const bool isLast = !part || part->bytes.isEmpty() || m_reading.begin + limit >= part->size;
        std::optional<bool> found;
        if (part) {
            const QByteArrayView read =
                isLast ? QByteArrayView(part->bytes) : wholeCharacters(part->bytes);
            m_reading.begin += read.size();
            if (m_pattern.matches(viewOf(FoldedText::fold(read)), m_reading.progress))
                found = true;
        }
        if (!found && isLast)
            found = false;
        m_done += limit * kReadingEffort;
        if (found) {
            m_reading = {};
            return found;
        }
        if (isLateNow(isLate))
            return std::nullopt;
    }
}

bool ClipIndex::mayEqual(const ClipItem &item, std::size_t hash) const
{
    return item.m_text != ClipItem::Text::None && item.m_textHash == hash;
}

std::size_t ClipIndex::hashOf(QByteArrayView utf8)
{
    return hashOfStart(utf8, utf8.size());
}
