#include "history/StoreOpening.h"

#include "history/HistoryLog.h"
#include "history/StoreError.h"
#include "history/StoreModel.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

[[noreturn]] void stopWithoutStore(const StoreError &reason)
{
    qFatal("%s", qUtf8Printable(StoreError::ofOpening(reason).logLine()));
}

bool makeFolder(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder);
    const bool isThere =
        QFileInfo(folder).isDir() || (QDir().mkpath(QFileInfo(folder).absolutePath()) &&
                                      ::mkdir(path.constData(), S_IRWXU) == 0);
    if (!isThere)
        return false;
    if (::chmod(path.constData(), S_IRWXU) != 0)
        qCWarning(lcHistory, "The folder of the history could not be made private");
    return true;
}

/// Makes an empty file, so that it is private from its first moment.
void makeFile(const QByteArray &path)
{
    const int file =
        ::open(path.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file >= 0)
        ::close(file);
}

/// SQLite gives the write-ahead files the mode of the main file; those of an earlier run may have
/// another.
void makeFilesPrivate(const QByteArray &path)
{
    for (const char *suffix : {"", "-wal", "-shm"})
        ::chmod((path + suffix).constData(), S_IRUSR | S_IWUSR);
}

/// A file that has lost its owner's permission to write gets it back: opened without, it would take
/// nothing until the next start.
void makeFilesWritable(const QByteArray &path)
{
    for (const char *suffix : {"", "-wal", "-shm"}) {
        const QByteArray file = path + suffix;
        if (::access(file.constData(), F_OK) == 0 && ::access(file.constData(), R_OK | W_OK) != 0 &&
            ::chmod(file.constData(), S_IRUSR | S_IWUSR) != 0)
            qCWarning(lcHistory, "The file %s could not be made writable", file.constData());
    }
}

bool isReadOnly(const SQLite::Database &database)
{
    return sqlite3_db_readonly(database.getHandle(), "main") == 1;
}

/// Whether another's write-ahead log holds clips that are not in the store's own file.
bool hasFilledLog(const QByteArray &path)
{
    struct stat status = {};
    return ::stat((path + "-wal").constData(), &status) == 0 && status.st_size > 0;
}

/// To write where that is possible, else to read. That the file can be opened to write says little:
/// its folder may take no log, or the log be another user's.
std::unique_ptr<SQLite::Database> connectTo(const QByteArray &path)
{
    auto database = std::make_unique<SQLite::Database>(path.constData(), SQLite::OPEN_READWRITE,
                                                       kStoreBusyMilliseconds);
    // A store that does not fit is left alone, down to the write-ahead log of its last writer.
    sqlite3_db_config(database->getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    const int code = database->tryExec("BEGIN IMMEDIATE");
    if (code == SQLITE_OK)
        database->exec("ROLLBACK");
    if (code != SQLITE_READONLY && code != SQLITE_CANTOPEN)
        return database;
    // One that can only be read may want a log beside it even for that.
    if (isReadOnly(*database) && database->tryExec("SELECT 1 FROM sqlite_schema") == SQLITE_OK)
        return database;
    if (hasFilledLog(path))
        return std::make_unique<SQLite::Database>(path.constData(), SQLite::OPEN_READONLY,
                                                  kStoreBusyMilliseconds);
    // Without a log beside it the file is whole by itself.
    return std::make_unique<SQLite::Database>(
        ("file:" + path.toPercentEncoding("/") + "?immutable=1").constData(),
        SQLite::OPEN_READONLY | SQLite::OPEN_URI);
}

std::unique_ptr<SQLite::Database> open(const QByteArray &path)
{
    struct stat status = {};
    if (::stat(path.constData(), &status) == 0) {
        // SQLite would take a file of one byte for an empty database and write over it.
        constexpr off_t kMinDatabase = 512;
        if (!S_ISREG(status.st_mode) || (status.st_size > 0 && status.st_size < kMinDatabase))
            throw SQLite::Exception("it is not a database", SQLITE_NOTADB);
    }
    std::unique_ptr<SQLite::Database> database = connectTo(path);
    database->exec("PRAGMA secure_delete = ON");
    const StoreModel::Fit fit = StoreModel::inspect(*database);
    if (fit == StoreModel::Fit::Adaptable ||
        (fit == StoreModel::Fit::Readable && !isReadOnly(*database)))
        StoreModel::adapt(*database);
    sqlite3_db_config(database->getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    return database;
}

void useWriteAheadLog(SQLite::Database &database)
{
    if (isReadOnly(database)) {
        qCWarning(lcHistory, "The history can be read but not written");
        return;
    }
    if (database.execAndGet("PRAGMA journal_mode = WAL").getString() != "wal")
        qCWarning(lcHistory, "The history is written without a write-ahead log");
    database.exec("PRAGMA synchronous = NORMAL");
}

/// The folder is there.
std::unique_ptr<SQLite::Database> openIn(const QString &folder)
{
    const QByteArray path = QFile::encodeName(folder + QStringLiteral("/Quillmarsh.sqlite"));
    makeFile(path);
    makeFilesWritable(path);
    std::unique_ptr<SQLite::Database> database = open(path);
    useWriteAheadLog(*database);
    makeFilesPrivate(path);
    return database;
}

} // namespace

std::unique_ptr<SQLite::Database> openClipStore(const QString &folder)
{
    if (!makeFolder(folder))
        qFatal("The folder %s could not be made", qUtf8Printable(folder));
    try {
        return openIn(folder);
    } catch (const SQLite::Exception &exception) {
        stopWithoutStore(StoreError::ofSqlite(exception.getExtendedErrorCode() > 0
                                                  ? exception.getExtendedErrorCode()
                                                  : exception.getErrorCode(),
                                              QString::fromUtf8(exception.what())));
    }
}

std::unique_ptr<SQLite::Database> openClipStoreAnew(const QString &folder)
{
    if (!makeFolder(folder))
        return nullptr;
    try {
        return openIn(folder);
    } catch (const SQLite::Exception &exception) {
        qCDebug(lcHistory, "There is no store any more: %s", exception.what());
        return nullptr;
    }
}
