#include "history/ClipStore.h"

#include "history/ClipPins.h"
#include "history/ClipRecord.h"
#include "history/HistoryLog.h"
#include "history/LogCarrier.h"
#include "history/StoreModel.h"
#include "history/StoreOpening.h"
#include "history/StoredTextReader.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace {

void logUnreadable(const SQLite::Exception &exception)
{
    qCWarning(lcHistory, "The history could not be read: %s", exception.what());
}

/// In rising order.
std::vector<qint64> pksWhere(SQLite::Database &database, const char *condition)
{
    std::vector<qint64> pks;
    SQLite::Statement query(database, std::string("SELECT pk FROM ClipItem WHERE ") + condition +
                                          " ORDER BY pk");
    while (query.executeStep())
        pks.push_back(query.getColumn(0).getInt64());
    return pks;
}

} // namespace

ClipStore::ClipStore(const QString &folder) : m_folder(folder) {}

ClipStore::~ClipStore() = default;

SQLite::Database &ClipStore::database()
{
    if (!m_database) {
        m_database = openClipStore(m_folder);
        m_logCarrier = std::make_unique<LogCarrier>(m_database->getHandle());
    }
    return *m_database;
}

ClipStore::Place ClipStore::follow()
{
    // Of a file that was replaced, or went with its folder, nothing written is ever seen again.
    int isElsewhere = 0;
    if (!m_database ||
        sqlite3_file_control(m_database->getHandle(), "main", SQLITE_FCNTL_HAS_MOVED,
                             &isElsewhere) != SQLITE_OK ||
        isElsewhere == 0)
        return Place::Same;
    closeText();
    std::unique_ptr<SQLite::Database> another = openClipStoreAnew(m_folder);
    if (!another)
        return Place::Nowhere;
    // Closed as ever it would take the new one's log along, which has the name of its own.
    sqlite3_db_config(m_database->getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    m_logCarrier.reset();
    m_database = std::move(another);
    m_logCarrier = std::make_unique<LogCarrier>(m_database->getHandle());
    m_isHeld = false;
    return Place::Another;
}

bool ClipStore::isReadOnly()
{
    return sqlite3_db_readonly(database().getHandle(), "main") == 1;
}

std::optional<std::vector<ClipStore::Row>> ClipStore::readRows()
{
    try {
        // Before the rows: what is changed in between is read once more by the next load.
        const int version = dataVersion();
        const std::vector<qint64> files = pksWhere(database(), "filepath IS NOT NULL");
        const std::vector<qint64> textless = pksWhere(database(), "strValue IS NULL");
        const std::vector<qint64> pinned = readPins();
        std::vector<Row> rows;
        SQLite::Statement query(database(),
                                "SELECT pk, createDate FROM ClipItem ORDER BY createDate, pk");
        while (query.executeStep()) {
            const qint64 pk = query.getColumn(0).getInt64();
            rows.push_back({pk, ClipRecord::dateOf(query.getColumn(1)),
                            std::binary_search(files.begin(), files.end(), pk),
                            !std::binary_search(textless.begin(), textless.end(), pk),
                            std::binary_search(pinned.begin(), pinned.end(), pk)});
        }
        m_readVersion = version;
        return rows;
    } catch (const SQLite::Exception &exception) {
        logUnreadable(exception);
        return std::nullopt;
    }
}

std::vector<qint64> ClipStore::readPins()
{
    try {
        m_arePinsKnown = true;
        return ClipPins::read(database());
    } catch (const SQLite::Exception &exception) {
        m_arePinsKnown = false;
        logUnreadable(exception);
        return {};
    }
}

bool ClipStore::isChangedByOthers()
{
    // A record that is held open would hold the view of that moment.
    closeText();
    try {
        return dataVersion() != m_readVersion;
    } catch (const SQLite::Exception &exception) {
        logUnreadable(exception);
        return false;
    }
}

/// Another number after each change by another connection than ours.
int ClipStore::dataVersion()
{
    return database().execAndGet("PRAGMA data_version").getInt();
}

ClipStore::Details ClipStore::readDetails(qint64 pk)
{
    Details details;
    try {
        SQLite::Statement query(
            database(),
            "SELECT id, pasteCount, applicationName, filepath FROM ClipItem WHERE pk = ?");
        query.bind(1, static_cast<std::int64_t>(pk));
        if (!query.executeStep())
            return details;
        if (!query.getColumn(0).isNull())
            details.id = query.getColumn(0).getInt64();
        if (!query.getColumn(1).isNull())
            details.pasteCount = query.getColumn(1).getInt();
        details.applicationName = ClipRecord::textOf(query.getColumn(2));
        details.filepath = ClipRecord::textOf(query.getColumn(3));
    } catch (const SQLite::Exception &exception) {
        logUnreadable(exception);
    }
    return details;
}

std::optional<QStringList> ClipStore::readFilepaths()
{
    try {
        QStringList paths;
        SQLite::Statement query(database(),
                                "SELECT filepath FROM ClipItem WHERE filepath IS NOT NULL");
        while (query.executeStep())
            paths.append(ClipRecord::textOf(query.getColumn(0)).value_or(QString()));
        return paths;
    } catch (const SQLite::Exception &exception) {
        logUnreadable(exception);
        return std::nullopt;
    }
}

std::optional<QString> ClipStore::readText(qint64 pk, const char *attribute)
{
    try {
        SQLite::Statement statement(database(), std::string("SELECT ") + attribute +
                                                    " FROM ClipItem WHERE pk = ?");
        statement.bind(1, static_cast<std::int64_t>(pk));
        return statement.executeStep() ? ClipRecord::textOf(statement.getColumn(0)) : std::nullopt;
    } catch (const SQLite::Exception &exception) {
        logUnreadable(exception);
        return std::nullopt;
    }
}

std::optional<std::vector<ClipChange>> ClipStore::readRecords(const std::vector<qint64> &pks,
                                                              qint64 limit)
{
    std::vector<ClipChange> records;
    records.reserve(pks.size());
    try {
        SQLite::Statement query(database(),
                                "SELECT " + ClipRecord::columns() + " FROM ClipItem WHERE pk = ?");
        for (const qint64 pk : pks) {
            query.reset();
            query.bind(1, static_cast<std::int64_t>(pk));
            if (!query.executeStep())
                continue;
            ClipChange record = ClipRecord::read(query);
            record.formerPk = pk;
            limit -= record.clip->storedBytes();
            if (limit < 0)
                return std::nullopt;
            records.push_back(std::move(record));
        }
        return records;
    } catch (const SQLite::Exception &exception) {
        logUnreadable(exception);
        return std::nullopt;
    }
}

std::optional<ClipStore::TextPart> ClipStore::readTextPart(qint64 pk, qint64 begin, qint64 limit)
{
    if (!m_textReader)
        m_textReader = std::make_unique<StoredTextReader>(database().getHandle());
    return m_textReader->read(pk, begin, limit);
}

void ClipStore::closeText()
{
    m_textReader.reset();
}

std::optional<StoreError> ClipStore::write(std::vector<ClipChange> &changes,
                                           const std::vector<qint64> &deletedPks)
{
    closeText();
    try {
        SQLite::Transaction transaction(database(), SQLite::TransactionBehavior::IMMEDIATE);
        if (!deletedPks.empty()) {
            SQLite::Statement deletion(database(), "DELETE FROM ClipItem WHERE pk = ?");
            for (const qint64 pk : deletedPks) {
                deletion.bind(1, static_cast<std::int64_t>(pk));
                deletion.exec();
                deletion.reset();
            }
        }
        ClipRecord::Writer writer(database());
        std::vector<qint64> pks;
        std::transform(changes.begin(), changes.end(), std::back_inserter(pks),
                       [&writer](const ClipChange &change) { return writer.write(change); });
        std::vector<std::optional<bool>> pins;
        for (std::size_t i = 0; i < changes.size(); ++i)
            pins.push_back(changes[i].isPinned
                               ? std::optional(writePin(pks[i], *changes[i].isPinned))
                               : std::nullopt);
        transaction.commit();
        for (std::size_t i = 0; i < changes.size(); ++i) {
            changes[i].pk = pks[i];
            changes[i].isPinned = pins[i];
        }
        setHeld(false);
        return std::nullopt;
    } catch (const SQLite::Exception &exception) {
        if (exception.getErrorCode() == SQLITE_BUSY)
            setHeld(true);
        return StoreError::ofSqlite(exception.getErrorCode(), QString::fromUtf8(exception.what()));
    }
}

/// Whoever holds the store for longer than is waited is waited for once, and then no more until he
/// has let go.
void ClipStore::setHeld(bool isHeld)
{
    if (std::exchange(m_isHeld, isHeld) != isHeld)
        sqlite3_busy_timeout(m_database->getHandle(), isHeld ? 0 : kStoreBusyMilliseconds);
}

/// Whether the clip is pinned then.
bool ClipStore::writePin(qint64 pk, bool isPinned)
{
    try {
        ClipPins::write(database(), pk, isPinned);
        return isPinned;
    } catch (const SQLite::Exception &exception) {
        switch (exception.getErrorCode()) {
        case SQLITE_ERROR:
        case SQLITE_MISMATCH:
        case SQLITE_CONSTRAINT:
        case SQLITE_CORRUPT:
            // Tried again it would fail again, and every clip of the same save with it.
            qCWarning(lcHistory, "The pin could not be kept: %s", exception.what());
            return false;
        default:
            throw;
        }
    }
}

bool ClipStore::emptyLog()
{
    closeText();
    return sqlite3_wal_checkpoint_v2(database().getHandle(), nullptr, SQLITE_CHECKPOINT_TRUNCATE,
                                     nullptr, nullptr) == SQLITE_OK;
}

bool ClipStore::prepareLog()
{
    closeText();
    // Any commit will do; one that fails leaves the log as it was.
    return database().tryExec("PRAGMA user_version = " +
                              std::to_string(StoreModel::kMajorVersion)) == SQLITE_OK;
}

void ClipStore::vacuum()
{
    closeText();
    if (const int code = database().tryExec("VACUUM"); code != SQLITE_OK)
        qCWarning(lcHistory, "The history could not be compacted: %s", database().getErrorMsg());
}
