#pragma once

#include "history/Clip.h"

#include <QString>

#include <SQLiteCpp/SQLiteCpp.h>

#include <optional>
#include <string>
#include <unordered_map>

/// A record of the store and the values of its columns. What SQLite throws goes through.
namespace ClipRecord {

/// Absent for NULL.
std::optional<QString> textOf(const SQLite::Column &column);
/// NaN for what is no date.
double dateOf(const SQLite::Column &column);

/// The columns of a whole record, as a query names them.
std::string columns();
/// The record at which a query for these columns stands.
ClipChange read(SQLite::Statement &query);
/// Writes the records of one transaction, within which it ends. It prepares each statement once,
/// which takes longer than to write a record by it: a deletion that is taken back may have a
/// hundred thousand.
class Writer
{
public:
    explicit Writer(SQLite::Database &database) : m_database(database) {}

    /// Writes one record; the key of the record written.
    qint64 write(const ClipChange &change);

private:
    bool isTaken(qint64 pk);
    /// Ready to be bound, and usable until it is asked for again.
    SQLite::Statement &statement(const std::string &text);

    SQLite::Database &m_database;
    std::unordered_map<std::string, SQLite::Statement> m_statements;
};

} // namespace ClipRecord
