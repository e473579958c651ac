#pragma once

#include <QString>

#include <memory>

class ClipTableView;
class ClipboardView;
class Clock;
class EmptyStateView;
class FileQuestions;
class NoticeLine;
class PreviewPane;
class QLabel;
class QPushButton;
class QSplitter;
class QWidget;
class SearchField;
struct ClipColors;

/// The widgets of the history window in their layout: the view controller's outlets. Owned by it.
/// All but `mainView` are children of it.
struct HistoryViews
{
    static constexpr int kDividerWidth = 1; ///< Points.

    /// `clock` must outlive the views.
    HistoryViews(Clock &clock, FileQuestions &questions);
    ~HistoryViews();

    void setColors(const ClipColors &colors);
    /// Says something out of the ordinary under the search field; nothing when it is empty.
    void setNotice(const QString &text);
    /// Below what stands above the list.
    void placeEmptyState();
    /// What stands at the foot of the window, under list and preview; nothing for an empty text.
    void setFooter(const QString &text);
    /// A button under it; none for an empty title.
    void setFooterButton(const QString &title);

    std::unique_ptr<ClipboardView> mainView;
    SearchField *searchTextField;
    NoticeLine *noticeLine;
    QSplitter *splitView;
    QWidget *tableViewView; ///< The list's side of the split view.
    ClipTableView *clipTableView;
    PreviewPane *textFieldView; ///< The preview's side of the split view.
    QLabel *footer;             ///< Hidden while there is nothing to say.
    QWidget *footerRow;         ///< What the button stands in; hidden without one.
    QPushButton *footerButton;
    EmptyStateView *emptyStateView;
};
