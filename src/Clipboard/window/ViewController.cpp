#include "Clipboard/window/ViewController.h"

#include "Clipboard/AppDelegate.h"
#include "Clipboard/window/ClipColors.h"
#include "Clipboard/window/ClipInfoLine.h"
#include "Clipboard/window/ClipRowDelegate.h"
#include "Clipboard/window/ClipTableView.h"
#include "Clipboard/window/ClipTextView.h"
#include "Clipboard/window/ClipboardView.h"
#include "Clipboard/window/EmptyStateView.h"
#include "Clipboard/window/FileViewController.h"
#include "Clipboard/window/PreviewPane.h"
#include "Clipboard/window/ScrollBars.h"
#include "Clipboard/window/SearchField.h"
#include "Clipboard/window/SearchFieldDelegate.h"
#include "history/ClipItem.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int kDividerWidth = 1;
constexpr int kListWidth = 320;
constexpr int kListPadding = 6; ///< Points above and below the list.

/// Keys with which a person reads and copies from the text preview; any other key is meant for the
/// list or the search field.
bool isReadingKey(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::Copy) || event.matches(QKeySequence::SelectAll))
        return true;
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_Meta:
        return true;
    default:
        return false;
    }
}

} // namespace

ViewController::ViewController(AppDelegate &appDelegate)
    : m_appDelegate(appDelegate), m_fileViewController(std::make_unique<FileViewController>())
{
    loadView();
    viewDidLoad();
}

ViewController::~ViewController() = default;

void ViewController::loadView()
{
    m_mainView = std::make_unique<ClipboardView>();
    ClipboardView *const content = m_mainView.get();
    m_searchTextField = new SearchField(content);
    m_splitView = new QSplitter(Qt::Horizontal, content);
    m_tableViewView = new QWidget;
    m_clipTableView = new ClipTableView(m_tableViewView);
    m_textFieldView = new PreviewPane(*m_appDelegate.platform().clock);
    m_emptyStateView = new EmptyStateView(content);

    auto *listColumn = new QVBoxLayout(m_tableViewView);
    listColumn->setContentsMargins(0, kListPadding, 0, kListPadding);
    listColumn->addWidget(m_clipTableView);

    m_splitView->setHandleWidth(kDividerWidth);
    m_splitView->setChildrenCollapsible(false);
    m_splitView->addWidget(m_tableViewView);
    m_splitView->addWidget(m_textFieldView);
    m_splitView->setStretchFactor(1, 1);
    m_splitView->setSizes({kListWidth, 10 * kListWidth});

    // The hairline around the window lies in the margin.
    auto *column = new QVBoxLayout(content);
    column->setContentsMargins(1, 1, 1, 1);
    column->setSpacing(0);
    column->addWidget(m_searchTextField);
    column->addWidget(m_splitView, 1);
}

void ViewController::viewDidLoad()
{
    m_searchFieldDelegate = new SearchFieldDelegate(this);
    m_searchFieldDelegate->attach(m_searchTextField);
    m_clipTableView->setDelegate(this);
    m_tableViewView->setMinimumWidth(qRound(splitViewConstrainMinCoordinate()));
    m_tableViewView->setMaximumWidth(qRound(splitViewConstrainMaxCoordinate()));
    connect(m_splitView, &QSplitter::splitterMoved, this,
            &ViewController::splitViewDidResizeSubviews);
    connect(m_textFieldView, &PreviewPane::resized, this,
            &ViewController::splitViewDidResizeSubviews);
    connect(m_mainView.get(), &ClipboardView::resized, this, [this] {
        m_emptyStateView->setGeometry(
            m_mainView->rect().adjusted(1, 1 + m_searchTextField->height(), -1, -1));
    });
    m_fileViewController->setAppDelegate(&m_appDelegate);
    m_fileViewController->view()->hide();
    m_fileViewController->view()->setParent(m_textFieldView);
    textView()->installEventFilter(this);
    connect(&m_appDelegate, &AppDelegate::clipItemArrChanged, this,
            &ViewController::clipItemArrChanged);
    QWidget::setTabOrder(m_searchTextField, m_clipTableView);
    applyTheme();
    updateEmptyState();
}

void ViewController::applyTheme()
{
    const ClipColors colors = ClipColors::ofPalette(QApplication::palette());
    m_mainView->setColors(colors);
    m_searchTextField->setColors(colors);
    m_clipTableView->setColors(colors);
    ScrollBars::makeSlim(*m_clipTableView, colors);
    m_splitView->setStyleSheet(
        QStringLiteral("QSplitter::handle { background: %1; }").arg(colors.separator.name()));
    m_textFieldView->setColors(colors);
    m_fileViewController->setColors(colors);
    m_emptyStateView->setColors(colors);
}

ClipTextView *ViewController::textView() const
{
    return m_textFieldView->textView();
}

void ViewController::viewDidAppear()
{
    selectRow(0);
    m_searchTextField->setFocus(Qt::ActiveWindowFocusReason);
}

int ViewController::selectedRow() const
{
    const std::optional<int> row = m_clipTableView->selectedIdx();
    if (!row)
        qFatal("The clip table has no selected index");
    return *row;
}

void ViewController::next()
{
    selectRow(selectedRow() + 1);
}

void ViewController::previous()
{
    selectRow(selectedRow() - 1);
}

void ViewController::paste()
{
    paste(selectedRow(), std::nullopt);
}

void ViewController::paste(const QString &format)
{
    paste(selectedRow(), format);
}

void ViewController::paste(int row, const std::optional<QString> &format)
{
    m_appDelegate.performPaste(row, format);
}

void ViewController::hide()
{
    // Closing the window makes it resign, which asks to hide again.
    if (m_isHiding)
        return;
    {
        const QScopedValueRollback<bool> hiding(m_isHiding, true);
        m_appDelegate.hide();
        const QScopedValueRollback<bool> changing(m_isChangingList, true);
        m_searchTextField->clear();
        m_appDelegate.filterClipItemArr(QString());
        selectRow(0);
    }
    Q_EMIT didHide();
}

void ViewController::deleteItem()
{
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
        item = list.at(static_cast<size_t>(row));
        if (row > 0 && row == count - 1)
            --row;
    }
    {
        const QScopedValueRollback<bool> changing(m_isChangingList, true);
        m_appDelegate.deleteItem(item);
    }
    selectRow(row);
}

void ViewController::selectRow(int row)
{
    selectRow(row, false);
}

void ViewController::selectRow(int row, bool forceViewUpdate)
{
    const auto &list = getDataArray();
    const auto count = static_cast<int>(list.size());
    if (row < 0)
        row = 0;
    else if (row >= count)
        row = count - 1;

    m_clipTableView->reloadData();
    m_clipTableView->scrollRowToVisible(row);
    m_clipTableView->setSelectedIdx(row);
    m_clipTableView->selectRowIndex(row);
    updateEmptyState();
    if (list.empty()) {
        showEmptyPreview();
        return;
    }
    const std::shared_ptr<ClipItem> item = list.at(static_cast<size_t>(row));
    m_textFieldView->infoLine()->setClipItem(item);
    speakSelection(*item, row);
    if (m_previousClipItem && !forceViewUpdate && item == m_previousClipItem)
        return;
    showPreview(item);
    m_previousClipItem = item;
}

void ViewController::showPreview(const std::shared_ptr<ClipItem> &item)
{
    QWidget *fileView = m_fileViewController->view();
    if (const std::optional<QString> path = item->filepath()) {
        m_fileViewController->setPreviewItem(*path);
        textView()->hide();
        fileView->show();
        return;
    }
    textView()->setString(item->strValue().value_or(QString()));
    textView()->show();
    fileView->hide();
}

void ViewController::showEmptyPreview()
{
    textView()->setString(QString());
    textView()->show();
    m_fileViewController->view()->hide();
    m_textFieldView->infoLine()->setClipItem(nullptr);
    m_previousClipItem.reset();
}

void ViewController::updateEmptyState()
{
    if (!getDataArray().empty())
        m_emptyStateView->hide();
    else if (m_searchTextField->text().isEmpty())
        m_emptyStateView->showEmptyHistory(m_openShortcutText);
    else
        m_emptyStateView->showNothingMatches(m_searchTextField->text());
}

void ViewController::speakSelection(const ClipItem &item, int row)
{
    // The keyboard stays in the search field, so a screen reader learns of the selected row from
    // the field's description.
    if (QAccessible::isActive())
        m_searchTextField->setAccessibleDescription(tr("%1: %2").arg(row + 1).arg(
            ClipRowDelegate::recognisableText(item.shortText().value_or(QString()))));
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

bool ViewController::isFileClip(int row) const
{
    const std::shared_ptr<ClipItem> item = itemAt(row);
    return item && item->filepath().has_value();
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
        m_appDelegate.filterClipItemArr(text);
    }
    selectRow(0);
}

void ViewController::clipItemArrChanged()
{
    m_clipTableView->setStale();
    // Hidden, the list is read anew when the window appears.
    if (m_isChangingList || !m_mainView->isVisible())
        return;
    // The list is the whole history again, so the field must not claim a search; Undo in the field
    // brings the search back.
    if (!m_searchTextField->text().isEmpty()) {
        const QScopedValueRollback<bool> changing(m_isChangingList, true);
        m_searchTextField->replaceText(QString());
    }
    const auto &list = getDataArray();
    const auto found = std::find(list.begin(), list.end(), m_previousClipItem);
    selectRow(m_previousClipItem && found != list.end()
                  ? static_cast<int>(std::distance(list.begin(), found))
                  : selectedRow());
}

void ViewController::splitViewDidResizeSubviews()
{
    m_clipTableView->resize(m_tableViewView->width(), m_clipTableView->height());
    m_clipTableView->sizeLastColumnToFit();
    positionRightHandTextView();
}

void ViewController::positionRightHandTextView()
{
    const QRect text = textView()->geometry();
    const int width = m_splitView->width() - m_clipTableView->width() - kDividerWidth;
    m_fileViewController->resizeView(QRect(text.x(), text.y(), width, text.height()));
}

bool ViewController::moveByKey(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers held = event.modifiers() & ~Qt::KeypadModifier;
    const bool isEditing = m_searchTextField->hasFocus() && !m_searchTextField->text().isEmpty();
    const bool isJump = held == Qt::ControlModifier || (held == Qt::NoModifier && !isEditing);
    switch (event.key()) {
    case Qt::Key_P:
        if (held == Qt::ControlModifier)
            previous();
        return held == Qt::ControlModifier;
    case Qt::Key_N:
        if (held == Qt::ControlModifier)
            next();
        return held == Qt::ControlModifier;
    case Qt::Key_PageUp:
        selectRow(selectedRow() - m_clipTableView->rowsPerPage());
        return true;
    case Qt::Key_PageDown:
        selectRow(selectedRow() + m_clipTableView->rowsPerPage());
        return true;
    case Qt::Key_Home:
        if (isJump)
            selectRow(0);
        return isJump;
    case Qt::Key_End:
        if (isJump)
            selectRow(numberOfRowsInTableView() - 1);
        return isJump;
    default:
        return false;
    }
}

void ViewController::typeIntoSearchField(const QKeyEvent &event)
{
    m_searchTextField->setFocus(Qt::OtherFocusReason);
    const std::unique_ptr<QKeyEvent> copy(event.clone());
    QCoreApplication::sendEvent(m_searchTextField, copy.get());
}

bool ViewController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (isReadingKey(*key))
        return false;
    typeIntoSearchField(*key);
    return true;
}
