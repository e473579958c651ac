#pragma once

#include "history/Clip.h"

#include <QString>

#include <optional>
#include <string>

namespace SQLite {
class Column;
class Database;
class Statement;
} // namespace SQLite

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
/// Writes one record; the key of the record written.
qint64 write(SQLite::Database &database, const ClipChange &change);

} // namespace ClipRecord
