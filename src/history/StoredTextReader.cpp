#include "history/StoredTextReader.h"

#include <sqlite3.h>

#include <algorithm>

StoredTextReader::~StoredTextReader()
{
    sqlite3_blob_close(m_blob);
}

std::optional<ClipStore::TextPart> StoredTextReader::read(qint64 pk, qint64 begin, qint64 limit)
{
    // One that is open knows the way to the parts that it has read.
    if (pk != m_pk && !moveTo(pk))
        return std::nullopt;
    const qint64 size = sqlite3_blob_bytes(m_blob);
    QByteArray bytes(static_cast<qsizetype>(std::clamp<qint64>(size - begin, 0, limit)),
                     Qt::Uninitialized);
    if (sqlite3_blob_read(m_blob, bytes.data(), static_cast<int>(bytes.size()),
                          static_cast<int>(std::min(begin, size))) != SQLITE_OK) {
        m_pk = 0;
        return std::nullopt;
    }
    return ClipStore::TextPart{bytes, size};
}

bool StoredTextReader::moveTo(qint64 pk)
{
    m_pk = 0;
    if (!m_blob || sqlite3_blob_reopen(m_blob, pk) != SQLITE_OK) {
        // A record without a text leaves the handle useless.
        sqlite3_blob_close(m_blob);
        m_blob = nullptr;
        if (sqlite3_blob_open(m_database, "main", "ClipItem", "strValue", pk, 0, &m_blob) !=
            SQLITE_OK)
            return false;
    }
    m_pk = pk;
    return true;
}
