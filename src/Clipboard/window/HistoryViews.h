#pragma once

#include <memory>

class ClipTableView;
class ClipboardView;
class Clock;
class EmptyStateView;
class PreviewPane;
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
    explicit HistoryViews(Clock &clock);
    ~HistoryViews();

    void setColors(const ClipColors &colors);

    std::unique_ptr<ClipboardView> mainView;
    SearchField *searchTextField;
    QSplitter *splitView;
    QWidget *tableViewView; ///< The list's side of the split view.
    ClipTableView *clipTableView;
    PreviewPane *textFieldView; ///< The preview's side of the split view.
    EmptyStateView *emptyStateView;
};
