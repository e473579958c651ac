#include "platform/pasteboard/PasteboardChanges.h"

#include <algorithm>
#include <utility>

qint64 PasteboardChanges::changeCount() const
{
    const std::lock_guard lock(m_mutex);
    return m_changeCount;
}

QList<PasteboardContents> PasteboardChanges::changesAfter(qint64 changeCount) const
{
    const std::lock_guard lock(m_mutex);
    QList<PasteboardContents> later;
    for (const PasteboardContents &contents : m_unjudged) {
        if (contents.changeCount > changeCount)
            later.append(contents);
    }
    return later;
}

std::optional<PasteboardContents> PasteboardChanges::contents() const
{
    const std::lock_guard lock(m_mutex);
    return m_contents;
}

void PasteboardChanges::setReading(bool isReading)
{
    const std::lock_guard lock(m_mutex);
    m_isReading = isReading;
}

std::optional<QString> PasteboardChanges::text() const
{
    const std::lock_guard lock(m_mutex);
    return m_contents && !m_isReading ? m_contents->text : std::nullopt;
}

qint64 PasteboardChanges::largestUsefulText() const
{
    const std::lock_guard lock(m_mutex);
    return m_largestUsefulText;
}

void PasteboardChanges::setLargestUsefulText(qint64 bytes)
{
    const std::lock_guard lock(m_mutex);
    m_largestUsefulText = std::clamp<qint64>(bytes, 0, PasteboardLimits::kLargestFormat);
}

qint64 PasteboardChanges::publish(PasteboardContents contents)
{
    const std::lock_guard lock(m_mutex);
    contents.changeCount = m_changeCount + 1;
    if (contents.isOwnWrite)
        m_unjudged.removeIf([](const PasteboardContents &earlier) { return earlier.isOwnWrite; });
    m_unjudged.append(contents);
    m_contents = std::move(contents);
    return ++m_changeCount;
}

qint64 PasteboardChanges::publishCleared()
{
    const std::lock_guard lock(m_mutex);
    m_contents.reset();
    return ++m_changeCount;
}

void PasteboardChanges::expectPaste()
{
    const std::lock_guard lock(m_mutex);
    m_isPasteRead = false;
}

void PasteboardChanges::notePasteRead()
{
    const std::lock_guard lock(m_mutex);
    m_isPasteRead = true;
}

bool PasteboardChanges::isPasteRead() const
{
    const std::lock_guard lock(m_mutex);
    return m_isPasteRead;
}

void PasteboardChanges::post(std::function<void()> task)
{
    const std::lock_guard lock(m_mutex);
    m_tasks.push_back(std::move(task));
}

std::vector<std::function<void()>> PasteboardChanges::takeTasks()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_tasks, {});
}

void PasteboardChanges::judge(qint64 changeCount, Pasteboard::Judgement judgement)
{
    const std::lock_guard lock(m_mutex);
    m_unjudged.removeIf([changeCount](const PasteboardContents &contents) {
        return contents.changeCount == changeCount;
    });
    if (judgement == Pasteboard::Judgement::Discard && m_contents &&
        m_contents->changeCount == changeCount)
        m_contents.reset();
}
