#pragma once

#include "Clipboard/preview/PreviewReader.h"

#include <QStringList>

/// How much a folder or an archive holds. A value.
struct ListCount
{
    qint64 entries = 0;
    qint64 bytes = 0;    ///< Unpacked.
    bool isWhole = true; ///< False when there is more than was counted.
};

/// A line that sums up, and the names of entries, folders with a slash at their end.
class ListContent : public PreviewContent
{
public:
    static constexpr qsizetype kMaxEntries = 200; ///< Shown.

    ListContent(const ListCount &count, QStringList entries);

    const QString &summary() const { return m_summary; }
    const QStringList &entries() const { return m_entries; }

    // ^PreviewContent
    PreviewBody *makeBody(FileQuestions &questions, QWidget *parent) const override;
    qint64 byteCount() const override { return m_entries.size() * 256; }

private:
    const QString m_summary;
    const QStringList m_entries;
};
