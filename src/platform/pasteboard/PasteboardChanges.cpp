#include "platform/pasteboard/PasteboardChanges.h"

#include <algorithm>
#include <utility>

qint64 PasteboardChanges::changeCount() const
{
    const MutexLock lock(m_mutex);
    return m_changeCount;
}

QList<PasteboardContents> PasteboardChanges::changesAfter(qint64 changeCount) const
{
    const MutexLock lock(m_mutex);
    QList<PasteboardContents> later;
    for (const PasteboardContents &contents : m_unexamined) {
        if (contents.changeCount > changeCount)
            later.append(contents);
    }
    return later;
}

std::optional<PasteboardContents> PasteboardChanges::contents() const
{
    const MutexLock lock(m_mutex);
    return m_contents;
}

void PasteboardChanges::setReading(bool isReading)
{
    const MutexLock lock(m_mutex);
    m_isReading = isReading;
}

std::optional<QString> PasteboardChanges::text() const
{
    const MutexLock lock(m_mutex);
    return m_contents && !m_isReading ? m_contents->text : std::nullopt;
}

qint64 PasteboardChanges::maxUsefulText() const
{
    const MutexLock lock(m_mutex);
    return m_maxUsefulText;
}

void PasteboardChanges::setLargestUsefulText(qint64 bytes)
{
    const MutexLock lock(m_mutex);
    m_maxUsefulText = std::clamp<qint64>(bytes, 0, PasteboardLimits::kMaxFormat);
}

qint64 PasteboardChanges::maxUsefulPicture() const
{
    const MutexLock lock(m_mutex);
    return m_maxUsefulPicture;
}

void PasteboardChanges::setLargestUsefulPicture(qint64 bytes)
{
    const MutexLock lock(m_mutex);
    m_maxUsefulPicture = std::clamp<qint64>(bytes, 0, PasteboardLimits::kMaxFormat);
}

qint64 PasteboardChanges::publish(PasteboardContents contents)
{
    const MutexLock lock(m_mutex);
    contents.changeCount = m_changeCount + 1;
    // Copies of others are each a clip, but what we wrote came from the history: only what is there
    // at last says anything.
    if (contents.isOwnWrite)
        m_unexamined.removeIf([](const PasteboardContents &earlier) { return earlier.isOwnWrite; });
    m_unexamined.append(contents);
    m_contents = std::move(contents);
    return ++m_changeCount;
}

qint64 PasteboardChanges::publishCleared()
{
    const MutexLock lock(m_mutex);
    // What was cleared on purpose is nobody's to paste, from our own fields neither.
    m_contents.reset();
    return ++m_changeCount;
}

void PasteboardChanges::expectPaste()
{
    const MutexLock lock(m_mutex);
    m_isPasteRead = false;
}

void PasteboardChanges::notePasteRead()
{
    const MutexLock lock(m_mutex);
    m_isPasteRead = true;
}

bool PasteboardChanges::isPasteRead() const
{
    const MutexLock lock(m_mutex);
    return m_isPasteRead;
}

void PasteboardChanges::post(std::function<void()> task)
{
    const MutexLock lock(m_mutex);
    m_tasks.push_back(std::move(task));
}

std::vector<std::function<void()>> PasteboardChanges::takeTasks()
{
    const MutexLock lock(m_mutex);
    return std::exchange(m_tasks, {});
}

void PasteboardChanges::acknowledge(qint64 changeCount)
{
    const MutexLock lock(m_mutex);
    m_unexamined.removeIf([changeCount](const PasteboardContents &contents) {
        return contents.changeCount == changeCount;
    });
}

void PasteboardChanges::discard(qint64 changeCount)
{
    acknowledge(changeCount);
    const MutexLock lock(m_mutex);
    // What is not to be recorded must not stay in memory either.
    if (m_contents && m_contents->changeCount == changeCount)
        m_contents.reset();
}
