#pragma once

#include "Clipboard/window/ClipMarks.h"
#include "Clipboard/window/HistoryFooter.h"
#include "Clipboard/window/HistoryViews.h"
#include "history/FoundPlaces.h"

#include <QObject>
#include <QPoint>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class ClipItem;
class ClipTextView;
class Clock;
class FileQuestions;
class FileViewController;
class HistoryActions;
class QAbstractScrollArea;
class QKeyEvent;
class QTableView;
class SearchFieldDelegate;
class SwopState;
class Workspace;

/// The history window's content controller: lists the clips, keeps the one selection that every
/// operation acts on, and shows the selected clip's preview. Owned by WindowDelegate. What is
/// highlighted, what is previewed and what Return pastes are always the same clip: rows change
/// only through selectRow, and when the list changes from outside, the selection follows its clip.
class ViewController : public QObject
{
    Q_OBJECT

public:
    enum class TableColumn {
        Row,  ///< The running number.
        Value ///< The clip's display text.
    };

    /// All must outlive the controller.
    ViewController(HistoryActions &appDelegate, const SwopState &swopState, Workspace &workspace,
                   FileQuestions &questions, Clock &clock);
    ~ViewController() override;

    HistoryActions &appDelegate() const { return m_appDelegate; }

    /// The whole content. Stands in a window that outlives the controller, but goes with it.
    ClipboardView *mainView() const { return m_views.mainView.get(); }
    /// The list, which is its own scroll view.
    ClipTableView *clipTableView() const { return m_views.clipTableView; }
    QTableView *tableView() const;
    QAbstractScrollArea *tableScrollView() const;
    static constexpr TableColumn rowColumn() { return TableColumn::Row; }
    static constexpr TableColumn valueColumn() { return TableColumn::Value; }
    SearchField *searchTextField() const { return m_views.searchTextField; }
    QSplitter *splitView() const { return m_views.splitView; }
    /// The list's side and the preview's side of the split view.
    QWidget *tableViewView() const { return m_views.tableViewView; }
    PreviewPane *textFieldView() const { return m_views.textFieldView; }
    /// The text preview, which is its own scroll view.
    ClipTextView *textView() const;
    QAbstractScrollArea *textScrollView() const;
    /// What the text is drawn on.
    QWidget *textClipView() const;
    FileViewController &fileViewController() const { return *m_fileViewController; }
    EmptyStateView *emptyStateView() const { return m_views.emptyStateView; }
    SearchFieldDelegate *searchFieldDelegate() const { return m_searchFieldDelegate; }
    /// The clip whose preview is shown; null for none.
    const std::shared_ptr<ClipItem> &previousClipItem() const { return m_previousClipItem; }

    /// Whether the window is shown and has the keyboard: decides what the open shortcut does.
    bool isWindowKey() const { return m_isWindowKey; }
    void setIsWindowKey(bool isKey) { m_isWindowKey = isKey; }

    /// Called each time the window appears.
    void viewDidAppear();

    void next();
    void previous();
    /// Moves the selection by one row and marks both clips; back again it takes the mark.
    void markNext();
    void markPrevious();
    /// Marks the row's clip beside the selected one, or takes its mark.
    void toggleMark(int row);
    /// Those that are pasted and deleted together, in the order in which they were marked: the
    /// selected clip when none is. Empty for an empty list.
    std::vector<std::shared_ptr<ClipItem>> markedClips() const;
    /// Has the marked clips pasted one by one, by the user's keys; pastes where none are marked.
    void queue();
    /// What Escape does: ends a queue, and closes the window.
    void cancel();
    void endQueue();
    /// How many are marked; 0 or at least 2.
    int markCount() const { return static_cast<int>(m_marks.items().size()); }
    /// Place of the row's clip among the marked ones, from 1 on; 0 when it is not marked.
    int markOf(int row) const { return m_marks.placeOf(itemAt(row)); }
    /// The rows of the marked clips.
    std::vector<int> markedRows() const;

    void paste();
    void paste(const QString &format);
    void paste(int row, const std::optional<QString> &format);
    /// Puts the marked clips on the pasteboard and closes the window.
    void copy();
    /// What can be done with the selected clip, as a menu; by default beside its row.
    void showMenu(const std::optional<QPoint> &globalPosition = {});
    /// Whether all the files that the selected clip tells are there; `answer` is called later,
    /// unless `context` is gone.
    void askCopiedFilesExist(QObject *context, std::function<void(bool)> answer);
    /// While Alt is held the rows tell the keys that paste them.
    void followAlt(bool isHeld);
    /// Closes the window, as its user wants, and makes the history whole again.
    void hide();
    /// Ends the search and selects the first clip, once the window is hidden.
    void makeWhole();
    void deleteItem();
    /// Takes back the latest deletion, if one can be, and says what did not fit.
    void bringBack();
    /// Whether Undo does that, and not what it does in the search field.
    bool wouldBringBack() const { return m_footer.wouldBringBack(); }
    /// Pins the selected or the marked clips; takes their pins when all are pinned.
    void togglePin();
    /// Whether all of those are pinned.
    bool arePinned() const;
    bool isPinned(int row) const;
    /// Every other choice of a row ends the marking.
    void selectRow(int row);
    /// Selects the row nearest to `row` that exists and shows its preview; the preview of the clip
    /// that is shown already is made anew only when forced.
    void selectRow(int row, bool forceViewUpdate);

    int numberOfRowsInTableView() const;
    /// A cell's text; none outside the list.
    std::optional<QString> tableView(TableColumn column, int row) const;
    /// What a row shows of its clip, with the line breaks that the cell's text has not; empty
    /// outside the list.
    QString drawnText(int row) const;
    /// Path of the file that the row's clip copied; none for any other clip.
    std::optional<QString> filepath(int row) const;
    /// How many files the row's clip was a copy of; 0 unless there were several.
    int fileCount(int row) const;
    int selectedRow() const;
    /// Where the search has found something in the rows; empty while there is none.
    const FoundPlaces &found() const { return m_found; }
    const std::vector<std::shared_ptr<ClipItem>> &getDataArray() const;
    /// Lists what matches, at once or a moment later; until then the list stays as it is.
    void filterDataArray(const std::optional<QString> &text);
    /// Lists what was typed last, if that was not done yet: what is to be done next is for it.
    void finishSearch();
    /// Empties the search field and shows the whole history.
    void clearSearch();

    /// Least and greatest width of the list in points.
    double splitViewConstrainMinCoordinate() const { return 100.0; }
    double splitViewConstrainMaxCoordinate() const { return 500.0; }
    void splitViewDidResizeSubviews();
    void positionRightHandTextView();

    /// Goes on typing in the search field with a key that reached another control.
    void typeIntoSearchField(const QKeyEvent &event);

    /// What the window says at its foot, about the whole history; nothing for an empty text. That
    /// a deletion can be taken back is added.
    void setFooter(const QString &text) { m_footer.setText(text); }
    /// What can be done about that; nothing for an empty title.
    void setFooterButton(const QString &title) { m_views.setFooterButton(title); }

    /// How the open shortcut is called in sentences; empty when there is none.
    void setOpenShortcutText(const QString &text) { m_openShortcutText = text; }

    /// Takes on the colours and the font of the desktop.
    void applyTheme();

Q_SIGNALS:
    /// The window is gone and the history whole again.
    void didHide();
    void footerButtonPressed();
    /// Besides, its user has closed it: no paste has.
    void closed();

private:
    /// What a file preview is given, by the established name; the preview takes the plain path
    /// instead, and the type is kept beside it.
    class PreviewItem
    {
    public:
        explicit PreviewItem(QUrl url) : m_url(std::move(url)) {}
        QUrl previewItemURL() const { return m_url; }
        QString previewItemTitle() const { return QStringLiteral("Test"); }

    private:
        QUrl m_url;
    };

    void viewDidLoad();
    void clipItemArrChanged();
    void markRow(int row);
    void deleteMarked();
    void pasteMarked(const std::optional<QString> &format);
    void showRow(int row, bool forceViewUpdate);
    int rowOf(const std::shared_ptr<ClipItem> &item) const;
    void showPreview(const std::shared_ptr<ClipItem> &item);
    void showEmptyPreview();
    void updateEmptyState();
    void updateNotice();
    void listPinnedOnly(bool isOn);
    void showFound();
    void speakSelection(const ClipItem &item, int row);
    std::shared_ptr<ClipItem> itemAt(int row) const;

    HistoryActions &m_appDelegate;
    const SwopState &m_swopState;
    FileQuestions &m_questions;
    HistoryViews m_views;
    HistoryFooter m_footer;
    SearchFieldDelegate *m_searchFieldDelegate = nullptr;
    std::unique_ptr<FileViewController> m_fileViewController;
    std::shared_ptr<ClipItem> m_previousClipItem;
    ClipMarks m_marks;
    FoundPlaces m_found;
    QString m_openShortcutText;
    bool m_isWindowKey = false;
    bool m_isChangingList = false; ///< The change under way is our own.
    bool m_isHiding = false;
    bool m_isSearching = false; ///< The list is not what the field says yet.
};
