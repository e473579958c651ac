#include "history/DeletedClips.h"

#include <QObject>

#include <numeric>
#include <utility>

namespace {

qint64 bytesOf(const DeletedClips::Step &step)
{
    return std::accumulate(
        step.clips.begin(), step.clips.end(), qint64(0),
        [](qint64 sum, const ClipChange &clip) { return sum + clip.clip->storedBytes(); });
}

} // namespace

DeletedClips::DeletedClips(std::chrono::milliseconds time)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(time);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { clear(); });
}

void DeletedClips::push(Step step)
{
    if (step.clips.empty() && step.isWhole)
        return;
    m_isLatestLost = false;
    if (!step.clips.empty()) {
        m_steps.push_back(std::move(step));
        dropOldest();
    } else {
        m_steps.clear();
    }
    if (m_steps.empty())
        lose();
    else if (!m_isWindowOpen)
        m_timer.start();
}

void DeletedClips::lose()
{
    m_steps.clear();
    m_isLatestLost = true;
    if (!m_isWindowOpen)
        m_timer.start();
}

void DeletedClips::clear()
{
    m_steps.clear();
    m_isLatestLost = false;
}

DeletedClips::Latest DeletedClips::latest() const
{
    if (m_isLatestLost)
        return Latest::Lost;
    return m_steps.empty() || m_steps.back().isWhole ? Latest::Held : Latest::InPart;
}

void DeletedClips::dropOldest()
{
    qint64 bytes = 0;
    auto first = m_steps.end();
    while (first != m_steps.begin() && (bytes += bytesOf(*std::prev(first))) <= m_mostBytes)
        --first;
    m_steps.erase(m_steps.begin(), first);
}

DeletedClips::Step DeletedClips::takeLatest()
{
    Step step = std::move(m_steps.back());
    m_steps.pop_back();
    return step;
}

void DeletedClips::putBehind(Step step)
{
    if (!step.clips.empty())
        m_steps.insert(m_steps.begin(), std::move(step));
}

void DeletedClips::windowOpens()
{
    m_isWindowOpen = true;
    m_timer.stop();
}

void DeletedClips::windowCloses()
{
    m_isWindowOpen = false;
    m_timer.start();
}
