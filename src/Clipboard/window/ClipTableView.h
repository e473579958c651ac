#pragma once

#include "Clipboard/window/ClipRowDelegate.h"
#include "Clipboard/window/ListedFolders.h"
#include "looks/ClipColors.h"

#include <QColor>
#include <QTableView>

#include <optional>

class ClipTableModel;
class ViewController;

/// The list of clips: translates the keys and clicks that reach it into operations of the view
/// controller, and holds the one selected index that every operation acts on. Owned by the content
/// view. The row drawn as selected is always `selectedIdx`; nothing moves it but the view
/// controller's selectRow.
class ClipTableView : public QTableView
{
    Q_OBJECT

public:
    /// `questions` must outlive the view.
    ClipTableView(FileQuestions &questions, QWidget *parent);
    ~ClipTableView() override;

    /// The controller stands in for the platform's data source and delegate, and must outlive the
    /// view's use.
    void setDelegate(ViewController *viewController);

    /// The row last selected by the controller; may lie outside an empty list.
    std::optional<int> selectedIdx() const { return m_selectedIdx; }
    void setSelectedIdx(std::optional<int> row) { m_selectedIdx = row; }

    static QColor myGray() { return ClipColors::lightPanel(); }
    static QColor defaultSelectedBlue() { return ClipColors::lightSelected(); }
    /// The selected row's colour; while it is the default one, the scheme's.
    QColor selectedBlue() const { return m_selectedBlue; }
    void setSelectedBlue(const QColor &color);

    void setColors(const ClipColors &colors);

    /// The list is another one since the last reloadData().
    void setStale();
    /// Shows the list as it is now; costs the same for any length unless the number of rows has
    /// changed.
    void reloadData();
    /// Selects one row; no row when it lies outside the list.
    void selectRowIndex(int row);
    void scrollRowToVisible(int row);
    void sizeLastColumnToFit();
    /// How many rows the viewport shows whole.
    int rowsPerPage() const;

    /// The first ten rows that are seen whole show the keys that paste them; else all show their
    /// numbers.
    void setShowsKeyCaps(bool shows);
    /// The row that shows the digit then, 0 for the tenth; absent when there is none.
    std::optional<int> rowOfKeyCap(int digit) const;
    /// Where a menu for the selected row begins, on the screen.
    QPoint menuPosition() const;

    /// Pastes the row that was clicked.
    void doubleClick();
    void processUpKey();
    void processDownKey();
    void processDelete();
    void processPaste(const QString &format);

    // ^QTableView
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    ViewController &delegate() const;
    void tellSelection(const QModelIndex &index);
    void updateMetrics();
    QColor selectionColor() const;
    int firstWholeRow() const;
    bool isWhole(int row) const;
    ClipRowDelegate::Row drawnRow(int row);

    ViewController *m_delegate = nullptr;
    ClipTableModel *m_model = nullptr;
    ClipRowDelegate m_rowDelegate;
    ListedFolders m_folders;
    ClipColors m_colors;
    QColor m_selectedBlue = defaultSelectedBlue();
    std::optional<int> m_selectedIdx = 0;
    bool m_showsKeyCaps = false;
    int m_clickedRow = -1; ///< Row under the last press; -1 for none.
};
