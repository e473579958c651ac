#pragma once

#include "Clipboard/preferences/ApplicationDef.h"

#include <QAbstractTableModel>
#include <QIcon>
#include <QList>
#include <QMap>

class Workspace;

/// The ignored applications as a table of one column: name and icon. Owned by the Applications
/// pane, whose list it shows.
class IgnoredApplicationsModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Both must outlive the model.
    IgnoredApplicationsModel(const QList<ApplicationDef> &data, Workspace &workspace);

    /// The list has changed.
    void reloadData();

    // ^QAbstractTableModel
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    /// A row outside the list is a programming error and ends the program.
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QIcon iconAt(const QString &path) const;

    const QList<ApplicationDef> &m_data;
    Workspace &m_workspace;
    mutable QMap<QString, QIcon> m_icons; ///< By path; an icon is looked up once.
};
