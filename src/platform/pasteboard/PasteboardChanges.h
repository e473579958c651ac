#pragma once

#include "platform/Pasteboard.h"
#include "platform/pasteboard/PasteboardLimits.h"

#include <mutex>

/// What has been published: the one place where the main thread and the service thread meet. Each
/// operation holds the lock for a few pointer copies only, so neither ever waits for the other's
/// work. Owned by the pasteboard; safe from both threads.
class PasteboardChanges
{
public:
    qint64 changeCount() const;
    QList<PasteboardContents> changesAfter(qint64 changeCount) const;
    std::optional<PasteboardContents> contents() const;

    qint64 largestUsefulText() const;
    void setLargestUsefulText(qint64 bytes);

    /// Publishes contents under the next count, which it returns.
    qint64 publish(PasteboardContents contents);
    /// The pasteboard was emptied: a change without contents.
    qint64 publishCleared();

    /// Notes a change of another client for the main thread to announce.
    void announce(qint64 changeCount);
    /// The changes noted since the last call, oldest first.
    QList<qint64> takeUnannounced();

    /// A paste is about to be typed, and nobody has read it.
    void expectPaste();
    void notePasteRead();
    bool isPasteRead() const;
    /// Whether the latest paste was read since the last call.
    bool takePasteReadNews();

    void judge(qint64 changeCount, Pasteboard::Judgement judgement);

private:
    mutable std::mutex m_mutex; ///< Guards everything below.
    qint64 m_changeCount = 0;
    qint64 m_largestUsefulText = PasteboardLimits::kLargestFormat;
    std::optional<PasteboardContents> m_contents;
    QList<PasteboardContents> m_unjudged;
    QList<qint64> m_unannounced;
    bool m_isPasteRead = false;
    bool m_isPasteReadNews = false;
};
