#include "platform/FileQuestions.h"

#include "platform/Mutex.h"
#include "platform/SignalStack.h"

#include <QFile>
#include <QLoggingCategory>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <system_error>
#include <thread>

namespace {

Q_LOGGING_CATEGORY(lcFiles, "quillmarsh.platform.files")

constexpr std::chrono::milliseconds kLastWait{300};

} // namespace

struct FileQuestion::Order
{
    bool isOver(Patience::TimePoint now) const { return stop.stop_requested() || now >= end; }

    const QString path;
    const QString mount;
    const FileQuestions::Kind kind;
    const Patience::TimePoint end;
    FileQuestions::Work work; ///< Gone once it has ended, because it may keep who asked.
    std::stop_source stop{};
    bool isAnswered = false;
};

/// What the threads reach the rest by.
struct FileQuestions::Keeper
{
    using Order = FileQuestion::Order;

    explicit Keeper(Patience::Now clock) : now(std::move(clock)) {}

    /// How many that run on the mount meet the condition.
    template <typename Condition>
    std::ptrdiff_t count(const QString &mount, Condition condition) const QUILLMARSH_REQUIRES(mutex)
    {
        return std::count_if(running.begin(), running.end(), [&](const auto &order) {
            return order->mount == mount && condition(*order);
        });
    }
    bool mayRun(const Order &order) const QUILLMARSH_REQUIRES(mutex);
    bool isHopeless(const Order &look) const QUILLMARSH_REQUIRES(mutex);

    static void beginNext(const std::shared_ptr<Keeper> &keeper) QUILLMARSH_REQUIRES(keeper->mutex);
    static void work(const std::shared_ptr<Keeper> &keeper, const std::shared_ptr<Order> &order);

    const Patience::Now now;
    Mutex mutex;
    std::condition_variable_any answered;
    /// Null once nothing is delivered any more.
    QObject *receiver QUILLMARSH_GUARDED_BY(mutex) = nullptr;
    std::deque<std::shared_ptr<Order>> waiting QUILLMARSH_GUARDED_BY(mutex);
    /// Each has a thread.
    std::deque<std::shared_ptr<Order>> running QUILLMARSH_GUARDED_BY(mutex);
};

FileQuestion::~FileQuestion()
{
    m_order->stop.request_stop();
}

bool FileQuestions::Keeper::mayRun(const Order &order) const
{
    const auto all = static_cast<std::ptrdiff_t>(running.size());
    if (all >= kMaxThreads || count(order.mount, [](const auto &) { return true; }) >= kMaxOfMount)
        return false;
    const auto isRead = [](const Order &one) { return one.kind == Kind::Read; };
    return !isRead(order) ||
           (all < kMaxThreads - 1 && count(order.mount, isRead) < kMaxReadsOfMount);
}

bool FileQuestions::Keeper::isHopeless(const Order &look) const
{
    const Patience::TimePoint time = now();
    const auto isOver = [time](const Order &one) { return one.isOver(time); };
    const auto isSame = [&](const Order &one) {
        return one.kind == Kind::Look && one.path == look.path && time >= one.end;
    };
    return count(look.mount, isOver) >= kMaxOfMount || count(look.mount, isSame) > 0;
}

void FileQuestions::Keeper::beginNext(const std::shared_ptr<Keeper> &keeper)
{
    std::erase_if(keeper->waiting, [](const auto &order) { return order->stop.stop_requested(); });
    for (auto next = keeper->waiting.begin(); next != keeper->waiting.end();) {
        if (!keeper->mayRun(**next)) {
            ++next;
            continue;
        }
        try {
            std::thread(&Keeper::work, keeper, *next).detach();
        } catch (const std::system_error &error) {
            qCWarning(lcFiles, "no thread for a question about a file: %s", error.what());
            return; // As if all were held.
        }
        keeper->running.push_back(*next);
        next = keeper->waiting.erase(next);
    }
}

void FileQuestions::Keeper::work(const std::shared_ptr<Keeper> &keeper,
                                 const std::shared_ptr<Order> &order)
{
    const SignalStack signalStack;
    Delivery delivery;
    if (!order->stop.stop_requested())
        delivery = order->work(Patience(order->stop.get_token(), keeper->now, order->end));
    order->work = nullptr;
    const MutexLock lock(keeper->mutex);
    std::erase(keeper->running, order);
    order->isAnswered = true;
    keeper->answered.notify_all();
    if (keeper->receiver && delivery)
        QMetaObject::invokeMethod(
            keeper->receiver,
            [order, delivery = std::move(delivery)] {
                if (!order->stop.stop_requested())
                    delivery();
            },
            Qt::QueuedConnection);
    beginNext(keeper);
}

FileQuestions::FileQuestions(Patience::Now now, MountOf mountOf)
    : m_mountOf(std::move(mountOf)), m_keeper(std::make_shared<Keeper>(std::move(now))),
      m_receiver(std::make_unique<QObject>())
{
    const MutexLock lock(m_keeper->mutex);
    m_keeper->receiver = m_receiver.get();
}

FileQuestions::~FileQuestions()
{
    const auto end = std::chrono::steady_clock::now() + kLastWait;
    const MutexLock lock(m_keeper->mutex);
    m_keeper->receiver = nullptr;
    m_keeper->waiting.clear();
    for (const auto &order : m_keeper->running)
        order->stop.request_stop();
    while (!m_keeper->running.empty() &&
           m_keeper->answered.wait_until(m_keeper->mutex, end) == std::cv_status::no_timeout) {
    }
}

Patience::TimePoint FileQuestions::now() const
{
    return m_keeper->now();
}

FileTicket FileQuestions::ask(const QString &path, Kind kind, std::chrono::milliseconds bound,
                              Work work)
{
    auto order = std::make_shared<FileQuestion::Order>(
        FileQuestion::Order{path, m_mountOf(path), kind, now() + bound, std::move(work)});
    const MutexLock lock(m_keeper->mutex);
    if (kind == Kind::Look && m_keeper->isHopeless(*order))
        return nullptr;
    m_keeper->waiting.push_front(order);
    Keeper::beginNext(m_keeper);
    return FileTicket(new FileQuestion(std::move(order)));
}

bool FileQuestions::await(const FileTicket &asked)
{
    if (!asked)
        return false;
    const FileQuestion::Order &order = *asked->m_order;
    const MutexLock lock(m_keeper->mutex);
    for (auto time = now(); !order.isAnswered && time < order.end; time = now())
        m_keeper->answered.wait_for(m_keeper->mutex, order.end - time);
    return order.isAnswered;
}

bool FileQuestions::isSo(const QString &path, std::chrono::milliseconds bound, Check check)
{
    const auto is = std::make_shared<bool>(false);
    return await(ask(path, Kind::Look, bound,
                     [check = std::move(check), path, is](const auto &) {
                         *is = check(path);
                         return Delivery();
                     })) &&
           *is;
}

void FileQuestions::askWhether(const QString &path, std::chrono::milliseconds bound, Check check,
                               QObject *context, std::function<void(bool)> answer)
{
    // Whichever comes first answers and silences the other.
    const auto once =
        [context = QPointer<QObject>(context),
         answer = std::make_shared<std::function<void(bool)>>(std::move(answer))](bool is) {
            if (const auto first = std::exchange(*answer, nullptr); first && context)
                first(is);
        };
    const Patience::TimePoint end = now() + bound;
    auto asked = ask(path, Kind::Look, bound, [check = std::move(check), path, once](const auto &) {
        return [once, is = check(path)] { once(is); };
    });
    const auto left = asked ? std::chrono::ceil<std::chrono::milliseconds>(end - now())
                            : std::chrono::milliseconds(0);
    // The question ends at the bound.
    QTimer::singleShot(std::max(left, std::chrono::milliseconds(0)), context,
                       [once, asked = std::move(asked)] { once(false); });
}

bool FileQuestions::isHanging(const QString &path)
{
    const QString mount = m_mountOf(path);
    const Patience::TimePoint time = now();
    const MutexLock lock(m_keeper->mutex);
    return m_keeper->count(mount, [time](const auto &order) { return order.isOver(time); }) > 0;
}

QString FileQuestions::mountPointOf(const QString &path)
{
    QFile table(QStringLiteral("/proc/self/mountinfo"));
    QByteArray longest = "/";
    if (!table.open(QIODevice::ReadOnly))
        return QString::fromLatin1(longest);
    const QByteArray name = QFile::encodeName(path);
    for (const QByteArray &line : table.readAll().split('\n')) {
        const QByteArray point = line.split(' ').value(4);
        if (point.size() > longest.size() && name.startsWith(point) &&
            (name.size() == point.size() || name.at(point.size()) == '/'))
            longest = point;
    }
    return QFile::decodeName(longest);
}
