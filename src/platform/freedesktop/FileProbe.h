#pragma once

#include <QFuture>
#include <QHash>
#include <QMutex>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>

/// Asks whether files exist, on threads of its own, because a hung mount never answers. Owned by
/// FreedesktopWorkspace; used from the main thread. A question that is not answered in time leaves
/// its thread behind, so they are bounded for each mount and in all: beyond the bound, files of
/// that mount count as missing at once until one of its threads has come back.
class FileProbe
{
public:
    using Check = std::function<bool(const QString &path)>;
    using MountOf = std::function<QString(const QString &path)>;

    static constexpr std::chrono::milliseconds kLimit{200};
    static constexpr int kMostPerMount = 4;
    static constexpr int kMostInAll = 16;

    /// Asks the file system.
    FileProbe();
    /// Asks `check` on a thread of its own, and `mountOf` (which must not touch the file system
    /// that it names) on the calling thread.
    FileProbe(Check check, MountOf mountOf);
    FileProbe(const FileProbe &) = delete;
    FileProbe &operator=(const FileProbe &) = delete;
    /// Leaves hung threads behind; they touch nothing of this object.
    ~FileProbe();

    /// Waits for at most kLimit; no answer is no.
    bool exists(const QString &path);

    /// Calls `answer` later on the context's thread, within kLimit or thereabouts; never after
    /// `context` was destroyed.
    void ask(const QString &path, QObject *context, std::function<void(bool)> answer);

private:
    struct Question;
    struct Outstanding;

    /// The running question about `path`, or a new one; null when the bound is reached.
    std::shared_ptr<Question> start(const QString &path);

    Check m_check;
    MountOf m_mountOf;
    std::shared_ptr<Outstanding> m_outstanding;
};
