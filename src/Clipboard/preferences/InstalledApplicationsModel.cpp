#include "Clipboard/preferences/InstalledApplicationsModel.h"

InstalledApplicationsModel::InstalledApplicationsModel(InstalledApplications &applications,
                                                       QObject *parent)
    : QAbstractListModel(parent), m_applications(applications),
      m_list(m_applications.applications())
{
}

int InstalledApplicationsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_list.size());
}

QVariant InstalledApplicationsModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const InstalledApplication &application = m_list.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return application.name;
    case Qt::DecorationRole:
        // Asked for rows in view only, so thousands of applications cost no more than a few.
        return m_applications.icon(application);
    case Qt::ToolTipRole:
        return application.path;
    default:
        return {};
    }
}
