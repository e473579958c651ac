#include "Clipboard/window/ClipMarks.h"

#include <algorithm>

int ClipMarks::placeOf(const std::shared_ptr<ClipItem> &item) const
{
    const auto found = std::find(m_items.begin(), m_items.end(), item);
    return found == m_items.end() ? 0 : static_cast<int>(found - m_items.begin()) + 1;
}

void ClipMarks::mark(const std::shared_ptr<ClipItem> &item)
{
    if (item && placeOf(item) == 0)
        m_items.push_back(item);
}

void ClipMarks::dropSingle()
{
    if (m_items.size() < 2)
        m_items.clear();
}

void ClipMarks::extend(const std::shared_ptr<ClipItem> &from, const std::shared_ptr<ClipItem> &to)
{
    if (from == to)
        return;
    const auto count = static_cast<int>(m_items.size());
    if (count > 0 && placeOf(from) == count && placeOf(to) == count - 1) {
        m_items.pop_back();
    } else {
        mark(from);
        mark(to);
    }
    dropSingle();
}

std::shared_ptr<ClipItem> ClipMarks::toggle(const std::shared_ptr<ClipItem> &selected,
                                            const std::shared_ptr<ClipItem> &item)
{
    std::shared_ptr<ClipItem> current = item;
    if (placeOf(item) == 0) {
        mark(selected);
        mark(item);
    } else {
        std::erase(m_items, item);
        current = m_items.back();
    }
    dropSingle();
    return current;
}

void ClipMarks::keepOnly(const Items &list)
{
    std::erase_if(m_items, [&](const std::shared_ptr<ClipItem> &item) {
        return std::find(list.begin(), list.end(), item) == list.end();
    });
    dropSingle();
}
