#pragma once

#include "history/ClipLine.h"
#include "history/ClipStore.h"

#include <QCache>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

class ClipItem;

/// The one context through which all clips are read and written: it makes the one object of each
/// record, holds what is not saved yet, and keeps the values read last, bounded in bytes. Owned by
/// ClipHistory; outlives every clip that is still in the history.
class ClipContext
{
public:
    using Items = std::vector<std::shared_ptr<ClipItem>>;

    struct Fetched
    {
        Items items; ///< Every clip of the history, in no particular order.
        Items gone;  ///< Those of the known ones whose records another program has removed.
    };

    explicit ClipContext(const QString &storeFolder);
    ~ClipContext();
    ClipContext(const ClipContext &) = delete;
    ClipContext &operator=(const ClipContext &) = delete;

    ClipStore &store() { return m_store; }

    /// Whether the store has changed since the last fetch(), by another program or because there is
    /// another one in its place.
    bool isChangedByOthers();
    /// The clips of all records that are not deleted, those in `known` as the objects they are,
    /// with what is not saved yet; absent when they cannot be read. Nothing that was read before
    /// counts.
    std::optional<Fetched> fetch(const Items &known);

    std::shared_ptr<ClipItem> insert();
    /// `createDate` in seconds since 1970 UTC.
    void setClip(const std::shared_ptr<ClipItem> &item, const Clip &clip, double createDate);
    void setPasteCount(const std::shared_ptr<ClipItem> &item, qint32 pasteCount);
    void setPinned(const std::shared_ptr<ClipItem> &item, bool isPinned);
    void remove(const std::shared_ptr<ClipItem> &item);
    /// As remove(), of a clip whose record is gone already.
    void letGo(const std::shared_ptr<ClipItem> &item);
    /// The whole of clips as what would record them again; absent when they cannot be read or their
    /// texts take more than `limit` bytes.
    std::optional<std::vector<ClipChange>> records(const Items &items, qint64 limit);
    /// A clip that was deleted, as such a record tells it.
    std::shared_ptr<ClipItem> restore(const ClipChange &record);
    /// A restored clip that is not saved goes again; what it was restored from.
    ClipChange withdraw(const std::shared_ptr<ClipItem> &item);
    /// The clip keeps its text in memory, so that it can be asked for after its removal.
    void keepText(const std::shared_ptr<ClipItem> &item);

    bool hasChanges() const { return !m_changed.empty() || !m_deletedPks.empty(); }
    /// Saves all changes in one transaction. What fails is logged, stays and is tried again.
    void save();

    // Values as saved; ClipItem puts its unsaved ones before them.
    ClipStore::Details details(const ClipItem &item);
    std::optional<QString> text(const ClipItem &item);
    std::optional<QString> format(const ClipItem &item, const CopyFormat &format);
    /// Past everything that is kept.
    std::optional<ClipStore::TextPart> textPart(const ClipItem &item, qint64 begin, qint64 limit);
    void closeText() { m_store.closeText(); }

    std::optional<QString> shortText(const ClipItem &item);
    QString drawnText(const ClipItem &item);
    int copiedFileCount(const ClipItem &item);
    /// The beginning of the text, or the file, in one line of at most so many characters without
    /// any that would steer a terminal. Nothing of it is kept: it is for lists of all clips. Ends
    /// with closeText().
    QString plainLine(const ClipItem &item, qsizetype limit);
    void forgetShortText(const ClipItem &item);
    /// Of the text that was read last, when it is a long one: to be called after a while without
    /// use.
    void forgetLongText();

private:
    bool followStore();
    void touch(const std::shared_ptr<ClipItem> &item);
    void rememberText(qint64 pk, const QString &text);
    void forgetValues();
    ClipLine readShortText(const ClipItem &item);
    ClipLine makeShortText(const ClipItem &item);

    const QString m_folder;
    ClipStore m_store;
    Items m_changed; ///< Each once, in the order of their first change.
    std::vector<qint64> m_deletedPks;
    bool m_isAnother = false; ///< The store is, since the last fetch().

    QCache<qint64, ClipStore::Details> m_details;
    QCache<qint64, QString> m_texts;
    QCache<qint64, ClipLine> m_shortTexts;
    qint64 m_latestPk = 0; ///< Whose text was read last; it is kept however long it is.
    QString m_latestText;
};
