// What the window's user changes in the history: deletions, and taking them back; pins.

#include "Clipboard/window/HistoryActions.h"
#include "Clipboard/window/SearchField.h"
#include "Clipboard/window/ViewController.h"
#include "history/ClipItem.h"
#include "looks/FieldPasteboard.h"

#include <QKeyEvent>
#include <QLocale>
#include <QScopedValueRollback>

#include <algorithm>

void ViewController::deleteItem()
{
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
    tellDeletion();
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
    tellDeletion();
    selectRow(*std::min_element(rows.begin(), rows.end()));
}

void ViewController::tellDeletion()
{
    m_unfit.clear();
    updateFooter();
}

void ViewController::bringBack()
{
    const BroughtBack result = m_appDelegate.bringBack();
    m_heldBeforeEdit = std::min(m_heldBeforeEdit, m_appDelegate.heldDeletions());
    m_unfit = result.unfit > 0 ? tr("%Ln deleted clips did not fit: the history keeps %1 at most",
                                    nullptr, result.unfit)
                                     .arg(QLocale().toString(result.maxItems))
                               : QString();
    updateFooter();
    // A search may not list it.
    if (const int row = result.newest ? rowOf(result.newest) : -1; row >= 0)
        selectRow(row);
}

/// Whether Undo takes back a deletion: one that was made since the search was edited, or any when
/// there is no edit to undo.
bool ViewController::wouldBringBack() const
{
    const int held = m_appDelegate.heldDeletions();
    return held > m_heldBeforeEdit || (held > 0 && !m_views.searchTextField->isUndoAvailable());
}

void ViewController::searchEdited()
{
    m_heldBeforeEdit = m_appDelegate.heldDeletions();
    m_unfit.clear();
    updateFooter();
}

void ViewController::setFooter(const QString &text)
{
    m_footer = text;
    updateFooter();
}

void ViewController::updateFooter()
{
    QStringList lines{m_footer, m_unfit};
    const bool bringsBack = wouldBringBack();
    m_views.searchTextField->setProperty(FieldPasteboard::kOwnUndo, bringsBack);
    if (m_unfit.isEmpty() && bringsBack)
        lines.append(tr("Deleted · Ctrl+Z brings it back"));
    lines.removeAll(QString());
    m_views.setFooter(lines.join(u'\n'));
}

void ViewController::togglePin()
{
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
    const std::shared_ptr<ClipItem> selected = itemAt(selectedRow());
    {
        const QScopedValueRollback<bool> changing(m_isChangingList, true);
        m_appDelegate.filterClipItemArr(m_views.searchTextField->text());
    }
    selectRow(rowOf(selected));
}

bool ViewController::changeByKey(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    const bool isShifted = held == (Qt::ControlModifier | Qt::ShiftModifier);
    if (event.key() == Qt::Key_Z && held == Qt::ControlModifier && wouldBringBack()) {
        bringBack();
        return true;
    }
    if (event.key() != Qt::Key_D || (held != Qt::ControlModifier && !isShifted))
        return false;
    // A key that is held down would go to and fro.
    if (event.isAutoRepeat())
        return true;
    if (isShifted)
        m_views.searchTextField->setPinnedOnly(!m_views.searchTextField->isPinnedOnly());
    else
        togglePin();
    return true;
}
