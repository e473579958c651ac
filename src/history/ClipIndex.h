#pragma once

#include "history/ClipContext.h"
#include "history/SearchPattern.h"
#include "history/TextSummary.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>

class ClipItem;

/// What lets a hundred thousand clips be searched between two key presses: each clip's text,
/// folded, in memory, or a summary of it when it is long, and a hash of it as copied. Owned by
/// ClipHistory. Memory is bounded in bytes; a text that neither decides is read from the store.
class ClipIndex
{
public:
    /// Asked now and then while there is work, with how much was done since: in bytes of text in
    /// memory, or what takes as long.
    using IsLate = std::function<bool(qint64 done)>;

    explicit ClipIndex(ClipContext &context) : m_context(context) {}

    /// The clips of the history as they were fetched, the most important first: their texts are to
    /// be read, whatever was known of them.
    void enqueue(const ClipContext::Items &items);
    bool isComplete() const { return m_queue.empty(); }
    /// Reads texts until `isLate`, or all are known.
    void work(const IsLate &isLate);
    void finish();

    /// A clip with a text that is known already.
    void add(ClipItem &item, const QString &text);
    void remove(ClipItem &item);

    /// From now on that term, which is not empty, is sought.
    void seek(const QString &term);
    /// Whether the clip's text contains what is sought; absent when `isLate` came first, and the
    /// next call for the same clip goes on. Ends with closeTexts() when many were asked.
    std::optional<bool> isFound(ClipItem &item, const IsLate &isLate);
    void closeTexts() { m_context.closeText(); }
    /// Whether the clip's text may be the one with this hash; the text itself decides.
    bool mayEqual(const ClipItem &item, std::size_t hash) const;
    static std::size_t hashOf(QByteArrayView utf8);

private:
    /// A long text that is being searched.
    struct Reading
    {
        const ClipItem *item = nullptr;
        qint64 begin = 0; ///< Of what was not read yet.
        SearchPattern::Progress progress;
    };

    bool isLateNow(const IsLate &isLate) { return isLate(std::exchange(m_done, 0)); }
    void read(ClipItem &item);
    void keep(ClipItem &item, QByteArrayView utf8);
    std::optional<bool> judged(const ClipItem &item) const;
    std::optional<bool> look(const ClipItem &item, const IsLate &isLate);
    std::optional<bool> lookInStore(const ClipItem &item, const IsLate &isLate);

    ClipContext &m_context;
    ClipContext::Items m_queue;
    std::size_t m_next = 0; ///< First of the queue that was not read.
    qint64 m_foldedBytes = 0;
    qint64 m_summaryBytes = 0;

    QString m_term;
    SearchPattern m_pattern{u""};
    TextSummary::Question m_question;
    quint32 m_search = 0;   ///< Number of the present search.
    quint32 m_widest = 1;   ///< First of those that have found all that this one can find.
    quint32 m_narrower = 0; ///< One that has found nothing but what this one finds; 0 for none.
    Reading m_reading;
    int m_asked = 0;   ///< How many clips the searches have asked for.
    qint64 m_done = 0; ///< What `isLate` was not told yet.
};
