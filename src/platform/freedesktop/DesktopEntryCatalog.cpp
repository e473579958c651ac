#include "platform/freedesktop/DesktopEntryCatalog.h"

namespace {

constexpr std::chrono::seconds kRefreshInterval{1};

} // namespace

DesktopEntryCatalog::DesktopEntryCatalog(QStringList folders) : m_folders(std::move(folders))
{
    m_thread.setMaxThreadCount(1);
    m_thread.start([this] { refresh(); });
}

DesktopEntryCatalog::~DesktopEntryCatalog()
{
    m_thread.waitForDone();
}

void DesktopEntryCatalog::refresh()
{
    std::shared_ptr<const DesktopEntryIndex> known;
    {
        const std::lock_guard lock(m_mutex);
        known = m_index;
    }
    if (!known || !known->scan().isCurrent())
        known = std::make_shared<DesktopEntryIndex>(DesktopEntryScan::of(m_folders));
    const std::lock_guard lock(m_mutex);
    m_index = known;
    m_lastRefresh = std::chrono::steady_clock::now();
    m_isRefreshing = false;
    m_isReady.notify_all();
}

std::shared_ptr<const DesktopEntryIndex>
DesktopEntryCatalog::waitForIndex(std::unique_lock<std::mutex> &lock)
{
    m_isReady.wait(lock, [this] { return m_index != nullptr; });
    return m_index;
}

std::shared_ptr<const DesktopEntryIndex> DesktopEntryCatalog::index()
{
    std::unique_lock lock(m_mutex);
    auto known = waitForIndex(lock);
    if (!m_isRefreshing && std::chrono::steady_clock::now() - m_lastRefresh >= kRefreshInterval) {
        m_isRefreshing = true;
        m_thread.start([this] { refresh(); });
    }
    return known;
}

std::shared_ptr<const DesktopEntryIndex> DesktopEntryCatalog::currentIndex()
{
    {
        std::unique_lock lock(m_mutex);
        waitForIndex(lock);
    }
    refresh();
    const std::lock_guard lock(m_mutex);
    return m_index;
}
