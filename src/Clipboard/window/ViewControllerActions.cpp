// What the window's user does with the clips: marks, pastes and deletes them, and pins them.

#include "Clipboard/window/HistoryActions.h"
#include "Clipboard/window/SearchField.h"
#include "Clipboard/window/ViewController.h"
#include "history/ClipItem.h"

#include <QScopedValueRollback>

#include <algorithm>

void ViewController::next()
{
    finishSearch();
    selectRow(selectedRow() + 1);
}

void ViewController::previous()
{
    finishSearch();
    selectRow(selectedRow() - 1);
}

void ViewController::markNext()
{
    finishSearch();
    markRow(selectedRow() + 1);
}

void ViewController::markPrevious()
{
    finishSearch();
    markRow(selectedRow() - 1);
}

void ViewController::markRow(int row)
{
    const std::shared_ptr<ClipItem> item = itemAt(row);
    if (!item)
        return;
    m_marks.extend(itemAt(selectedRow()), item);
    showRow(row, false);
}

void ViewController::toggleMark(int row)
{
    if (const std::shared_ptr<ClipItem> item = itemAt(row))
        showRow(rowOf(m_marks.toggle(itemAt(selectedRow()), item)), false);
}

std::vector<std::shared_ptr<ClipItem>> ViewController::markedClips() const
{
    if (!m_marks.isEmpty())
        return m_marks.items();
    const std::shared_ptr<ClipItem> item = itemAt(selectedRow());
    return item ? std::vector{item} : std::vector<std::shared_ptr<ClipItem>>();
}

std::vector<int> ViewController::markedRows() const
{
    std::vector<int> rows;
    for (const std::shared_ptr<ClipItem> &item : m_marks.items())
        rows.push_back(rowOf(item));
    return rows;
}

void ViewController::paste()
{
    pasteMarked(std::nullopt);
}

void ViewController::paste(const QString &format)
{
    pasteMarked(format);
}

void ViewController::pasteMarked(const std::optional<QString> &format)
{
    finishSearch();
    if (m_marks.isEmpty())
        paste(selectedRow(), format);
    else
        m_appDelegate.pasteItems(markedClips(), format);
}

void ViewController::queue()
{
    finishSearch();
    if (m_marks.isEmpty())
        paste();
    else
        m_appDelegate.queueItems(markedClips());
}

void ViewController::cancel()
{
    endQueue();
    hide();
}

void ViewController::endQueue()
{
    m_appDelegate.endQueue();
}

void ViewController::paste(int row, const std::optional<QString> &format)
{
    m_appDelegate.performPaste(row, format);
}

void ViewController::copy()
{
    finishSearch();
    if (const std::vector<std::shared_ptr<ClipItem>> items = markedClips(); !items.empty())
        m_appDelegate.copyItems(items);
}

void ViewController::deleteItem()
{
    finishSearch();
    if (!m_marks.isEmpty()) {
        deleteMarked();
        return;
    }
    const auto &list = getDataArray();
    const auto count = static_cast<int>(list.size());
    if (count == 0)
        return;
    int row = selectedRow();
    std::shared_ptr<ClipItem> item;
    if (count == 1) {
        item = list.front();
        row = -1;
    } else {
        item = itemAt(row);
        if (row > 0 && row == count - 1)
            --row;
    }
    if (!item)
        return;
    {
        const QScopedValueRollback<bool> changing(m_isChangingList, true);
        m_appDelegate.deleteItem(item);
    }
    m_footer.tellDeletion();
    selectRow(row);
}

/// The selection stays at the first of the rows.
void ViewController::deleteMarked()
{
    const std::vector<int> rows = markedRows();
    {
        const QScopedValueRollback<bool> changing(m_isChangingList, true);
        m_appDelegate.deleteItems(markedClips());
    }
    m_footer.tellDeletion();
    selectRow(*std::min_element(rows.begin(), rows.end()));
}

void ViewController::bringBack()
{
    const BroughtBack result = m_appDelegate.bringBack();
    m_footer.tellBroughtBack(result);
    // A search may not list it.
    if (const int row = result.newest ? rowOf(result.newest) : -1; row >= 0)
        selectRow(row);
}

void ViewController::togglePin()
{
    finishSearch();
    m_appDelegate.setPinned(markedClips(), !arePinned());
}

bool ViewController::arePinned() const
{
    const std::vector<std::shared_ptr<ClipItem>> clips = markedClips();
    return std::all_of(clips.begin(), clips.end(),
                       [](const auto &item) { return item->isPinned(); });
}

bool ViewController::isPinned(int row) const
{
    const std::shared_ptr<ClipItem> item = itemAt(row);
    return item && item->isPinned();
}

void ViewController::listPinnedOnly(bool isOn)
{
    m_appDelegate.setPinnedOnly(isOn);
    if (m_isChangingList)
        return;
    finishSearch();
    const std::shared_ptr<ClipItem> selected = itemAt(selectedRow());
    {
        const QScopedValueRollback<bool> changing(m_isChangingList, true);
        m_appDelegate.filterClipItemArr(m_views.searchTextField->text());
    }
    selectRow(rowOf(selected));
}
