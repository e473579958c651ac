#pragma once

#include "history/ClipStore.h"

#include <optional>

struct sqlite3;
struct sqlite3_blob;

/// Reads parts of texts one after another, without loading the rest of long ones. While it is open
/// the write-ahead log cannot be emptied. Owned by ClipStore.
class StoredTextReader
{
public:
    /// `database` is not owned and must outlive this object.
    explicit StoredTextReader(sqlite3 *database) : m_database(database) {}
    ~StoredTextReader();
    StoredTextReader(const StoredTextReader &) = delete;
    StoredTextReader &operator=(const StoredTextReader &) = delete;

    /// At most `limit` bytes from `begin` on; absent when the record has no text.
    std::optional<ClipStore::TextPart> read(qint64 pk, qint64 begin, qint64 limit);

private:
    bool moveTo(qint64 pk);

    sqlite3 *m_database;
    sqlite3_blob *m_blob = nullptr;
    qint64 m_pk = 0; ///< Of the record that is open; 0 for none.
};
