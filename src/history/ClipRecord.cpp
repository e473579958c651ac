#include "history/ClipRecord.h"

#include "history/ClipStore.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <cmath>
#include <limits>
#include <utility>
#include <variant>
#include <vector>

namespace {

using Value = std::variant<double, qint32, qint64, std::optional<QString>>;
using Column = std::pair<std::string, Value>;

std::vector<Column> columnsOf(const ClipChange &change)
{
    std::vector<Column> columns;
    if (change.pasteCount)
        columns.emplace_back("pasteCount", *change.pasteCount);
    if (change.id)
        columns.emplace_back("id", *change.id);
    if (!change.clip)
        return columns;
    columns.emplace_back("createDate", change.createDate);
    columns.emplace_back("applicationName", change.clip->applicationName);
    columns.emplace_back("filepath", change.clip->filepath());
    if (change.pk == 0)
        columns.emplace_back("strValue", change.clip->text);
    for (const CopyFormat &format : storedFormats())
        columns.emplace_back(format.attribute, *change.clip.*format.source);
    return columns;
}

void bind(SQLite::Statement &statement, int index, const Value &value)
{
    if (const auto *date = std::get_if<double>(&value))
        statement.bind(index, *date);
    else if (const auto *count = std::get_if<qint32>(&value))
        statement.bind(index, *count);
    else if (const auto *number = std::get_if<qint64>(&value))
        statement.bind(index, static_cast<std::int64_t>(*number));
    else if (const auto &text = std::get<std::optional<QString>>(value))
        statement.bind(index, text->toStdString());
}

} // namespace

std::optional<QString> ClipRecord::textOf(const SQLite::Column &column)
{
    if (column.isNull())
        return std::nullopt;
    // The text first: it settles the encoding that the size is counted in.
    const char *text = column.getText();
    return QString::fromUtf8(text, column.getBytes());
}

double ClipRecord::dateOf(const SQLite::Column &column)
{
    const double date = column.isFloat() || column.isInteger()
                            ? column.getDouble()
                            : std::numeric_limits<double>::quiet_NaN();
    return std::abs(date) < ClipStore::kMaxDate ? date : std::numeric_limits<double>::quiet_NaN();
}

std::string ClipRecord::columns()
{
    std::string columns = "id, pasteCount, createDate, applicationName, filepath, strValue";
    for (const CopyFormat &format : storedFormats())
        columns += std::string(", ") + format.attribute;
    return columns;
}

ClipChange ClipRecord::read(SQLite::Statement &query)
{
    ClipChange record;
    if (!query.getColumn(0).isNull())
        record.id = query.getColumn(0).getInt64();
    if (!query.getColumn(1).isNull())
        record.pasteCount = query.getColumn(1).getInt();
    record.createDate = dateOf(query.getColumn(2));
    record.clip = Clip(textOf(query.getColumn(5)), {}, textOf(query.getColumn(3)),
                       textOf(query.getColumn(4)));
    int column = 5;
    for (const CopyFormat &format : storedFormats())
        (*record.clip).*format.source = textOf(query.getColumn(++column));
    return record;
}

SQLite::Statement &ClipRecord::Writer::statement(const std::string &text)
{
    SQLite::Statement &statement = m_statements.try_emplace(text, m_database, text).first->second;
    statement.reset();
    statement.clearBindings();
    return statement;
}

bool ClipRecord::Writer::isTaken(qint64 pk)
{
    SQLite::Statement &query = statement("SELECT 1 FROM ClipItem WHERE pk = ?");
    query.bind(1, static_cast<std::int64_t>(pk));
    return query.executeStep();
}

qint64 ClipRecord::Writer::write(const ClipChange &change)
{
    std::vector<Column> columns = columnsOf(change);
    if (change.formerPk != 0 && !isTaken(change.formerPk))
        columns.emplace_back("pk", change.formerPk);
    if (columns.empty())
        return change.pk;
    std::string names;
    std::string places;
    for (const auto &[name, value] : columns) {
        names += (names.empty() ? "" : ", ") + name;
        places += places.empty() ? "?" : ", ?";
    }
    const bool isNew = change.pk == 0;
    SQLite::Statement &record =
        statement(isNew ? "INSERT INTO ClipItem (" + names + ") VALUES (" + places + ")"
                        : "UPDATE ClipItem SET (" + names + ") = (" + places + ") WHERE pk = ?");
    int index = 0;
    for (const auto &[name, value] : columns)
        bind(record, ++index, value);
    if (!isNew)
        record.bind(++index, static_cast<std::int64_t>(change.pk));
    record.exec();
    return isNew ? m_database.getLastInsertRowid() : change.pk;
}
