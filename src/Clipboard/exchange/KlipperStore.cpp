#include "Clipboard/exchange/KlipperStore.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <chrono>
#include <memory>

#include <sqlite3.h>

namespace {

using ForeignFormats::Contents;

/// However it is built to take long.
constexpr std::chrono::seconds kMaxTime{10};
constexpr int kStepsBetweenLooks = 100'000;
/// The addresses of copied files.
constexpr qint64 kMaxList = 1024 * 1024; // bytes

struct Closer
{
    void operator()(sqlite3 *database) const { sqlite3_close_v2(database); }
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Closer>;
using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

Statement prepare(const Database &database, const char *text)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(database.get(), text, -1, &statement, nullptr) != SQLITE_OK)
        statement = nullptr;
    return Statement(statement);
}

int isOver(void *deadline)
{
    return static_cast<QDeadlineTimer *>(deadline)->hasExpired() ? 1 : 0;
}

/// Null when it is no such database. What its program still has in its log is read along; that
/// cannot be done, and need not, once the program has ended and the log has gone.
Database open(const QString &path, QDeadlineTimer &deadline)
{
    const QByteArray url = QUrl::fromLocalFile(path).toEncoded();
    for (const char *how : {"?mode=ro", "?mode=ro&immutable=1"}) {
        sqlite3 *opened = nullptr;
        const int result = sqlite3_open_v2((url + how).constData(), &opened,
                                           SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
        Database database(opened);
        if (result != SQLITE_OK)
            continue;
        sqlite3_limit(opened, SQLITE_LIMIT_LENGTH, static_cast<int>(ForeignFormats::kMaxText));
        sqlite3_progress_handler(opened, kStepsBetweenLooks, isOver, &deadline);
        sqlite3_exec(opened, "PRAGMA trusted_schema = OFF", nullptr, nullptr, nullptr);
        const Statement look = prepare(database, "SELECT count(*) FROM sqlite_schema");
        if (look && sqlite3_step(look.get()) == SQLITE_ROW)
            return database;
    }
    return nullptr;
}

QByteArray bytesOf(const Statement &statement, int column)
{
    const void *bytes = sqlite3_column_blob(statement.get(), column);
    return {static_cast<const char *>(bytes), sqlite3_column_bytes(statement.get(), column)};
}

/// Whether it is the name of an entry and not the way to another folder.
bool isName(const QByteArray &name)
{
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), [](char character) {
        return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'f');
    });
}

/// The URLs of an entry of files, which lie beside the database.
QList<QByteArray> urlsOf(const QString &folder, const QByteArray &entry, const QByteArray &data)
{
    QFile file(folder + QStringLiteral("/data/") + QString::fromLatin1(entry) + u'/' +
               QString::fromLatin1(data));
    if (!isName(entry) || !isName(data) || !QFileInfo(file).isFile() ||
        !file.open(QIODevice::ReadOnly))
        return {};
    return file.read(kMaxList).split('\n');
}

} // namespace

Contents KlipperStore::read(const QString &path)
{
    Contents contents;
    QDeadlineTimer deadline(kMaxTime);
    const Database database = open(path, deadline);
    const Statement entries =
        database ? prepare(database,
                           "SELECT entry.text, COALESCE(entry.last_used_time, entry.added_time), "
                           "entry.uuid, files.data_uuid FROM main.main AS entry "
                           "LEFT JOIN main.aux AS files ON files.uuid = entry.uuid "
                           "AND files.mimetype = 'text/uri-list' ORDER BY 2 DESC")
                 : nullptr;
    int result = SQLITE_ERROR;
    while (entries && (result = sqlite3_step(entries.get())) == SQLITE_ROW &&
           contents.clips.size() < ForeignFormats::kMaxClips) {
        const qsizetype before = contents.clips.size();
        if (const QByteArray files = bytesOf(entries, 3); !files.isEmpty())
            ForeignFormats::takeUrls(contents,
                                     urlsOf(QFileInfo(path).path(), bytesOf(entries, 2), files));
        else
            ForeignFormats::takeText(contents, bytesOf(entries, 0));
        if (contents.clips.size() > before)
            contents.clips.last().createSeconds = sqlite3_column_double(entries.get(), 1);
    }
    contents.isUnderstood = result == SQLITE_DONE || result == SQLITE_ROW;
    return contents;
}
