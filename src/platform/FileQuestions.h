#pragma once

#include <QObject>
#include <QString>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>

/// How long work on a helper thread is wanted: until nobody waits for it any more or its time is
/// up. A value.
class Patience
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    /// Called on any thread.
    using Now = std::function<TimePoint()>;

    Patience(std::stop_token stop, Now now, TimePoint end)
        : m_stop(std::move(stop)), m_now(std::move(now)), m_end(end)
    {
    }

    bool isOver() const { return m_stop.stop_requested() || m_now() >= m_end; }

    /// The same, but for no longer than `duration` from this call on.
    Patience atMost(std::chrono::milliseconds duration) const
    {
        return {m_stop, m_now, std::min(m_end, m_now() + duration)};
    }

private:
    std::stop_token m_stop;
    Now m_now;
    TimePoint m_end;
};

/// A question that was asked. Kept by whoever wants its answer: its end lets the work know, and
/// what the work finds after that is not delivered.
class FileQuestion
{
public:
    FileQuestion(const FileQuestion &) = delete;
    FileQuestion &operator=(const FileQuestion &) = delete;
    ~FileQuestion();

private:
    friend class FileQuestions;
    struct Order;
    explicit FileQuestion(std::shared_ptr<Order> order) : m_order(std::move(order)) {}

    const std::shared_ptr<Order> m_order;
};

using FileTicket = std::shared_ptr<const FileQuestion>;

/// Asks file systems what may take long or never be answered, because a hung mount never does, on
/// at most kMaxThreads helper threads. Owned by Platform and outlives all who ask. A question has
/// a bound, counted from when it is asked, and nobody waits longer. One whose file system hangs
/// keeps its thread, so those of one mount are bounded as well; what finds no thread waits for
/// one, the latest first.
class FileQuestions
{
public:
    /// What the work hands over: runs on the thread that made this object. May be empty.
    using Delivery = std::function<void()>;
    using Work = std::function<Delivery(const Patience &)>;
    using Check = std::function<bool(const QString &path)>;
    using MountOf = std::function<QString(const QString &path)>;

    /// A look is answered at once by a file system that answers at all, and a read by one that
    /// works may take its time; so reads never take the last thread.
    enum class Kind { Look, Read };

    static constexpr std::ptrdiff_t kMaxThreads = 8;
    static constexpr std::ptrdiff_t kMaxOfMount = 5;
    static constexpr std::ptrdiff_t kMaxReadsOfMount = 3;

    /// Takes `now` for the time, and asks `mountOf`, which must not touch the file system that it
    /// names, on the calling thread; the defaults ask the system.
    explicit FileQuestions(Patience::Now now = &std::chrono::steady_clock::now,
                           MountOf mountOf = mountPointOf);
    FileQuestions(const FileQuestions &) = delete;
    FileQuestions &operator=(const FileQuestions &) = delete;
    /// Waits a moment for work that notices. Leaves hung threads behind; they touch nothing of
    /// this object.
    ~FileQuestions();

    Patience::TimePoint now() const;

    /// Begins `work` on a helper thread when there is one for it. Null, and never begun, when it is
    /// a look at a path or mount whose threads are known to hang. Any thread.
    [[nodiscard]] FileTicket ask(const QString &path, Kind kind, std::chrono::milliseconds bound,
                                 Work work);

    /// Waits until the work has ended, or until the bound; false for the latter. Any thread.
    bool await(const FileTicket &asked);

    /// What `check` says of `path`, as a look that is waited for; no answer is no.
    bool isSo(const QString &path, std::chrono::milliseconds bound, Check check);

    /// Calls `answer` later with the same, on the thread that made this object, which must be the
    /// context's. Once, and never after `context` was destroyed.
    void askWhether(const QString &path, std::chrono::milliseconds bound, Check check,
                    QObject *context, std::function<void(bool)> answer);

    /// Whether an answer from the mount of `path` is overdue.
    bool isHanging(const QString &path);

private:
    struct Keeper;

    /// By the kernel's table, which asks none of the mounted file systems.
    static QString mountPointOf(const QString &path);

    const MountOf m_mountOf;
    const std::shared_ptr<Keeper> m_keeper; ///< The threads keep it too.
    const std::unique_ptr<QObject> m_receiver;
};
