#pragma once

#include "history/Clip.h"
#include "history/StoreError.h"
#include "history/StoreModel.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

class LogCarrier;
class StoredTextReader;
namespace SQLite {
class Database;
}

/// The records on disk. Owned by ClipContext; knows records by their key `pk` and nothing of
/// clips. The file is opened by its first use, as openClipStore() does. Reading that fails is
/// logged and told as absent; the file is never repaired or replaced.
class ClipStore
{
public:
    /// Seconds since 1970 UTC; beyond these, ahead or back, a stored number is no date.
    static constexpr double kMaxDate = 1e12;

    struct Row
    {
        qint64 pk;
        double createDate; ///< Seconds since 1970 UTC; NaN when absent.
        bool hasFilepath;
        bool hasText;
        bool isPinned;
    };

    /// Everything that is short; it means what it means in ClipItem.
    struct Details
    {
        std::optional<qint64> id;
        std::optional<qint32> pasteCount;
        std::optional<QString> applicationName;
        std::optional<QString> filepath;
    };

    /// A part of a record's text, as UTF-8, which may begin and end within a character.
    struct TextPart
    {
        QByteArray bytes;
        qint64 size = 0; ///< Of the whole text, in bytes.
    };

    explicit ClipStore(const QString &folder);
    ~ClipStore();

    /// Opens the file unless it is open.
    void open() { database(); }
    enum class Place {
        Same,    ///< The open file is the one at the store's place.
        Another, ///< It was not, and is from now on: no key that was known means anything any more.
        Nowhere, ///< It is not, and there can be none; what is written is lost.
    };
    /// Opens the file that is at the store's place now, made anew where there is none, when the
    /// open one was removed, moved or replaced.
    [[nodiscard]] Place follow();
    /// Whether the file can be read but not written.
    bool isReadOnly();

    const StoreModel &model() const { return m_model; }

    /// Every record, oldest first; absent when they cannot be read.
    std::optional<std::vector<Row>> readRows();
    /// Whether the last readRows() could read the pins; else every row is told as not pinned.
    bool arePinsKnown() const { return m_arePinsKnown; }
    /// Whether another program has changed the store since the last readRows().
    bool isChangedByOthers();

    /// Empty for a record that is not there.
    Details readDetails(qint64 pk);
    /// Of all records that have one; absent when they cannot be read.
    std::optional<QStringList> readFilepaths();
    std::optional<QString> readText(qint64 pk, const char *attribute = "strValue");
    /// Whole records, in the order of `pks`, as changes that would write them; those that are gone
    /// are left out. Absent when they cannot be read or their texts take more than `limit` bytes.
    std::optional<std::vector<ClipChange>> readRecords(const std::vector<qint64> &pks,
                                                       qint64 limit);
    /// At most `limit` bytes of the text from `begin` on, however long it is; absent when there is
    /// no text.
    std::optional<TextPart> readTextPart(qint64 pk, qint64 begin, qint64 limit);
    /// Ends a series of readTextPart(), which keeps the record open for the next.
    void closeText();

    /// Writes everything or nothing, in one transaction. Absent when it succeeded; the keys of new
    /// records are filled in then. A pin that the store has no place for is logged and told as
    /// none: no clip is lost for it.
    [[nodiscard]] std::optional<StoreError> write(std::vector<ClipChange> &changes,
                                                  const std::vector<qint64> &deletedPks);

    /// Empties the write-ahead log, which still tells what was deleted. False when another
    /// program reads in it, or the disk refuses: ask again later.
    [[nodiscard]] bool emptyLog();
    /// Makes a first write, which changes nothing: into an empty log it waits for the disk, better
    /// while nobody waits than at the next copy or paste. False when it failed.
    bool prepareLog();
    /// Gives the space of deleted records back to the disk.
    void vacuum();

private:
    SQLite::Database &database();
    std::vector<qint64> readPins();
    bool writePin(qint64 pk, bool isPinned);
    void setHeld(bool isHeld);
    int dataVersion();

    const StoreModel m_model{};
    const QString m_folder;
    std::unique_ptr<SQLite::Database> m_database; ///< Null until the first use.
    std::unique_ptr<LogCarrier> m_logCarrier;     ///< Likewise.
    std::unique_ptr<StoredTextReader> m_textReader;
    int m_readVersion = 0; ///< The store's data version at the last readRows().
    bool m_arePinsKnown = true;
    bool m_isHeld = false; ///< By another program, which the latest write did not outwait.
};
