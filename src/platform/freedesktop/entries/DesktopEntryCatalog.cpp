#include "platform/freedesktop/entries/DesktopEntryCatalog.h"

#include "platform/Mutex.h"

#include <algorithm>

namespace {

constexpr std::chrono::seconds kRefreshInterval{1};

struct Folder
{
    QString path;
    std::shared_ptr<const DesktopEntryScan> scan; ///< Null until it has answered once.
    FileTicket look;                              ///< While it is being looked at.
};

} // namespace

struct DesktopEntryCatalog::State
{
    Scan scan;
    Mutex mutex;
    /// Their number and paths do not change.
    std::vector<Folder> folders;
    std::shared_ptr<const DesktopEntryIndex> index QUILLMARSH_GUARDED_BY(mutex);
    bool isIndexOld QUILLMARSH_GUARDED_BY(mutex) = true;
    Patience::TimePoint lastAsked QUILLMARSH_GUARDED_BY(mutex);

    /// Looks at each folder that nobody looks at.
    static void ask(const std::shared_ptr<State> &state, FileQuestions &questions)
        QUILLMARSH_REQUIRES(state->mutex);
    void lookAt(Folder &folder);
    void bringIndexUpToDate() QUILLMARSH_REQUIRES(mutex);
};

void DesktopEntryCatalog::State::ask(const std::shared_ptr<State> &state, FileQuestions &questions)
{
    state->lastAsked = questions.now();
    for (Folder &folder : state->folders) {
        if (!folder.look)
            folder.look = questions.ask(folder.path, FileQuestions::Kind::Read, kLimit,
                                        [state, &folder](const Patience &) {
                                            state->lookAt(folder);
                                            return FileQuestions::Delivery();
                                        });
    }
}

void DesktopEntryCatalog::State::lookAt(Folder &folder)
{
    std::shared_ptr<const DesktopEntryScan> known;
    {
        const MutexLock lock(mutex);
        known = folder.scan;
    }
    auto found = known;
    if (!known || !known->isCurrent())
        found = std::make_shared<DesktopEntryScan>(scan(folder.path));
    const MutexLock lock(mutex);
    folder.scan = found;
    folder.look.reset();
    isIndexOld = isIndexOld || found != known;
    // Here and not with whoever asks next, who may be the main thread.
    if (std::none_of(folders.begin(), folders.end(), [](const auto &other) { return other.look; }))
        bringIndexUpToDate();
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

DesktopEntryCatalog::DesktopEntryCatalog(FileQuestions &questions, const QStringList &folders,
                                         Scan scan)
    : m_questions(questions), m_state(std::make_shared<State>())
{
    m_state->scan = std::move(scan);
    for (const QString &path : folders)
        m_state->folders.push_back({path, nullptr, nullptr});
    const MutexLock lock(m_state->mutex);
    State::ask(m_state, m_questions);
}

void DesktopEntryCatalog::await(Await which)
{
    std::vector<FileTicket> looks;
    {
        const MutexLock lock(m_state->mutex);
        for (const Folder &folder : m_state->folders)
            if (folder.look && (which == Await::All || !folder.scan))
                looks.push_back(folder.look);
    }
    for (const FileTicket &look : looks)
        m_questions.await(look);
}

std::shared_ptr<const DesktopEntryIndex> DesktopEntryCatalog::index()
{
    await(Await::Unknown);
    const MutexLock lock(m_state->mutex);
    m_state->bringIndexUpToDate();
    if (m_questions.now() - m_state->lastAsked >= kRefreshInterval)
        State::ask(m_state, m_questions);
    return m_state->index;
}

std::shared_ptr<const DesktopEntryIndex> DesktopEntryCatalog::currentIndex()
{
    // A look that is under way may have begun before the latest change.
    await(Await::All);
    {
        const MutexLock lock(m_state->mutex);
        State::ask(m_state, m_questions);
    }
    await(Await::All);
    const MutexLock lock(m_state->mutex);
    m_state->bringIndexUpToDate();
    return m_state->index;
}
