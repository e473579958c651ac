#pragma once

#include "history/ClipContext.h"
#include "history/ClipIndex.h"

#include <QString>

#include <cstddef>
#include <optional>
#include <utility>

/// One search of the history, in as many steps as it takes: the newest clips first. Owned by
/// ClipHistory, whose clips must stay the same meanwhile.
class ClipSearch
{
public:
    /// `text` is what somebody types, as ClipHistory::searchClipItem() says. Both others outlive
    /// the search.
    ClipSearch(ClipIndex &index, const ClipContext::Items &history, const QString &text,
               bool isPinnedOnly);

    /// Goes on until `isLate`. True once all was searched.
    bool work(const ClipIndex::IsLate &isLate);
    /// What was found, newest first; once, after all was searched.
    ClipContext::Items takeFound() { return std::move(m_found); }

private:
    std::optional<bool> isFound(ClipItem &item, const ClipIndex::IsLate &isLate);

    ClipIndex &m_index;
    const ClipContext::Items &m_history;
    const bool m_isPinnedOnly;
    bool m_isFilesOnly;
    QString m_term;
    std::size_t m_next = 0; ///< First clip that was not searched.
    ClipContext::Items m_found;
};
