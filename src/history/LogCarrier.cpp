#include "history/LogCarrier.h"

#include "history/HistoryLog.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

namespace {

/// From so many pages on a log is carried over: SQLite's own measure.
constexpr int kMaxPages = 1000;

} // namespace

LogCarrier::LogCarrier(sqlite3 *database)
    : m_database(database), m_path(sqlite3_db_filename(database, "main"))
{
    // Takes the place of SQLite's own checkpoint, which the commit that fills the log waits for.
    sqlite3_wal_hook(
        database,
        [](void *self, sqlite3 *, const char *, int pages) {
            if (pages >= kMaxPages)
                static_cast<LogCarrier *>(self)->carry();
            return SQLITE_OK;
        },
        this);
}

LogCarrier::~LogCarrier()
{
    sqlite3_wal_hook(m_database, nullptr, nullptr);
}

void LogCarrier::carry()
{
    if (m_isCarrying.exchange(true))
        return;
    m_thread.start([this] {
        try {
            // Whoever writes or reads meanwhile is not held up: what they use stays for the next
            // time.
            SQLite::Database(m_path, SQLite::OPEN_READWRITE).exec("PRAGMA wal_checkpoint(PASSIVE)");
        } catch (const SQLite::Exception &exception) {
            qCDebug(lcHistory, "The log was not carried over: %s", exception.what());
        }
        m_isCarrying = false;
    });
}
