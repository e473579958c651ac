#pragma once

#include <QWidget>

class QAbstractItemModel;
class QPushButton;
class QTableView;
class QToolButton;

/// The controls of the Applications pane and where they stand. Owned by its controller, which knows
/// what they mean.
class ApplicationsPaneView : public QWidget
{
    Q_OBJECT

public:
    explicit ApplicationsPaneView(int rowHeight);

    QTableView *table;
    QToolButton *add;
    QToolButton *remove;

private:
    void setUpTable(int rowHeight);
    void layOut();
};
