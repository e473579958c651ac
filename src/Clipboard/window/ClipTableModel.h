#pragma once

#include <QAbstractTableModel>

class ViewController;

/// Hands the view controller's answers to the table: nothing is copied, so a list of any length
/// costs the same. Owned by the table. The number of rows told to the table is the one of the last
/// reloadData(); a row that has gone since then is empty.
class ClipTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int kRowColumn = 0;   ///< The column "row": the running number.
    static constexpr int kValueColumn = 1; ///< The clip's text.

    ClipTableModel(const ViewController &dataSource, QObject *parent);

    /// The rows told so far are out of date.
    void setStale() { m_isStale = true; }
    /// Tells the rows anew if need be. True when the table was laid out anew.
    bool reloadData();

    // ^QAbstractTableModel
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    const ViewController &m_dataSource;
    int m_rowCount = 0;
    bool m_isStale = false;
};
