#pragma once

#include "platform/freedesktop/DesktopEntryIndex.h"

#include <QThreadPool>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

/// Keeps the index of the installed desktop entries up to date, on a thread of its own. Shared by
/// those that look applications up; safe to call from any thread.
class DesktopEntryCatalog
{
public:
    /// The first scan begins at once.
    explicit DesktopEntryCatalog(QStringList folders = DesktopEntryScan::standardFolders());
    ~DesktopEntryCatalog();

    /// What is known now. Waits for the first scan only: a wrong name would let through what the
    /// user wants ignored. Looks for changes in the background, at most once a second.
    std::shared_ptr<const DesktopEntryIndex> index();

    /// What is installed at this moment; scans in the calling thread when something changed.
    std::shared_ptr<const DesktopEntryIndex> currentIndex();

private:
    void refresh();
    std::shared_ptr<const DesktopEntryIndex> waitForIndex(std::unique_lock<std::mutex> &lock);

    const QStringList m_folders;
    std::mutex m_mutex;
    std::condition_variable m_isReady;
    std::shared_ptr<const DesktopEntryIndex> m_index;
    bool m_isRefreshing = true;
    std::chrono::steady_clock::time_point m_lastRefresh;
    QThreadPool m_thread; ///< Last, so that its work ends before what it works on goes.
};
