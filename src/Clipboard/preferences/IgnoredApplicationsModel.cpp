#include "Clipboard/preferences/IgnoredApplicationsModel.h"

#include "platform/Workspace.h"

IgnoredApplicationsModel::IgnoredApplicationsModel(const QList<ApplicationDef> &data,
                                                   Workspace &workspace)
    : m_data(data), m_workspace(workspace)
{
}

void IgnoredApplicationsModel::reloadData()
{
    beginResetModel();
    endResetModel();
}

int IgnoredApplicationsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_data.size());
}

int IgnoredApplicationsModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1;
}

QVariant IgnoredApplicationsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    if (index.row() >= m_data.size())
        qFatal("There is no ignored application at row %d", index.row());
    const ApplicationDef &application = m_data[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return application.isKnownByNameOnly()
                   ? tr("%1 (recognised by this name only)").arg(application.name)
                   : application.name;
    case Qt::DecorationRole:
        return iconAt(application.path);
    case Qt::ToolTipRole:
        return application.path;
    default:
        return {};
    }
}

QIcon IgnoredApplicationsModel::iconAt(const QString &path) const
{
    auto found = m_icons.constFind(path);
    if (found == m_icons.constEnd())
        found = m_icons.insert(path, m_workspace.iconForFile(path));
    return *found;
}
