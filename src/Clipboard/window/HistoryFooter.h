#pragma once

#include <QCoreApplication>
#include <QString>

class HistoryActions;
struct BroughtBack;
struct HistoryViews;

/// The foot of the history window: what is to be said about the whole history, and that the latest
/// deletion can be taken back, as long as Ctrl-Z in the search field means that. Owned by the view
/// controller.
class HistoryFooter
{
    Q_DECLARE_TR_FUNCTIONS(HistoryFooter)

public:
    /// Both must outlive the footer.
    HistoryFooter(HistoryActions &appDelegate, HistoryViews &views);

    /// What is said about the history; nothing for an empty text.
    void setText(const QString &text);
    /// Deletions, or whether they can be taken back, have changed.
    void update();
    void tellDeletion();
    /// Tells what of a deletion that was taken back did not fit.
    void tellBroughtBack(const BroughtBack &result);
    void searchEdited();
    /// The search begins anew the next time.
    void forgetSearch();

    /// Whether Undo takes back a deletion: one that was made since the search was edited, or any
    /// when there is no edit to undo.
    bool wouldBringBack() const;

private:
    QString deletionLine() const;

    HistoryActions &m_appDelegate;
    HistoryViews &m_views;
    QString m_text;
    QString m_unfit;            ///< What was said of the last deletion that was taken back.
    bool m_isLossKnown = false; ///< The search was edited since a deletion that is lost.
    int m_heldBeforeEdit = 0;   ///< Deletions that are older than the last edit of the search.
};
