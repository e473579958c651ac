#pragma once

#include "history/DeletedClips.h"

#include <QObject>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class ClipItem;

/// What the history window asks of the application. Implemented above this room, which thereby
/// knows nothing of the rest; outlives the window. Main thread.
class HistoryActions : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The clips listed at the moment, newest first.
    virtual const std::vector<std::shared_ptr<ClipItem>> &getClipItemArr() const = 0;
    /// Replaces the list by the clips that match; an absent text leaves it as it is.
    virtual void filterClipItemArr(const std::optional<QString> &searchText) = 0;
    /// The same without standing still for it. True when it is done; else the list stays as it is
    /// until searched(), which does not come when the list is replaced meanwhile.
    virtual bool beginSearch(const QString &searchText) = 0;
    /// Ends a search that goes on at once, and without searched().
    virtual void finishSearch() = 0;
    virtual void deleteItem(const std::shared_ptr<ClipItem> &item) = 0;
    /// Deletes several at once.
    virtual void deleteItems(const std::vector<std::shared_ptr<ClipItem>> &items) = 0;
    /// How many deletions can be taken back.
    virtual int heldDeletions() const = 0;
    /// What of the latest deletion can.
    virtual DeletedClips::Latest latestDeletion() const = 0;
    /// Takes back the latest deletion.
    virtual BroughtBack bringBack() = 0;
    /// Pins clips, or takes their pins.
    virtual void setPinned(const std::vector<std::shared_ptr<ClipItem>> &items, bool isPinned) = 0;
    /// From the next filterClipItemArr() on, only pinned clips are listed.
    virtual void setPinnedOnly(bool isOn) = 0;
    /// Whether the history can be read but takes nothing.
    virtual bool isReadOnly() const = 0;

    /// Pastes the clip at `row`, as it is, in "upper" or "lower" case, as "plain" text without its
    /// formatting, or all "files" that were copied with the first. A negative row is no choice: it
    /// ends a swop, whose selection goes into the history.
    virtual void performPaste(int row, const std::optional<QString> &format) = 0;
    /// Pastes several clips as one, in their order: copied files as files, all else as one text.
    virtual void pasteItems(const std::vector<std::shared_ptr<ClipItem>> &items,
                            const std::optional<QString> &format) = 0;
    /// Puts the same on the pasteboard, pastes nothing and closes the history window, which stays
    /// when it could not be done.
    virtual void copyItems(const std::vector<std::shared_ptr<ClipItem>> &items) = 0;
    /// Has the clips pasted one after the other, in their order, by the user's own keys.
    virtual void queueItems(const std::vector<std::shared_ptr<ClipItem>> &items) = 0;
    /// Ends that, if it is under way.
    virtual void endQueue() = 0;
    /// Opens the selected clip's file after closing the history window; nothing when it is gone.
    virtual void openFile() = 0;
    /// Shows the selected clip's file in a file browser; the history window stays open.
    virtual void revealInFinder() = 0;
    /// Closes the history window.
    virtual void hide() = 0;

Q_SIGNALS:
    /// The list has changed by a load, a search or a deletion, or the formatting of a clip has come
    /// late; rows told before are out of date.
    void clipItemArrChanged();
    /// The list is the result of the search that took its time.
    void searched();
};
