// What the history window asks of the application.

#include "Clipboard/AppDelegate.h"

#include "Clipboard/window/ClipTableView.h"
#include "Clipboard/window/ClipboardWindow.h"
#include "Clipboard/window/ViewController.h"
#include "Clipboard/window/WindowDelegate.h"
#include "history/ClipHistory.h"
#include "history/ClipItem.h"
#include "history/ClipPaster.h"
#include "history/PasteQueue.h"

#include <QFileInfo>
#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(lcApplication, "quillmarsh.application")

} // namespace

const std::vector<std::shared_ptr<ClipItem>> &AppDelegate::getClipItemArr() const
{
    return m_history->getClipItemArr();
}

void AppDelegate::filterClipItemArr(const std::optional<QString> &searchText)
{
    m_history->filterClipItemArr(searchText);
}

bool AppDelegate::isReadOnly() const
{
    return m_history->isReadOnly();
}

bool AppDelegate::beginSearch(const QString &searchText)
{
    return m_history->beginSearch(searchText);
}

void AppDelegate::finishSearch()
{
    m_history->finishSearch();
}

void AppDelegate::deleteItem(const std::shared_ptr<ClipItem> &item)
{
    m_history->deleteItem(item);
}

void AppDelegate::deleteItems(const std::vector<std::shared_ptr<ClipItem>> &items)
{
    m_history->deleteItems(items);
}

int AppDelegate::heldDeletions() const
{
    return m_history->deletedClips().count();
}

DeletedClips::Latest AppDelegate::latestDeletion() const
{
    return m_history->deletedClips().latest();
}

BroughtBack AppDelegate::bringBack()
{
    return m_history->bringBack();
}

void AppDelegate::setPinned(const std::vector<std::shared_ptr<ClipItem>> &items, bool isPinned)
{
    m_history->setPinned(items, isPinned);
}

void AppDelegate::setPinnedOnly(bool isOn)
{
    m_history->setPinnedOnly(isOn);
}

void AppDelegate::performPaste(int row, const std::optional<QString> &format)
{
    // Return where nothing matches ends a swop like closing the window does: the selection that it
    // holds may be replaced by the next paste and stand nowhere else.
    if (row < 0)
        m_paster->cancelSwop();
    m_queue->end();
    m_paster->performPaste(row, format);
    m_windowController->unhide();
    m_windowController->forgetCoveredWindow();
}

void AppDelegate::pasteItems(const std::vector<std::shared_ptr<ClipItem>> &items,
                             const std::optional<QString> &format)
{
    m_queue->end();
    m_paster->pasteItems(items, format);
    m_windowController->unhide();
    m_windowController->forgetCoveredWindow();
}

void AppDelegate::copyItems(const std::vector<std::shared_ptr<ClipItem>> &items)
{
    m_queue->end();
    if (m_paster->copyItems(items))
        viewController()->hide();
}

void AppDelegate::queueItems(const std::vector<std::shared_ptr<ClipItem>> &items)
{
    m_paster->cancelSwop();
    if (!m_queue->begin(items))
        return;
    m_windowController->hideApp();
    if (!m_platform.frontApplication->returnToTarget())
        qCInfo(lcApplication, "the queue waits for another application than the previous one");
    m_windowController->makeWhole();
    m_windowController->unhide();
    m_windowController->forgetCoveredWindow();
}

void AppDelegate::endQueue()
{
    m_queue->end();
}

void AppDelegate::hide()
{
    window()->close();
}

std::shared_ptr<ClipItem> AppDelegate::getSelectedItem() const
{
    const int row = viewController()->clipTableView()->selectedIdx().value_or(-1);
    const auto &items = m_history->clipItemArr();
    if (row < 0 || static_cast<size_t>(row) >= items.size())
        return nullptr;
    return items[static_cast<size_t>(row)];
}

void AppDelegate::openFile()
{
    const std::shared_ptr<ClipItem> item = getSelectedItem();
    const std::optional<QString> path = item ? item->filepath() : std::nullopt;
    if (!path || !m_platform.workspace->fileExists(*path))
        return;
    hide();
    if (!m_platform.workspace->openFile(*path))
        qCWarning(lcApplication, "no application could be started for the file");
}

void AppDelegate::revealInFinder()
{
    const std::shared_ptr<ClipItem> item = getSelectedItem();
    if (item && item->filepath())
        m_platform.workspace->selectFile(*item->filepath(), QFileInfo(*item->filepath()).path());
}
