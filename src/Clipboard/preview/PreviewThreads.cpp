#include "Clipboard/preview/PreviewThreads.h"

#include "platform/SignalStack.h"

#include <QLoggingCategory>

#include <algorithm>
#include <condition_variable>
#include <system_error>
#include <thread>

namespace {

Q_LOGGING_CATEGORY(lcPreview, "quillmarsh.preview")

constexpr std::ptrdiff_t kMostWanted = 2; ///< Jobs at once that somebody waits for.
constexpr size_t kMostThreads = 8;
constexpr std::chrono::milliseconds kLastWait{300};

} // namespace

/// What a thread reaches its owner by; outlives the owner for threads that hang.
struct PreviewThreads::Link
{
    std::mutex mutex;
    std::condition_variable ended;
    PreviewThreads *owner = nullptr; ///< Null once the owner has gone.
    int running = 0;
};

PreviewThreads::PreviewThreads() : m_link(std::make_shared<Link>())
{
    m_link->owner = this;
}

PreviewThreads::~PreviewThreads()
{
    for (const auto &stop : m_running)
        stop->cancel();
    std::unique_lock lock(m_link->mutex);
    m_link->owner = nullptr;
    m_link->ended.wait_for(lock, kLastWait, [this] { return m_link->running == 0; });
}

PreviewTicket PreviewThreads::run(Job job)
{
    auto stop = std::make_shared<PreviewStop>();
    m_waiting.push_front({std::move(job), stop});
    startNext();
    return PreviewTicket(std::move(stop));
}

bool PreviewThreads::isHanging() const
{
    return std::any_of(m_running.begin(), m_running.end(),
                       [](const auto &stop) { return stop->isDue(); });
}

void PreviewThreads::startNext()
{
    std::erase_if(m_waiting, [](const Order &order) { return order.stop->isCancelled(); });
    // A job over its time is as good as cancelled: it may hang.
    while (!m_waiting.empty() && m_running.size() < kMostThreads &&
           std::count_if(m_running.begin(), m_running.end(),
                         [](const auto &stop) { return !stop->isDue(); }) < kMostWanted) {
        const Order order = std::move(m_waiting.front());
        m_waiting.pop_front();
        order.stop->startTime();
        {
            const std::lock_guard lock(m_link->mutex);
            ++m_link->running;
        }
        try {
            std::thread(&PreviewThreads::work, order, m_link).detach();
            m_running.push_back(order.stop);
        } catch (const std::system_error &error) {
            const std::lock_guard lock(m_link->mutex);
            --m_link->running;
            qCWarning(lcPreview, "no thread for a preview: %s", error.what());
        }
    }
}

void PreviewThreads::work(const Order &order, const std::shared_ptr<Link> &link)
{
    const SignalStack signalStack;
    Delivery delivery;
    if (!order.stop->isCancelled())
        delivery = order.job(*order.stop);
    const std::lock_guard lock(link->mutex);
    --link->running;
    link->ended.notify_all();
    if (!link->owner)
        return;
    QMetaObject::invokeMethod(
        link->owner,
        [owner = link->owner, stop = order.stop, delivery = std::move(delivery)] {
            std::erase(owner->m_running, stop);
            if (delivery && !stop->isCancelled())
                delivery();
            owner->startNext();
        },
        Qt::QueuedConnection);
}
