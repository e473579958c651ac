#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <array>

class TourPopover;
class TourViewController;

/// Leads through the history window by four popovers, one at a time: the search field, the list,
/// the preview, and last the keys, which point at the list's first rows. Each popover's button goes
/// on to the next; the tour ends with the last one's, by Escape, and when the window is closed.
/// Owned by AppDelegate; the popovers live in the window while the tour runs.
class TourGuide : public QObject
{
    Q_OBJECT

public:
    static constexpr int kPopovers = 4;

    /// Begins with the first popover; a tour under way begins anew. The three stand in the same
    /// window.
    void startTour(QWidget &searchTextField, QWidget &listView, QWidget &previewView);
    /// Goes on to the next popover; after the last the tour is over.
    void nextClicked();
    void endTour();

    /// Index of the popover shown, in the order of the tour; -1 when there is no tour.
    int activePopoverIdx() const { return m_activePopoverIdx; }
    /// Null without a tour.
    TourPopover *activePopover() const;

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showPopover(int index);

    QPointer<QWidget> m_searchTextField;
    QPointer<QWidget> m_listView;
    QPointer<QWidget> m_previewView;
    QPointer<QWidget> m_window;
    std::array<QPointer<TourPopover>, kPopovers> m_popovers;
    int m_activePopoverIdx = -1;
};
