#include "Clipboard/window/ViewController.h"

#include "Clipboard/window/ClipInfoLine.h"
#include "Clipboard/window/ClipMenu.h"
#include "Clipboard/window/ClipRowDelegate.h"
#include "Clipboard/window/ClipTableView.h"
#include "Clipboard/window/ClipTextView.h"
#include "Clipboard/window/ClipboardView.h"
#include "Clipboard/window/EmptyStateView.h"
#include "Clipboard/window/FileViewController.h"
#include "Clipboard/window/HistoryActions.h"
#include "Clipboard/window/PreviewPane.h"
#include "Clipboard/window/SearchField.h"
#include "Clipboard/window/SearchFieldDelegate.h"
#include "history/ClipItem.h"
#include "history/SwopState.h"
#include "looks/ClipColors.h"
#include "looks/FieldMenu.h"
#include "platform/FileQuestions.h"

#include <QAccessible>
#include <QApplication>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSplitter>

#include <algorithm>

ViewController::ViewController(HistoryActions &appDelegate, const SwopState &swopState,
                               Workspace &workspace, FileQuestions &questions, Clock &clock)
    : m_appDelegate(appDelegate), m_swopState(swopState), m_questions(questions),
      m_views(clock, questions), m_footer(appDelegate, m_views),
      m_fileViewController(std::make_unique<FileViewController>(appDelegate, workspace, questions))
{
    viewDidLoad();
}

ViewController::~ViewController() = default;

void ViewController::viewDidLoad()
{
    m_searchFieldDelegate = new SearchFieldDelegate(this);
    m_searchFieldDelegate->attach(m_views.searchTextField);
    m_views.clipTableView->setDelegate(this);
    m_views.tableViewView->setMinimumWidth(qRound(splitViewConstrainMinCoordinate()));
    m_views.tableViewView->setMaximumWidth(qRound(splitViewConstrainMaxCoordinate()));
    connect(m_views.splitView, &QSplitter::splitterMoved, this,
            &ViewController::splitViewDidResizeSubviews);
    connect(m_views.textFieldView, &PreviewPane::resized, this,
            &ViewController::splitViewDidResizeSubviews);
    m_fileViewController->view()->hide();
    m_fileViewController->view()->setParent(m_views.textFieldView);
    connect(m_views.textFieldView, &PreviewPane::otherKeyPressed, this,
            &ViewController::typeIntoSearchField);
    connect(m_fileViewController.get(), &FileViewController::otherKeyPressed, this,
            &ViewController::typeIntoSearchField);
    connect(&m_appDelegate, &HistoryActions::clipItemArrChanged, this,
            &ViewController::clipItemArrChanged);
    connect(&m_appDelegate, &HistoryActions::searched, this, &ViewController::showFound);
    connect(m_views.searchTextField, &SearchField::pinnedOnlyChanged, this,
            &ViewController::listPinnedOnly);
    connect(m_views.searchTextField, &QLineEdit::textEdited, this,
            [this] { m_footer.searchEdited(); });
    connect(m_views.footerButton, &QPushButton::clicked, this,
            &ViewController::footerButtonPressed);
    connect(&m_swopState, &SwopState::changed, this, &ViewController::updateNotice);
    applyTheme();
    updateEmptyState();
}

void ViewController::applyTheme()
{
    const ClipColors colors = ClipColors::ofPalette(QApplication::palette());
    m_views.setColors(colors);
    m_fileViewController->setColors(colors);
}

ClipTextView *ViewController::textView() const
{
    return m_views.textFieldView->textView();
}

QTableView *ViewController::tableView() const
{
    return m_views.clipTableView;
}

QAbstractScrollArea *ViewController::tableScrollView() const
{
    return m_views.clipTableView;
}

QAbstractScrollArea *ViewController::textScrollView() const
{
    return textView();
}

QWidget *ViewController::textClipView() const
{
    return textView()->viewport();
}

void ViewController::viewDidAppear()
{
    updateNotice();
    m_footer.update();
    selectRow(0);
    m_views.searchTextField->setFocus(Qt::ActiveWindowFocusReason);
}

int ViewController::selectedRow() const
{
    const std::optional<int> row = m_views.clipTableView->selectedIdx();
    if (!row)
        qFatal("The clip table has no selected index");
    return *row;
}

int ViewController::rowOf(const std::shared_ptr<ClipItem> &item) const
{
    const auto &list = getDataArray();
    const auto found = std::find(list.begin(), list.end(), item);
    return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

void ViewController::showMenu(const std::optional<QPoint> &globalPosition)
{
    finishSearch();
    if (markedClips().empty())
        return;
    auto *menu = new ClipMenu(*this, m_views.mainView.get());
    menu->popup(globalPosition ? *globalPosition : m_views.clipTableView->menuPosition());
}

void ViewController::askCopiedFilesExist(QObject *context, std::function<void(bool)> answer)
{
    /// After which the file system counts as one that hangs.
    constexpr std::chrono::milliseconds kLimit{2000};
    const std::shared_ptr<ClipItem> item = itemAt(selectedRow());
    const QStringList files = item ? item->copiedFiles() : QStringList();
    if (files.isEmpty())
        return;
    m_questions.askWhether(
        files.first(), kLimit,
        [files](const QString &) {
            return std::all_of(files.begin(), files.end(),
                               [](const QString &path) { return QFileInfo::exists(path); });
        },
        context, std::move(answer));
}

void ViewController::followAlt(bool isHeld)
{
    m_views.clipTableView->setShowsKeyCaps(isHeld);
}

void ViewController::hide()
{
    // Closing the window makes it resign, which asks to hide again.
    if (m_isHiding)
        return;
    {
        const QScopedValueRollback<bool> hiding(m_isHiding, true);
        m_appDelegate.hide();
        makeWhole();
    }
    Q_EMIT closed();
}

void ViewController::makeWhole()
{
    clearSearch();
    selectRow(0);
    Q_EMIT didHide();
}

void ViewController::clearSearch()
{
    const QScopedValueRollback<bool> changing(m_isChangingList, true);
    m_views.searchTextField->setPinnedOnly(false);
    m_views.searchTextField->clear();
    m_found = FoundPlaces();
    m_isSearching = false;
    m_footer.forgetSearch();
    m_appDelegate.filterClipItemArr(QString());
}

void ViewController::selectRow(int row)
{
    selectRow(row, false);
}

void ViewController::selectRow(int row, bool forceViewUpdate)
{
    m_marks.clear();
    showRow(row, forceViewUpdate);
}

void ViewController::showRow(int row, bool forceViewUpdate)
{
    const auto &list = getDataArray();
    const auto count = static_cast<int>(list.size());
    if (row < 0)
        row = 0;
    else if (row >= count)
        row = count - 1;

    m_views.clipTableView->reloadData();
    m_views.clipTableView->scrollRowToVisible(row);
    m_views.clipTableView->setSelectedIdx(row);
    m_views.clipTableView->selectRowIndex(row);
    updateEmptyState();
    if (list.empty()) {
        showEmptyPreview();
        return;
    }
    const std::shared_ptr<ClipItem> item = list.at(static_cast<size_t>(row));
    m_views.textFieldView->infoLine()->setClipItem(item, markCount());
    speakSelection(*item, row);
    m_views.textFieldView->setFound(m_found);
    if (m_previousClipItem && !forceViewUpdate && item == m_previousClipItem) {
        m_views.textFieldView->lookForFormatting();
        return;
    }
    showPreview(item);
    m_previousClipItem = item;
}

void ViewController::showPreview(const std::shared_ptr<ClipItem> &item)
{
    QWidget *fileView = m_fileViewController->view();
    if (const std::optional<QString> path = item->filepath()) {
        m_fileViewController->setPreviewItem(*path);
        m_fileViewController->setCopiedFiles(item->copiedFiles());
        m_views.textFieldView->hideText();
        fileView->show();
        return;
    }
    m_views.textFieldView->showText(item->strValue().value_or(QString()),
                                    [shown = std::weak_ptr(item)] {
                                        const std::shared_ptr<ClipItem> clip = shown.lock();
                                        return clip ? clip->rtfValue() : std::nullopt;
                                    });
    fileView->hide();
}

void ViewController::showEmptyPreview()
{
    m_views.textFieldView->showText(QString(), {});
    m_fileViewController->view()->hide();
    m_views.textFieldView->infoLine()->setClipItem(nullptr, 0);
    m_previousClipItem.reset();
}

void ViewController::updateEmptyState()
{
    // Without a clip the field's own menu is all there is.
    m_views.searchTextField->setProperty(FieldMenu::kOwnKeyboardMenu, !getDataArray().empty());
    if (!getDataArray().empty())
        m_views.emptyStateView->hide();
    else if (!m_views.searchTextField->text().isEmpty())
        m_views.emptyStateView->showNothingMatches(m_views.searchTextField->text());
    else if (m_views.searchTextField->isPinnedOnly())
        m_views.emptyStateView->showNothingPinned();
    else
        m_views.emptyStateView->showEmptyHistory(m_openShortcutText);
}

void ViewController::updateNotice()
{
    if (!m_swopState.performSwop())
        m_views.setNotice(m_appDelegate.isReadOnly()
                              ? tr("Nothing is recorded: the history cannot be written")
                              : QString());
    else if (!m_swopState.swopClipItem())
        m_views.setNotice(tr("Swop: no selection is held, so the clip is only pasted"));
    else if (const QString name = m_swopState.swopClipItem()->applicationName.value_or(QString());
             !name.isEmpty())
        m_views.setNotice(tr("Swop: the selection of %1 is held").arg(name.simplified()));
    else
        m_views.setNotice(tr("Swop: the selection is held"));
}

void ViewController::speakSelection(const ClipItem &item, int row)
{
    // The keyboard stays in the search field, so a screen reader learns of the selected row from
    // the field's description.
    if (QAccessible::isActive())
        m_views.searchTextField->setAccessibleDescription(
            (item.isPinned() ? tr("%1 of %2, pinned: %3") : tr("%1 of %2: %3"))
                .arg(QString::number(row + 1), QString::number(numberOfRowsInTableView()),
                     ClipRowDelegate::recognisableText(item.shortText().value_or(QString()))) +
            (m_marks.isEmpty() ? QString()
                               : QStringLiteral(". ") + ClipInfoLine::markedText(markCount())));
}

int ViewController::numberOfRowsInTableView() const
{
    return static_cast<int>(getDataArray().size());
}

std::optional<QString> ViewController::tableView(TableColumn column, int row) const
{
    if (column == TableColumn::Row)
        return QStringLiteral("  ") + QString::number(row + 1);
    const std::shared_ptr<ClipItem> item = itemAt(row);
    return item ? item->shortText() : std::nullopt;
}

QString ViewController::drawnText(int row) const
{
    const std::shared_ptr<ClipItem> item = itemAt(row);
    return item ? item->drawnText() : QString();
}

std::optional<QString> ViewController::filepath(int row) const
{
    const std::shared_ptr<ClipItem> item = itemAt(row);
    return item ? item->filepath() : std::nullopt;
}

int ViewController::fileCount(int row) const
{
    const std::shared_ptr<ClipItem> item = itemAt(row);
    return item ? item->copiedFileCount() : 0;
}

std::shared_ptr<ClipItem> ViewController::itemAt(int row) const
{
    const auto &list = getDataArray();
    if (row < 0 || static_cast<size_t>(row) >= list.size())
        return nullptr;
    return list[static_cast<size_t>(row)];
}

const std::vector<std::shared_ptr<ClipItem>> &ViewController::getDataArray() const
{
    return m_appDelegate.getClipItemArr();
}

void ViewController::filterDataArray(const std::optional<QString> &text)
{
    // The field was emptied because of the list, not the other way round.
    if (m_isChangingList)
        return;
    {
        const QScopedValueRollback<bool> changing(m_isChangingList, true);
        m_isSearching = text && !m_appDelegate.beginSearch(*text);
    }
    if (!m_isSearching)
        showFound();
}

void ViewController::finishSearch()
{
    if (!m_isSearching)
        return;
    {
        const QScopedValueRollback<bool> changing(m_isChangingList, true);
        m_appDelegate.finishSearch();
    }
    showFound();
}

void ViewController::showFound()
{
    m_isSearching = false;
    m_found = FoundPlaces(m_views.searchTextField->text());
    m_views.clipTableView->setStale();
    selectRow(0);
}

void ViewController::clipItemArrChanged()
{
    m_views.clipTableView->setStale();
    // Hidden, the list is read anew when the window appears.
    if (m_isChangingList || !m_views.mainView->isVisible())
        return;
    // The list is the whole history again, but a person may be in the middle of a search.
    if (const QString text = m_views.searchTextField->text();
        !text.isEmpty() || m_views.searchTextField->isPinnedOnly()) {
        const QScopedValueRollback<bool> changing(m_isChangingList, true);
        m_appDelegate.filterClipItemArr(text);
    }
    m_footer.update();
    if (m_isSearching) {
        showFound();
        return;
    }
    m_marks.keepOnly(getDataArray());
    const int row = m_previousClipItem ? rowOf(m_previousClipItem) : -1;
    showRow(row >= 0 ? row : selectedRow(), false);
}

void ViewController::splitViewDidResizeSubviews()
{
    m_views.clipTableView->resize(m_views.tableViewView->width(), m_views.clipTableView->height());
    m_views.clipTableView->sizeLastColumnToFit();
    positionRightHandTextView();
}

void ViewController::positionRightHandTextView()
{
    const QRect text = textView()->geometry();
    const int width =
        m_views.splitView->width() - m_views.clipTableView->width() - HistoryViews::kDividerWidth;
    m_fileViewController->resizeView(QRect(text.x(), text.y(), width, text.height()));
}

void ViewController::typeIntoSearchField(const QKeyEvent &event)
{
    m_views.searchTextField->setFocus(Qt::OtherFocusReason);
    const std::unique_ptr<QKeyEvent> copy(event.clone());
    QCoreApplication::sendEvent(m_views.searchTextField, copy.get());
}
