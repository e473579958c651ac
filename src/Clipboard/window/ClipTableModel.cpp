#include "Clipboard/window/ClipTableModel.h"

#include "Clipboard/window/ClipRowDelegate.h"
#include "Clipboard/window/ViewController.h"

#include <QAccessible>

#include <utility>

ClipTableModel::ClipTableModel(const ViewController &dataSource, QObject *parent)
    : QAbstractTableModel(parent), m_dataSource(dataSource)
{
}

bool ClipTableModel::reloadData()
{
    const int count = m_dataSource.numberOfRowsInTableView();
    // As many other rows are just drawn; assistive technology keeps what it has read of them.
    const bool isOutdated = std::exchange(m_isStale, false) && QAccessible::isActive();
    if (count == m_rowCount && !isOutdated)
        return false;
    beginResetModel();
    m_rowCount = count;
    endResetModel();
    return true;
}

int ClipTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_rowCount;
}

int ClipTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant ClipTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const bool isRow = index.column() == kRowColumn;
    switch (role) {
    case Qt::DisplayRole: {
        const std::optional<QString> text = m_dataSource.tableView(
            isRow ? ViewController::TableColumn::Row : ViewController::TableColumn::Value,
            index.row());
        return text ? QVariant(*text) : QVariant();
    }
    case Qt::AccessibleTextRole:
        return isRow ? QString::number(index.row() + 1)
                     : ClipRowDelegate::recognisableText(data(index, Qt::DisplayRole).toString());
    case Qt::AccessibleDescriptionRole:
        // Beside the text, so that whoever hears it knows how far the list goes on.
        if (isRow)
            return {};
        return (m_dataSource.isPinned(index.row()) ? tr("%1 of %2, pinned") : tr("%1 of %2"))
            .arg(index.row() + 1)
            .arg(m_rowCount);
    default:
        return {};
    }
}
