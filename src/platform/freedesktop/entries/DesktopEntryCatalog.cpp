#include "platform/freedesktop/entries/DesktopEntryCatalog.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

namespace {

using Steady = std::chrono::steady_clock;

constexpr std::chrono::seconds kRefreshInterval{1};

struct Folder
{
    QString path;
    std::shared_ptr<const DesktopEntryScan> scan; ///< Null until it has answered once.
    std::optional<Steady::time_point> askedAt;    ///< While a thread looks at it.
};

} // namespace

struct DesktopEntryCatalog::State
{
    enum class Await { Unknown, All };

    Scan scan;
    std::mutex mutex;
    std::condition_variable answered;
    std::vector<Folder> folders;
    std::shared_ptr<const DesktopEntryIndex> index;
    bool isIndexOld = true;
    Steady::time_point lastAsked;

    /// Looks at each folder that nobody looks at, on a thread of its own. With the lock held, as
    /// all below.
    static void ask(const std::shared_ptr<State> &state);
    static void lookAt(const std::shared_ptr<State> &state, size_t number);

    /// Waits for the folders that were never read, or for all that are being looked at; for none
    /// longer than kLimit after it was asked.
    void await(std::unique_lock<std::mutex> &lock, Await which);
    void bringIndexUpToDate();
};

void DesktopEntryCatalog::State::ask(const std::shared_ptr<State> &state)
{
    state->lastAsked = Steady::now();
    for (size_t number = 0; number < state->folders.size(); ++number) {
        Folder &folder = state->folders[number];
        if (folder.askedAt)
            continue;
        folder.askedAt = state->lastAsked;
        try {
            std::thread([state, number] { lookAt(state, number); }).detach();
        } catch (const std::system_error &) {
            folder.askedAt.reset(); // No more threads for this process: asked again next time.
        }
    }
}

void DesktopEntryCatalog::State::lookAt(const std::shared_ptr<State> &state, size_t number)
{
    Folder &folder = state->folders[number];
    std::shared_ptr<const DesktopEntryScan> known;
    {
        const std::lock_guard lock(state->mutex);
        known = folder.scan;
    }
    auto found = known;
    if (!known || !known->isCurrent())
        found = std::make_shared<DesktopEntryScan>(state->scan(folder.path));
    const std::lock_guard lock(state->mutex);
    folder.scan = found;
    folder.askedAt.reset();
    state->isIndexOld = state->isIndexOld || found != known;
    const bool isLast = std::none_of(state->folders.begin(), state->folders.end(),
                                     [](const Folder &other) { return other.askedAt.has_value(); });
    // Here and not with whoever asks next, who may be the main thread.
    if (isLast)
        state->bringIndexUpToDate();
    state->answered.notify_all();
}

void DesktopEntryCatalog::State::await(std::unique_lock<std::mutex> &lock, Await which)
{
    for (;;) {
        std::optional<Steady::time_point> latest;
        for (const Folder &folder : folders) {
            if (!folder.askedAt || (which == Await::Unknown && folder.scan))
                continue;
            const Steady::time_point deadline = *folder.askedAt + kLimit;
            if (deadline > Steady::now())
                latest = std::max(deadline, latest.value_or(deadline));
        }
        if (!latest)
            return;
        answered.wait_until(lock, *latest);
    }
}

void DesktopEntryCatalog::State::bringIndexUpToDate()
{
    if (!isIndexOld)
        return;
    std::vector<std::shared_ptr<const DesktopEntryScan>> scans;
    for (const Folder &folder : folders)
        scans.push_back(folder.scan);
    index = std::make_shared<DesktopEntryIndex>(DesktopEntryScan::merged(scans));
    isIndexOld = false;
}

DesktopEntryCatalog::DesktopEntryCatalog(const QStringList &folders, Scan scan)
    : m_state(std::make_shared<State>())
{
    m_state->scan = std::move(scan);
    for (const QString &path : folders)
        m_state->folders.push_back({path, nullptr, std::nullopt});
    const std::lock_guard lock(m_state->mutex);
    State::ask(m_state);
}

DesktopEntryCatalog::~DesktopEntryCatalog()
{
    // A thread that is only slow is done before what the whole process shares is taken apart.
    std::unique_lock lock(m_state->mutex);
    m_state->await(lock, State::Await::All);
}

std::shared_ptr<const DesktopEntryIndex> DesktopEntryCatalog::index()
{
    std::unique_lock lock(m_state->mutex);
    m_state->await(lock, State::Await::Unknown);
    m_state->bringIndexUpToDate();
    const auto known = m_state->index;
    if (Steady::now() - m_state->lastAsked >= kRefreshInterval)
        State::ask(m_state);
    return known;
}

std::shared_ptr<const DesktopEntryIndex> DesktopEntryCatalog::currentIndex()
{
    std::unique_lock lock(m_state->mutex);
    // A look that is under way may have begun before the latest change.
    m_state->await(lock, State::Await::All);
    State::ask(m_state);
    m_state->await(lock, State::Await::All);
    m_state->bringIndexUpToDate();
    return m_state->index;
}
