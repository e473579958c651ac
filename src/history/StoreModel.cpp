#include "history/StoreModel.h"

#include "history/ClipPins.h"
#include "platform/Copy.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Attribute
{
    const char *name;
    const char *type;
};

/// Short attributes first: SQLite walks through all of a long text to reach what is stored behind
/// it.
std::vector<Attribute> attributes()
{
    std::vector<Attribute> all{{"id", "INTEGER"},         {"createDate", "REAL"},
                               {"pasteCount", "INTEGER"}, {"applicationName", "TEXT"},
                               {"filepath", "TEXT"},      {"strValue", "TEXT"}};
    for (const CopyFormat &format : storedFormats())
        all.push_back({format.attribute, "TEXT"});
    return all;
}

// The first gives the list's order without reading the texts; the others tell file clips, and clips
// without a text, of which another program alone makes any.
constexpr std::array kIndexes{
    Attribute{"ClipItem_createDate", "ON ClipItem(createDate)"},
    Attribute{"ClipItem_files", "ON ClipItem(pk) WHERE filepath IS NOT NULL"},
    Attribute{"ClipItem_textless", "ON ClipItem(pk) WHERE strValue IS NULL"},
};

struct Column
{
    std::string name;
    std::string type;
    bool isRequired; ///< A record without a value for it is refused.
    bool isKey;
};

[[noreturn]] void refuse(const std::string &reason)
{
    throw SQLite::Exception(reason, SQLITE_MISMATCH);
}

bool equalsIgnoringCase(std::string_view one, std::string_view other)
{
    return one.size() == other.size() &&
           sqlite3_strnicmp(one.data(), other.data(), static_cast<int>(one.size())) == 0;
}

bool contains(std::string_view type, std::string_view part)
{
    const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; };
    return std::search(type.begin(), type.end(), part.begin(), part.end(),
                       [&](char a, char b) { return upper(a) == b; }) != type.end();
}

/// The kind of values that SQLite keeps in a column declared so.
std::string_view kindOf(std::string_view type)
{
    if (contains(type, "INT"))
        return "INTEGER";
    if (contains(type, "CHAR") || contains(type, "CLOB") || contains(type, "TEXT"))
        return "TEXT";
    if (type.empty() || contains(type, "BLOB"))
        return "BLOB";
    if (contains(type, "REAL") || contains(type, "FLOA") || contains(type, "DOUB"))
        return "REAL";
    return "NUMERIC";
}

bool hasAny(SQLite::Database &database, const std::string &query)
{
    return SQLite::Statement(database, query).executeStep();
}

std::vector<Column> columnsOf(SQLite::Database &database)
{
    std::vector<Column> columns;
    SQLite::Statement info(database, "PRAGMA table_info(ClipItem)");
    while (info.executeStep())
        columns.push_back({info.getColumn(1).getString(), info.getColumn(2).getString(),
                           info.getColumn(3).getInt() != 0 && info.getColumn(4).isNull(),
                           info.getColumn(5).getInt() != 0});
    return columns;
}

const Column *columnNamed(const std::vector<Column> &columns, std::string_view name)
{
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const Column &column) {
        return equalsIgnoringCase(column.name, name);
    });
    return found == columns.end() ? nullptr : &*found;
}

void checkColumns(const std::vector<Column> &columns)
{
    const Column *key = columnNamed(columns, "pk");
    if (!key || !key->isKey || !equalsIgnoringCase(key->type, "INTEGER"))
        refuse("the table ClipItem has no key \"pk\"");
    for (const Column &column : columns) {
        if (&column == key)
            continue;
        if (column.isKey || column.isRequired)
            refuse("the column \"" + column.name + "\" must not be empty");
    }
    for (const Attribute &attribute : attributes()) {
        const Column *column = columnNamed(columns, attribute.name);
        if (column && kindOf(column->type) != attribute.type)
            refuse("the column \"" + column->name + "\" is of another kind");
    }
}

StoreModel::Fit fitOf(SQLite::Database &database, const std::vector<Column> &columns)
{
    const auto hasColumn = [&](const Attribute &attribute) {
        return columnNamed(columns, attribute.name) != nullptr;
    };
    const auto hasIndex = [&](const Attribute &index) {
        return hasAny(database, std::string("SELECT 1 FROM sqlite_schema WHERE type = 'index' AND "
                                            "name = '") +
                                    index.name + "'");
    };
    const std::vector<Attribute> wanted = attributes();
    if (!std::all_of(wanted.begin(), wanted.end(), hasColumn))
        return StoreModel::Fit::Adaptable;
    return std::all_of(kIndexes.begin(), kIndexes.end(), hasIndex) && ClipPins::isWhole(database)
               ? StoreModel::Fit::Ready
               : StoreModel::Fit::Readable;
}

} // namespace

QStringList StoreModel::attributeNames()
{
    QStringList names;
    for (const Attribute &attribute : attributes())
        names.append(QString::fromLatin1(attribute.name));
    return names;
}

StoreModel::Fit StoreModel::inspect(SQLite::Database &database)
{
    const int version = database.execAndGet("PRAGMA user_version").getInt();
    if (version > kMajorVersion)
        refuse("it was written by a newer version (" + std::to_string(version) + ")");
    if (!hasAny(database, "SELECT 1 FROM sqlite_schema"))
        return Fit::Adaptable;
    if (database.execAndGet("PRAGMA encoding").getString() != "UTF-8")
        refuse("its texts are not UTF-8");
    if (!hasAny(database, "SELECT 1 FROM sqlite_schema WHERE type = 'table' AND "
                          "name = 'ClipItem' COLLATE NOCASE"))
        refuse("it has no table ClipItem");
    const std::vector<Column> columns = columnsOf(database);
    checkColumns(columns);
    return fitOf(database, columns);
}

void StoreModel::adapt(SQLite::Database &database)
{
    SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
    database.exec("CREATE TABLE IF NOT EXISTS ClipItem (pk INTEGER PRIMARY KEY)");
    const std::vector<Column> columns = columnsOf(database);
    for (const Attribute &attribute : attributes()) {
        if (!columnNamed(columns, attribute.name))
            database.exec(std::string("ALTER TABLE ClipItem ADD COLUMN ") + attribute.name + " " +
                          attribute.type);
    }
    for (const Attribute &index : kIndexes)
        database.exec(std::string("CREATE INDEX IF NOT EXISTS ") + index.name + " " + index.type);
    ClipPins::repair(database);
    database.exec("PRAGMA user_version = " + std::to_string(kMajorVersion));
    transaction.commit();
}
