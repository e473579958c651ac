#pragma once

#include "history/ClipStore.h"

#include <optional>

struct sqlite3;
struct sqlite3_blob;

/// Reads the beginnings of texts one after another, without loading the rest of long ones. While
/// it is open the write-ahead log cannot be emptied. Owned by ClipStore.
class StoredTextReader
{
public:
    /// `database` is not owned and must outlive this object.
    explicit StoredTextReader(sqlite3 *database) : m_database(database) {}
    ~StoredTextReader();
    StoredTextReader(const StoredTextReader &) = delete;
    StoredTextReader &operator=(const StoredTextReader &) = delete;

    /// At most `limit` bytes; absent when the record has no text.
    std::optional<ClipStore::TextStart> read(qint64 pk, qint64 limit);

private:
    bool moveTo(qint64 pk);

    sqlite3 *m_database;
    sqlite3_blob *m_blob = nullptr;
};
