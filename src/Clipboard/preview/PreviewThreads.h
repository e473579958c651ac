#pragma once

#include <QObject>

#include <atomic>
#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

/// Tells a job on a preview thread when to give up: nobody waits for it any more, or its time is
/// up. Shared by the job and whoever asked for it.
class PreviewStop
{
public:
    /// From the start of the job on.
    static constexpr std::chrono::milliseconds kMostTime{2000};

    bool isDue() const { return m_isCancelled || std::chrono::steady_clock::now() > m_deadline; }
    bool isCancelled() const { return m_isCancelled; }
    void cancel() { m_isCancelled = true; }
    /// Before anything asks; by the thread that runs the job.
    void startTime() { m_deadline = std::chrono::steady_clock::now() + kMostTime; }

private:
    std::atomic<bool> m_isCancelled = false;
    std::chrono::steady_clock::time_point m_deadline = std::chrono::steady_clock::time_point::max();
};

/// Keeps a job wanted; its end cancels the job, and what the job found is then not delivered.
class PreviewTicket
{
public:
    PreviewTicket() = default;
    explicit PreviewTicket(std::shared_ptr<PreviewStop> stop) : m_stop(std::move(stop)) {}
    PreviewTicket(PreviewTicket &&) noexcept = default;
    PreviewTicket &operator=(PreviewTicket &&other) noexcept
    {
        cancel();
        m_stop = std::move(other.m_stop);
        return *this;
    }
    ~PreviewTicket() { cancel(); }

    void cancel()
    {
        if (m_stop)
            m_stop->cancel();
        m_stop.reset();
    }

private:
    std::shared_ptr<PreviewStop> m_stop;
};

/// Runs what previews read off the main thread, the latest wish first. Owned by whoever reads;
/// used from the main thread. A job that hangs, because its file system does, keeps its thread and
/// no other job waits for it, until too many hang; then nothing is read any more.
class PreviewThreads : public QObject
{
    Q_OBJECT

public:
    /// What a job hands over: runs on the main thread. May be empty.
    using Delivery = std::function<void()>;
    using Job = std::function<Delivery(const PreviewStop &)>;

    PreviewThreads();
    /// Cancels everything and waits a moment for jobs that notice.
    ~PreviewThreads() override;

    [[nodiscard]] PreviewTicket run(Job job);

    /// Whether a job that should have given up has not: its file system may hang.
    bool isHanging() const;

private:
    struct Order
    {
        Job job;
        std::shared_ptr<PreviewStop> stop;
    };
    struct Link;

    void startNext();
    static void work(const Order &order, const std::shared_ptr<Link> &link);

    const std::shared_ptr<Link> m_link;
    std::deque<Order> m_waiting;
    std::deque<std::shared_ptr<PreviewStop>> m_running;
};
