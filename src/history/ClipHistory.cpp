#include "history/ClipHistory.h"

#include "history/CaptureSettings.h"
#include "history/ClipItem.h"
#include "platform/Clock.h"

#include <algorithm>

ClipHistory::ClipHistory(const QString &, Clock &clock, CaptureSettings &settings)
    : m_clock(clock), m_settings(settings)
{
}

ClipHistory::~ClipHistory() = default;

void ClipHistory::loadClipItems()
{
    m_clipItemArr = m_all;
    m_lastClipItem = m_all.empty() ? nullptr : m_all.front();
    Q_EMIT clipItemArrChanged();
}

void ClipHistory::saveContext() {}

bool ClipHistory::isNilOrEmpty(const std::optional<QString> &text)
{
    return !text || text->isEmpty();
}

void ClipHistory::addToClipList(const std::optional<QString> &strValue,
                                const std::optional<QString> &rtfValue,
                                const std::optional<QString> &applicationName,
                                const std::optional<QString> &filepath)
{
    if (isNilOrEmpty(strValue) || (m_lastClipItem && m_lastClipItem->strValue() == strValue))
        return;
    auto found = std::find_if(m_all.begin(), m_all.end(),
                              [&](const auto &item) { return item->strValue() == strValue; });
    auto item = found == m_all.end() ? std::make_shared<ClipItem>() : *found;
    if (found != m_all.end())
        m_all.erase(found);
    item->m_strValue = strValue;
    item->m_rtfValue = rtfValue;
    item->m_applicationName = applicationName;
    item->m_filepath = filepath;
    item->m_createDate = m_clock.now();
    m_all.insert(m_all.begin(), item);
    setShortText(item);
    if (static_cast<qint64>(m_clipItemArr.size()) >= m_settings.getMaxItems())
        m_all.pop_back();
    loadClipItems();
}

void ClipHistory::deleteItem(const std::shared_ptr<ClipItem> &item)
{
    std::erase(m_all, item);
    std::erase(m_clipItemArr, item);
    Q_EMIT clipItemArrChanged();
}

void ClipHistory::clearAll()
{
    m_all.clear();
    loadClipItems();
}

void ClipHistory::maxItemsModified(qint64 maxItems)
{
    if (static_cast<qint64>(m_all.size()) > maxItems)
        m_all.resize(static_cast<std::size_t>(std::max<qint64>(maxItems, 0)));
    loadClipItems();
}

void ClipHistory::filterClipItemArr(const std::optional<QString> &searchText)
{
    if (!searchText)
        return;
    m_clipItemArr = searchClipItem(*searchText);
    Q_EMIT clipItemArrChanged();
}

std::vector<std::shared_ptr<ClipItem>> ClipHistory::searchClipItem(const QString &searchText)
{
    std::vector<std::shared_ptr<ClipItem>> result;
    std::copy_if(m_all.begin(), m_all.end(), std::back_inserter(result), [&](const auto &item) {
        return item->strValue() && item->strValue()->contains(searchText, Qt::CaseInsensitive);
    });
    return result;
}

void ClipHistory::setShortText(const std::shared_ptr<ClipItem> &item)
{
    if (item->m_strValue)
        item->m_shortText = item->m_strValue->trimmed().remove(u'\n');
    if (item->m_filepath)
        item->m_shortText = QStringLiteral("File: ") + *item->m_filepath;
}

void ClipHistory::countPaste(const std::shared_ptr<ClipItem> &item)
{
    // A first paste counts as 0, so a clip pasted n times reads n - 1. Deliberate: the stored
    // histories that exist count so.
    item->m_pasteCount = item->m_pasteCount ? *item->m_pasteCount + 1 : 0;
}
