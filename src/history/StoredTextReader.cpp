#include "history/StoredTextReader.h"

#include <sqlite3.h>

#include <algorithm>

StoredTextReader::~StoredTextReader()
{
    sqlite3_blob_close(m_blob);
}

std::optional<ClipStore::TextStart> StoredTextReader::read(qint64 pk, qint64 limit)
{
    if (!moveTo(pk))
        return std::nullopt;
    const int size = sqlite3_blob_bytes(m_blob);
    QByteArray bytes(static_cast<int>(std::min<qint64>(size, limit)), Qt::Uninitialized);
    if (sqlite3_blob_read(m_blob, bytes.data(), static_cast<int>(bytes.size()), 0) != SQLITE_OK)
        return std::nullopt;
    return ClipStore::TextStart{bytes, size};
}

bool StoredTextReader::moveTo(qint64 pk)
{
    if (m_blob && sqlite3_blob_reopen(m_blob, pk) == SQLITE_OK)
        return true;
    // A record without a text leaves the handle useless.
    sqlite3_blob_close(m_blob);
    m_blob = nullptr;
    return sqlite3_blob_open(m_database, "main", "ClipItem", "strValue", pk, 0, &m_blob) ==
           SQLITE_OK;
}
