#include "Clipboard/window/ClipTableView.h"

#include "Clipboard/window/ClipTableModel.h"
#include "Clipboard/window/HistoryKeys.h"
#include "Clipboard/window/ViewController.h"
#include "platform/ModifierFlags.h"

#include <QAccessible>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

namespace {

constexpr int kSelectionInset = 6; ///< Points left free at both sides of the selected row.
constexpr int kSelectionRadius = 4;
constexpr int kKeyCaps = 10;
/// Of the selected row's colour, in a row that is marked.
constexpr qreal kMarkTint = 0.2;

bool isTyping(const QKeyEvent &event)
{
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

} // namespace

ClipTableView::ClipTableView(FileQuestions &questions, QWidget *parent)
    : QTableView(parent), m_folders(questions, [this] { viewport()->update(); })
{
    setObjectName(QStringLiteral("clipTableView"));
    setAccessibleName(tr("Clips"));
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setWordWrap(false);
    viewport()->setAutoFillBackground(false);
    horizontalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    updateMetrics();
}

ClipTableView::~ClipTableView() = default;

void ClipTableView::setDelegate(ViewController *viewController)
{
    m_delegate = viewController;
    m_model = new ClipTableModel(*viewController, this);
    setModel(m_model);
    sizeLastColumnToFit();
}

ViewController &ClipTableView::delegate() const
{
    if (!m_delegate)
        qFatal("The clip table has no delegate");
    return *m_delegate;
}

void ClipTableView::setSelectedBlue(const QColor &color)
{
    m_selectedBlue = color;
    viewport()->update();
}

void ClipTableView::setColors(const ClipColors &colors)
{
    m_colors = colors;
    m_rowDelegate.setColors(colors);
    viewport()->update();
}

QColor ClipTableView::selectionColor() const
{
    // One that was set here wins over the desktop's.
    return m_selectedBlue == defaultSelectedBlue() ? m_colors.selected : m_selectedBlue;
}

void ClipTableView::updateMetrics()
{
    m_rowDelegate.setFont(font());
    verticalHeader()->setDefaultSectionSize(m_rowDelegate.rowHeight());
    verticalScrollBar()->setSingleStep(m_rowDelegate.rowHeight());
    sizeLastColumnToFit();
}

void ClipTableView::setStale()
{
    m_model->setStale();
}

void ClipTableView::reloadData()
{
    if (m_model->reloadData())
        sizeLastColumnToFit();
    viewport()->update();
}

void ClipTableView::selectRowIndex(int row)
{
    const QModelIndex index = m_model->index(row, ClipTableModel::kValueColumn);
    if (index.isValid())
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                     QItemSelectionModel::Rows);
    else
        selectionModel()->clear();
    // What is marked counts as selected, too, for assistive technology.
    for (const int marked : m_delegate->markedRows())
        selectionModel()->select(m_model->index(marked, ClipTableModel::kValueColumn),
                                 QItemSelectionModel::Select | QItemSelectionModel::Rows);
    viewport()->update();
    tellSelection(index);
}

/// The base class tells assistive technology of the running number only, not of the text.
void ClipTableView::tellSelection(const QModelIndex &index)
{
    QAccessibleInterface *list =
        QAccessible::isActive() ? QAccessible::queryAccessibleInterface(this) : nullptr;
    QAccessibleTableInterface *cells = list ? list->tableInterface() : nullptr;
    if (!cells)
        return;
    if (QAccessibleInterface *cell = cells->cellAt(index.row(), index.column())) {
        QAccessibleEvent selected(cell, QAccessible::Selection);
        QAccessible::updateAccessibility(&selected);
    }
}

void ClipTableView::scrollRowToVisible(int row)
{
    scrollTo(m_model->index(row, ClipTableModel::kValueColumn));
}

void ClipTableView::sizeLastColumnToFit()
{
    if (!m_model)
        return;
    const int numberWidth = m_rowDelegate.numberWidth(m_model->rowCount());
    setColumnWidth(ClipTableModel::kRowColumn, numberWidth);
    setColumnWidth(ClipTableModel::kValueColumn, qMax(1, viewport()->width() - numberWidth));
}

int ClipTableView::rowsPerPage() const
{
    return qMax(1, viewport()->height() / m_rowDelegate.rowHeight());
}

bool ClipTableView::isWhole(int row) const
{
    const int top = rowViewportPosition(row);
    return row < m_model->rowCount() && top >= 0 && top + rowHeight(row) <= viewport()->height();
}

int ClipTableView::firstWholeRow() const
{
    const int row = qMax(0, rowAt(0));
    return isWhole(row) ? row : row + 1;
}

void ClipTableView::setShowsKeyCaps(bool shows)
{
    if (m_showsKeyCaps == shows)
        return;
    m_showsKeyCaps = shows;
    viewport()->update();
}

std::optional<int> ClipTableView::rowOfKeyCap(int digit) const
{
    const int row = firstWholeRow() + (digit + kKeyCaps - 1) % kKeyCaps;
    return isWhole(row) ? std::optional(row) : std::nullopt;
}

QPoint ClipTableView::menuPosition() const
{
    const QRect row =
        visualRect(m_model->index(m_selectedIdx.value_or(0), ClipTableModel::kValueColumn));
    return viewport()->mapToGlobal(isRightToLeft() ? row.bottomRight() : row.bottomLeft());
}

void ClipTableView::contextMenuEvent(QContextMenuEvent *event)
{
    if (event->reason() == QContextMenuEvent::Keyboard) {
        delegate().showMenu();
        return;
    }
    // The menu is for what stands under the mouse, and stays there.
    delegate().finishSearch();
    const int row = rowAt(viewport()->mapFromGlobal(event->globalPos()).y());
    if (row < 0)
        return;
    // A menu for all that are marked, if it is one of them.
    if (delegate().markOf(row) == 0)
        delegate().selectRow(row);
    delegate().showMenu(event->globalPos());
}

void ClipTableView::doubleClick()
{
    if (m_clickedRow >= 0)
        delegate().paste(m_clickedRow, std::nullopt);
}

void ClipTableView::processUpKey()
{
    delegate().previous();
}

void ClipTableView::processDownKey()
{
    delegate().next();
}

void ClipTableView::processDelete()
{
    delegate().deleteItem();
}

void ClipTableView::processPaste(const QString &format)
{
    delegate().paste(format);
}

void ClipTableView::keyPressEvent(QKeyEvent *event)
{
    const quint64 flags = ModifierFlags::ofEvent(*event);
    const bool isShift = (event->modifiers() & ~Qt::KeypadModifier) == Qt::ShiftModifier;
    switch (event->key()) {
    case Qt::Key_Up:
        if (isShift)
            delegate().markPrevious();
        else
            processUpKey();
        return;
    case Qt::Key_Down:
        if (isShift)
            delegate().markNext();
        else
            processDownKey();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // Deliberately unlike the search field: Option alone pastes unchanged here.
        if (!(flags & ModifierFlags::kShift))
            processPaste(QString());
        else
            processPaste(flags & ModifierFlags::kOption ? QStringLiteral("lower")
                                                        : QStringLiteral("upper"));
        return;
    case Qt::Key_Backspace:
        // Without Command the key is swallowed, so that a habit never deletes a clip.
        if (flags & ModifierFlags::kCommand)
            processDelete();
        return;
    default:
        break;
    }
    if (HistoryKeys::act(delegate(), *event))
        return;
    // The base class would select by typed letters, move by Space and copy a row by itself.
    if (isTyping(*event))
        delegate().typeIntoSearchField(*event);
    else
        event->ignore();
}

void ClipTableView::mousePressEvent(QMouseEvent *event)
{
    const int row = rowAt(event->position().toPoint().y());
    m_clickedRow = event->button() == Qt::LeftButton ? row : -1;
    if (m_clickedRow >= 0 && event->modifiers() == Qt::ControlModifier) {
        delegate().toggleMark(row);
        return;
    }
    // The base class would move a selection of its own, with a drag even away from this row.
    if (m_clickedRow >= 0)
        delegate().selectRow(row);
}

void ClipTableView::mouseMoveEvent(QMouseEvent *) {}

void ClipTableView::mouseReleaseEvent(QMouseEvent *) {}

void ClipTableView::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (event->modifiers() == Qt::ControlModifier) {
        mousePressEvent(event);
        return;
    }
    m_clickedRow = rowAt(event->position().toPoint().y());
    doubleClick();
}

void ClipTableView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    const int first = qMax(0, rowAt(event->rect().top()));
    for (int row = first; row < m_model->rowCount(); ++row) {
        if (rowViewportPosition(row) > event->rect().bottom())
            break;
        const ClipRowDelegate::Row drawn = drawnRow(row);
        if (drawn.isSelected || drawn.mark > 0) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(drawn.isSelected
                                 ? selectionColor()
                                 : ClipColors::mixed(m_colors.panel, selectionColor(), kMarkTint));
            painter.drawRoundedRect(drawn.numberRect.united(drawn.valueRect)
                                        .adjusted(kSelectionInset, 0, -kSelectionInset, 0),
                                    kSelectionRadius, kSelectionRadius);
        }
        m_rowDelegate.paint(painter, drawn);
    }
}

ClipRowDelegate::Row ClipTableView::drawnRow(int row)
{
    ClipRowDelegate::Row drawn;
    drawn.numberRect = visualRect(m_model->index(row, ClipTableModel::kRowColumn));
    drawn.valueRect = visualRect(m_model->index(row, ClipTableModel::kValueColumn));
    const int keyCap = row - firstWholeRow() + 1;
    drawn.isKeyCap = m_showsKeyCaps && keyCap > 0 && keyCap <= kKeyCaps && isWhole(row);
    drawn.number =
        drawn.isKeyCap
            ? QString::number(keyCap % kKeyCaps)
            : m_delegate->tableView(ViewController::TableColumn::Row, row).value_or(QString());
    drawn.value = m_delegate->drawnText(row);
    drawn.filepath = m_delegate->filepath(row);
    drawn.isFolder = drawn.filepath && m_folders.contains(*drawn.filepath);
    if (const int files = drawn.filepath ? m_delegate->fileCount(row) : 0; files > 0)
        drawn.note = tr("%Ln files", nullptr, files);
    drawn.isPinned = m_delegate->isPinned(row);
    drawn.isSelected = row == m_selectedIdx;
    drawn.mark = m_delegate->markOf(row);
    if (!m_delegate->found().isEmpty())
        drawn.found = &m_delegate->found();
    return drawn;
}

void ClipTableView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    sizeLastColumnToFit();
}

void ClipTableView::hideEvent(QHideEvent *event)
{
    QTableView::hideEvent(event);
    m_folders.forget();
    m_showsKeyCaps = false;
}

void ClipTableView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        updateMetrics();
}
