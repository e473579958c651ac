#include "platform/wayland/pasteboard/PipeWriters.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>
#include <vector>

namespace {

// Written at a time, so that one fast reader does not keep the others waiting.
constexpr qsizetype kAtOnce = 1024 * 1024;

} // namespace

PipeWriters::PipeWriters(WaylandConnection &connection, std::function<TimePoint()> now,
                         std::chrono::milliseconds stallLimit)
    : m_connection(connection), m_now(std::move(now)), m_stallLimit(stallLimit)
{
}

PipeWriters::~PipeWriters()
{
    while (!m_transfers.empty())
        end(m_transfers.begin()->first);
}

void PipeWriters::send(int fd, const QByteArray &bytes, Ended ended)
{
    // Whoever asked made the pipe; some read from it on the thread that we would block.
    const int flags = fcntl(fd, F_GETFL);
    if (flags < 0 || fcntl(fd, F_SETFL, flags | O_NONBLOCK) < 0) {
        close(fd);
        if (ended)
            ended(false);
        return;
    }
    m_transfers[fd] = {bytes, 0, m_now(), std::move(ended)};
    m_connection.watch(fd, POLLOUT, [this, fd](short) { goOn(fd); });
    goOn(fd);
}

std::optional<PipeWriters::TimePoint> PipeWriters::keepDeadlines(TimePoint now)
{
    std::optional<TimePoint> next;
    std::vector<int> stalled;
    for (const auto &[fd, transfer] : m_transfers) {
        const TimePoint deadline = transfer.lastProgress + m_stallLimit;
        if (now >= deadline)
            stalled.push_back(fd);
        else
            next = next ? std::min(*next, deadline) : deadline;
    }
    // It would keep the clip in our memory for ever.
    for (const int fd : stalled)
        end(fd);
    return next;
}

void PipeWriters::goOn(int fd)
{
    Transfer &transfer = m_transfers.at(fd);
    qsizetype left = std::min(kAtOnce, transfer.bytes.size() - transfer.sent);
    while (left > 0) {
        const ssize_t written = write(fd, transfer.bytes.constData() + transfer.sent, left);
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0 && errno == EAGAIN)
            return;
        if (written <= 0) {
            end(fd);
            return;
        }
        transfer.sent += written;
        left -= written;
        transfer.lastProgress = m_now();
    }
    if (transfer.sent == transfer.bytes.size())
        end(fd);
}

void PipeWriters::end(int fd)
{
    m_connection.unwatch(fd);
    const auto found = m_transfers.find(fd);
    const Transfer ended = std::move(found->second);
    m_transfers.erase(found);
    close(fd);
    if (ended.ended)
        ended.ended(ended.sent == ended.bytes.size());
}
