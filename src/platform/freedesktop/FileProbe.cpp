#include "platform/freedesktop/FileProbe.h"

#include <QFile>
#include <QFutureWatcher>
#include <QPromise>
#include <QTimer>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>

#include <unistd.h>

namespace {

bool existsOnDisk(const QString &path)
{
    return ::access(QFile::encodeName(path).constData(), F_OK) == 0;
}

/// The mount point with the longest name that `path` lies under. The kernel's table is read
/// without asking any of the mounted file systems.
QString mountPointOf(const QString &path)
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

} // namespace

struct FileProbe::Question
{
    std::mutex mutex;
    std::condition_variable answered;
    std::optional<bool> exists;
    QPromise<bool> promise;
    /// Whoever asks about the same path later waits no longer than the first.
    const std::chrono::steady_clock::time_point deadline =
        std::chrono::steady_clock::now() + kLimit;
};

struct FileProbe::Outstanding
{
    QMutex mutex;
    QHash<QString, std::shared_ptr<Question>> questions;
    QHash<QString, int> perMount;
};

FileProbe::FileProbe() : FileProbe(existsOnDisk, mountPointOf) {}

FileProbe::FileProbe(Check check, MountOf mountOf)
    : m_check(std::move(check)), m_mountOf(std::move(mountOf)),
      m_outstanding(std::make_shared<Outstanding>())
{
}

FileProbe::~FileProbe() = default;

std::shared_ptr<FileProbe::Question> FileProbe::start(const QString &path)
{
    const QString mount = m_mountOf(path);
    const QMutexLocker lock(&m_outstanding->mutex);
    if (auto running = m_outstanding->questions.value(path))
        return running;
    if (m_outstanding->questions.size() >= kMostInAll ||
        m_outstanding->perMount.value(mount) >= kMostPerMount)
        return nullptr;

    auto question = std::make_shared<Question>();
    question->promise.start();
    try {
        std::thread([check = m_check, outstanding = m_outstanding, question, path, mount] {
            const bool exists = check(path);
            {
                const QMutexLocker guard(&outstanding->mutex);
                outstanding->questions.remove(path);
                if (--outstanding->perMount[mount] == 0)
                    outstanding->perMount.remove(mount);
            }
            {
                const std::lock_guard guard(question->mutex);
                question->exists = exists;
            }
            question->answered.notify_all();
            question->promise.addResult(exists);
            question->promise.finish();
        }).detach();
    } catch (const std::system_error &) {
        return nullptr; // No more threads for this process: as good as no answer.
    }
    m_outstanding->questions.insert(path, question);
    ++m_outstanding->perMount[mount];
    return question;
}

bool FileProbe::exists(const QString &path)
{
    const auto question = path.isEmpty() ? nullptr : start(path);
    if (!question)
        return false;
    std::unique_lock lock(question->mutex);
    question->answered.wait_until(lock, question->deadline,
                                  [&] { return question->exists.has_value(); });
    return question->exists.value_or(false);
}

void FileProbe::ask(const QString &path, QObject *context, std::function<void(bool)> answer)
{
    const auto question = path.isEmpty() ? nullptr : start(path);
    if (!question) {
        QTimer::singleShot(0, context, [answer] { answer(false); });
        return;
    }
    auto *watcher = new QFutureWatcher<bool>(context);
    auto *timer = new QTimer(watcher);
    // Whichever comes first answers and silences the other.
    const auto deliver = [watcher, timer, answer = std::move(answer)](bool exists) {
        watcher->disconnect();
        timer->stop();
        watcher->deleteLater();
        answer(exists);
    };
    QObject::connect(watcher, &QFutureWatcherBase::finished, watcher,
                     [watcher, deliver] { deliver(watcher->result()); });
    QObject::connect(timer, &QTimer::timeout, watcher, [deliver] { deliver(false); });
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(
        question->deadline - std::chrono::steady_clock::now());
    timer->setSingleShot(true);
    timer->start(std::max(left, std::chrono::milliseconds(0)));
    watcher->setFuture(question->promise.future());
}
