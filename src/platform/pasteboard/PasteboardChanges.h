#pragma once

#include "platform/Mutex.h"
#include "platform/Pasteboard.h"
#include "platform/pasteboard/PasteboardLimits.h"

#include <functional>
#include <vector>

/// What has been published: the one place where the main thread and the service thread meet. Each
/// operation holds the lock for a few pointer copies only, so neither ever waits for the other's
/// work. Owned by the pasteboard; safe from both threads.
class PasteboardChanges
{
public:
    qint64 changeCount() const;
    QList<PasteboardContents> changesAfter(qint64 changeCount) const;
    std::optional<PasteboardContents> contents() const;

    /// A newer copy is being read, so that what is published is out of date.
    void setReading(bool isReading);
    /// The text of the pasteboard as it stands; absent when it is not known here.
    std::optional<QString> text() const;

    qint64 maxUsefulText() const;
    void setLargestUsefulText(qint64 bytes);
    qint64 maxUsefulPicture() const;
    void setLargestUsefulPicture(qint64 bytes);

    /// Publishes contents under the next count, which it returns.
    qint64 publish(PasteboardContents contents);
    /// The pasteboard was emptied: a change without contents.
    qint64 publishCleared();

    /// A paste is about to be typed, and nobody has read it.
    void expectPaste();
    void notePasteRead();
    bool isPasteRead() const;

    /// Keeps what is to be done on the main thread.
    void post(std::function<void()> task);
    /// What was kept since the last call, oldest first.
    std::vector<std::function<void()>> takeTasks();

    void acknowledge(qint64 changeCount);
    void discard(qint64 changeCount);

private:
    mutable Mutex m_mutex;
    qint64 m_changeCount QUILLMARSH_GUARDED_BY(m_mutex) = 0;
    qint64 m_maxUsefulText QUILLMARSH_GUARDED_BY(m_mutex) = PasteboardLimits::kMaxFormat;
    qint64 m_maxUsefulPicture QUILLMARSH_GUARDED_BY(m_mutex) = 0;
    std::optional<PasteboardContents> m_contents QUILLMARSH_GUARDED_BY(m_mutex);
    QList<PasteboardContents> m_unexamined QUILLMARSH_GUARDED_BY(m_mutex);
    bool m_isPasteRead QUILLMARSH_GUARDED_BY(m_mutex) = false;
    bool m_isReading QUILLMARSH_GUARDED_BY(m_mutex) = false;
    std::vector<std::function<void()>> m_tasks QUILLMARSH_GUARDED_BY(m_mutex);
};
