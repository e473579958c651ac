#pragma once

#include "platform/InstalledApplications.h"

#include <QAbstractListModel>

/// The installed applications with icon and name, as the chooser lists them. Owned by it.
class InstalledApplicationsModel : public QAbstractListModel
{
    Q_OBJECT

public:
    /// Takes the list as it is now. `applications` must outlive the model.
    explicit InstalledApplicationsModel(InstalledApplications &applications,
                                        QObject *parent = nullptr);

    const InstalledApplication &at(int row) const { return m_list.at(row); }

    // ^QAbstractListModel
    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    InstalledApplications &m_applications;
    const QList<InstalledApplication> m_list;
};
