#include "history/ClipSearch.h"

#include "history/ClipItem.h"
#include "history/SearchTerm.h"

ClipSearch::ClipSearch(ClipIndex &index, const ClipContext::Items &history, const QString &text,
                       bool isPinnedOnly)
    : m_index(index), m_history(history), m_isPinnedOnly(isPinnedOnly)
{
    const SearchTerm sought = SearchTerm::of(text);
    m_isFilesOnly = sought.onlyFiles;
    m_term = sought.term.toString();
}

bool ClipSearch::work(const ClipIndex::IsLate &isLate)
{
    // Another search may have used the index meanwhile.
    if (!m_term.isEmpty())
        m_index.seek(m_term);
    for (; m_next < m_history.size(); ++m_next) {
        const std::shared_ptr<ClipItem> &item = m_history[m_next];
        const std::optional<bool> isFound = this->isFound(*item, isLate);
        if (!isFound)
            break;
        if (*isFound)
            m_found.push_back(item);
    }
    m_index.closeTexts();
    return m_next == m_history.size();
}

std::optional<bool> ClipSearch::isFound(ClipItem &item, const ClipIndex::IsLate &isLate)
{
    if ((m_isPinnedOnly && !item.isPinned()) || (m_isFilesOnly && !item.hasFilepath()))
        return false;
    // Whatever text it has contains nothing at its beginning, so no text is read.
    return m_term.isEmpty() ? item.hasText() : m_index.isFound(item, isLate);
}
