#include "history/ClipPins.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace {

bool hasAny(SQLite::Database &database, const char *query)
{
    return SQLite::Statement(database, query).executeStep();
}

/// Whether there is a table of our shape.
bool hasTable(SQLite::Database &database)
{
    return hasAny(database, "SELECT 1 FROM sqlite_schema WHERE type = 'table' AND "
                            "name = 'ClipPin' COLLATE NOCASE") &&
           hasAny(database, "SELECT 1 FROM pragma_table_info('ClipPin') WHERE "
                            "lower(name) = 'clip' AND upper(type) = 'INTEGER' AND pk = 1");
}

bool hasTrigger(SQLite::Database &database)
{
    return hasAny(database, "SELECT 1 FROM sqlite_schema WHERE type = 'trigger' AND "
                            "name = 'ClipPin_deleted'");
}

void makeTrigger(SQLite::Database &database)
{
    database.exec("CREATE TRIGGER IF NOT EXISTS ClipPin_deleted AFTER DELETE ON ClipItem "
                  "BEGIN DELETE FROM ClipPin WHERE clip = old.pk; END");
}

} // namespace

bool ClipPins::isWhole(SQLite::Database &database)
{
    return hasTable(database) == hasTrigger(database);
}

void ClipPins::repair(SQLite::Database &database)
{
    if (hasTable(database))
        makeTrigger(database);
    else
        database.exec("DROP TRIGGER IF EXISTS ClipPin_deleted");
}

std::vector<qint64> ClipPins::read(SQLite::Database &database)
{
    std::vector<qint64> pks;
    if (!hasTable(database))
        return pks;
    SQLite::Statement query(database, "SELECT clip FROM ClipPin ORDER BY clip");
    while (query.executeStep())
        pks.push_back(query.getColumn(0).getInt64());
    return pks;
}

void ClipPins::write(SQLite::Database &database, qint64 pk, bool isPinned)
{
    if (isPinned)
        database.exec("CREATE TABLE IF NOT EXISTS ClipPin (clip INTEGER PRIMARY KEY)");
    if (!hasTable(database)) {
        if (isPinned)
            throw SQLite::Exception("the table ClipPin is not ours", SQLITE_MISMATCH);
        return;
    }
    makeTrigger(database);
    SQLite::Statement statement(
        database, isPinned ? "INSERT OR IGNORE INTO ClipPin SELECT pk FROM ClipItem WHERE pk = ?"
                           : "DELETE FROM ClipPin WHERE clip = ?");
    statement.bind(1, static_cast<std::int64_t>(pk));
    statement.exec();
}
