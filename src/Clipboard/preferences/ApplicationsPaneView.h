#pragma once

#include <QStringList>
#include <QWidget>

class PaneNote;
class QPushButton;
class QTableView;
class QToolButton;

/// The controls of the Applications pane and where they stand. Owned by its controller, which knows
/// what they mean.
class ApplicationsPaneView : public QWidget
{
    Q_OBJECT

public:
    /// `rowHeight` is in points; a larger font than fits into it makes the rows higher.
    explicit ApplicationsPaneView(int rowHeight);

    /// What an empty list says in the middle of its table, with a button that adds the
    /// applications of these names, if there are any. Without a call the table's rows are shown.
    void showEmptyState(const QStringList &suggestions);
    void hideEmptyState();

    QTableView *table;
    QToolButton *add;
    QToolButton *remove;
    QPushButton *suggest; ///< Adds the suggested applications.

Q_SIGNALS:
    void appeared();

protected:
    // ^QWidget
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void setUpTable();
    void fitRowsToFont();
    void setUpEmptyState();
    void layOut();

    const int m_rowHeight;
    QWidget *m_emptyState;
    PaneNote *m_emptyNote;
};
