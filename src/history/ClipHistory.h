#pragma once

#include "history/ClipContext.h"
#include "history/ClipIndex.h"
#include "history/DeletedClips.h"
#include "history/KeptPictures.h"
#include "history/RichTextMaker.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

class CaptureSettings;
class ClipItem;
class ClipSearch;
class Clock;

/// The history of clips: the list that the window shows, and every way to change it. Owned by the
/// application delegate; main thread only. The list is the whole history, newest first, after a
/// load, and a search's result after a search; rows and paste positions refer to it.
class ClipHistory : public QObject
{
    Q_OBJECT

public:
    using Items = ClipContext::Items;

    /// The store is the one in `storeFolder`. Its first use, which the first load is, opens it, and
    /// makes it when it does not exist. A store that cannot be opened stops the process after a log
    /// line, and is left as it was. The list is empty until the first load.
    ClipHistory(const QString &storeFolder, Clock &clock, CaptureSettings &settings);
    ~ClipHistory() override;

    ClipContext &managedObjectContext() { return m_context; }

    /// Whether the store can be read but not written. Then every change is refused, because it
    /// would be gone at the end.
    bool isReadOnly() { return m_context.store().isReadOnly(); }
    /// Whether the store takes a change at this moment, found out by one that changes nothing.
    bool canChange() { return m_context.store().prepareLog(); }

    const Items &clipItemArr() const { return *m_shown; }
    const Items &getClipItemArr() const { return clipItemArr(); }
    /// Every clip, newest first, whatever the list is.
    const Items &everyClip();
    const CaptureSettings &settings() const { return m_settings; }

    /// The newest clip at the last load; null when there was none. A deletion leaves it.
    const std::shared_ptr<ClipItem> &lastClipItem() const { return m_lastClipItem; }

    /// Makes the list the whole history again, with what other programs have added to the store or
    /// removed.
    void loadClipItems();
    /// Loads when another program has changed the store since the last load.
    void loadForeignChanges();
    /// Saves what is unsaved, if anything. What cannot be saved is logged, stays part of what is
    /// read, and is tried again by the next save, which comes by itself after a while.
    void saveContext();

    /// Records one copy. A text equal to the latest clip's changes nothing; one that is in the
    /// history already moves to the top; a full list loses its single oldest clip. HTML comes into
    /// the record, as part of its RTF, a moment later.
    void addToClipList(const Clip &clip);
    /// Whether a clip has this text.
    bool hasText(const QString &text) { return newestLike(text, nullptr) != nullptr; }
    /// Adds clips with the dates and counts that they bring; their texts are not in the history.
    /// Removes nothing for them: the caller knows how many there is room for. False when they
    /// cannot be kept.
    bool bringIn(const std::vector<ClipChange> &clips);
    /// Keeps the picture of a copy without a text in a file, and records that file a moment later,
    /// as copied now.
    void addPicture(const Clip &clip);
    KeptPictures &pictures() { return m_pictures; }
    static bool isNilOrEmpty(const std::optional<QString> &text);

    /// A clip that is not in the list is ignored.
    void deleteItem(const std::shared_ptr<ClipItem> &item) { deleteItems({item}); }
    /// The same of several, in one step.
    void deleteItems(Items items);
    /// Likewise, of clips of the history that a search may hide.
    void deleteClips(const Items &items);
    /// Deletes every clip of the history, whatever a search shows of it.
    void clearAll();
    /// Shrinks the list to at most `maxItems` clips by deleting its oldest, except pinned ones.
    void maxItemsModified(qint64 maxItems);

    /// What deleteItems() and clearAll() took last, and can be brought back.
    DeletedClips &deletedClips() { return m_deletedClips; }
    /// Takes the latest deletion back: the history is as if it had not been, with what was copied
    /// and with the limit as it is now.
    BroughtBack bringBack();

    /// The history's window is on the screen: nothing is done for later, which would get into the
    /// way of what its user does, until windowCloses().
    void windowOpens();
    void windowCloses();

    /// Pins clips, which trimming then passes over, or takes their pins, and saves. What is in the
    /// history no more is ignored.
    void setPinned(const Items &items, bool isPinned);
    /// From the next filterClipItemArr() on, only pinned clips are found.
    void setPinnedOnly(bool isOn) { m_isPinnedOnly = isOn; }

    /// Makes the list the search's result; an absent text leaves it as it is.
    void filterClipItemArr(const std::optional<QString> &searchText);
    /// The same without standing still for it. True when it is done. Else the list stays as it is,
    /// while the search goes on whenever there is nothing else to do, and searched() tells the end.
    /// It has none when another search begins or the history changes meanwhile.
    bool beginSearch(const QString &searchText);
    /// Ends a search that goes on at once, and without searched().
    void finishSearch();
    /// The clips whose text contains `searchText`, newest first, whatever the case. "*" in it
    /// stands for any run of characters, "?" for any one; after "file:" only file clips are
    /// looked at. The list stays as it is.
    Items searchClipItem(const QString &searchText);

    /// The line that a list shows for the clip is made anew when it is next asked for.
    void setShortText(const std::shared_ptr<ClipItem> &item);

    /// Counts one paste of the clip and saves.
    void countPaste(const std::shared_ptr<ClipItem> &item);

Q_SIGNALS:
    /// The list has changed by a load, a search or a deletion, or the formatting of a clip has come
    /// late; rows told before are out of date.
    void clipItemArrChanged();
    /// A search that took its time has made its result the list.
    void searched();
    /// A picture that was added is not kept after all.
    void pictureRefused(const PictureFile &file);

private:
    bool refusesChange();
    void fetch();
    void add(const Clip &clip, std::optional<double> copied);
    bool isRepeat(const ClipItem &item, const QString &text, const Clip &clip) const;
    std::shared_ptr<ClipItem> newestLike(const QString &text, const Clip *clip);
    void dropPictures();
    void putInOrder(const std::shared_ptr<ClipItem> &item);
    double stamp() const;
    void removeOldest(const std::shared_ptr<ClipItem> &added);
    void deleteAndLoad(const Items &items);
    void keepHtml(const Clip &clip, const std::shared_ptr<ClipItem> &item);
    void forget(const std::shared_ptr<ClipItem> &item);
    void hold(const Items &items);
    bool holdPictures(std::vector<ClipChange> &clips) const;
    bool isThereAgain(const ClipChange &deleted);
    std::vector<ClipChange> trimmed(Items &restored, const DeletedClips::Step &step);
    void showFound();
    void workWhileIdle();
    void emptyLog();
    void emptyLogLater();
    void emptyLogSoon();
    void saveAgain();

    Clock &m_clock;
    CaptureSettings &m_settings;
    ClipContext m_context;
    ClipIndex m_index;
    bool m_isFetched = false;
    bool m_hasTextless = false; ///< Whether there may be clips without a text.
    Items m_history;            ///< Every clip, newest first.
    bool m_isWindowOpen = false;
    bool m_isPinnedOnly = false;
    std::unique_ptr<ClipSearch> m_search; ///< The one that goes on; null for none.
    Items m_found;
    const Items *m_shown = &m_found; ///< The list: m_history or m_found.
    std::shared_ptr<ClipItem> m_lastClipItem;
    DeletedClips m_deletedClips;
    RichTextMaker m_richTextMaker;
    KeptPictures m_pictures;
    bool m_mayPicturesBeGone = true; ///< Clips are gone whose pictures may still be there.
    QTimer m_idleTimer;              ///< Fires while there is nothing else to do.
    bool m_isLogEmpty = true;        ///< Nothing was written since it was emptied.
    QTimer m_textTimer;              ///< Fires when no text was needed for a while.
    QTimer m_logTimer;               ///< Empties the write-ahead log a while after clips have gone.
    QTimer m_saveTimer;              ///< Runs while there is something that could not be saved.
    std::chrono::seconds m_saveDelay; ///< Before the next time that it fires.
};
