#pragma once

#include "history/ClipContext.h"

#include <QByteArrayView>
#include <QString>

#include <cstddef>
#include <functional>

class ClipItem;
class SearchPattern;

/// What lets a hundred thousand clips be searched between two key presses: each clip's text,
/// folded, in memory, and a hash of it as copied. Owned by ClipHistory. Memory is bounded in bytes;
/// a text that is too long, or came when the bound was reached, is read from the store at each
/// search.
class ClipIndex
{
public:
    explicit ClipIndex(ClipContext &context) : m_context(context) {}

    /// The clips of the history as they were fetched, the most important first: their texts are to
    /// be read, whatever was known of them.
    void enqueue(const ClipContext::Items &items);
    bool isComplete() const { return m_queue.empty(); }
    /// Reads texts until `isLate`, which is asked now and then, or all are known.
    void work(const std::function<bool()> &isLate);
    void finish();

    /// A clip with a text that is known already.
    void add(ClipItem &item, const QString &text);
    void remove(ClipItem &item);

    /// Whether the clip's text contains the pattern; for a clip that was read. Ends with
    /// closeTexts() when many were asked.
    bool matches(const ClipItem &item, const SearchPattern &pattern, bool onlyFiles);
    void closeTexts() { m_context.closeTextStart(); }
    /// Whether the clip's text may be the one with this hash; the text itself decides.
    bool mayEqual(const ClipItem &item, std::size_t hash) const;
    static std::size_t hashOf(QByteArrayView utf8);

private:
    void read(ClipItem &item);
    void keepFolded(ClipItem &item, QByteArrayView utf8);

    ClipContext &m_context;
    ClipContext::Items m_queue;
    std::size_t m_next = 0; ///< First of the queue that was not read.
    qint64 m_foldedBytes = 0;
};
