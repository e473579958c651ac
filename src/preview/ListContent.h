#pragma once

#include "preview/PreviewContent.h"

#include <QStringList>

/// How much a folder or an archive holds. A value.
struct ListCount
{
    qint64 entries = 0;
    qint64 bytes = 0;    ///< Unpacked.
    bool isWhole = true; ///< False when there is more than was counted.
};

/// How much there is, and the names of entries, folders with a slash at their end.
class ListContent : public PreviewContent
{
public:
    static constexpr qsizetype kMaxEntries = 200; ///< Shown.
    static constexpr qsizetype kMaxOfName = 8192; ///< Characters; more than any system's longest.

    ListContent(const ListCount &count, QStringList entries)
        : m_count(count), m_entries(std::move(entries))
    {
    }

    const ListCount &count() const { return m_count; }
    const QStringList &entries() const { return m_entries; }

    // ^PreviewContent
    qint64 byteCount() const override { return m_entries.size() * 256; }

private:
    const ListCount m_count;
    const QStringList m_entries;
};
