#pragma once

#include "platform/wayland/WaylandConnection.h"

#include <QByteArray>

#include <chrono>
#include <functional>
#include <map>
#include <optional>

/// Hands contents to those who asked for them, each through a pipe and as fast as it takes them.
/// Each transfer keeps its own share of the bytes, so a new write does not disturb it, and one that
/// stalls is dropped alone. Owned by the pasteboard's service; on the connection's thread.
class PipeWriters
{
public:
    using TimePoint = WaylandConnection::TimePoint;

    /// `connection` is not owned and must outlive this object.
    PipeWriters(WaylandConnection &connection, std::function<TimePoint()> now,
                std::chrono::milliseconds stallLimit);
    PipeWriters(const PipeWriters &) = delete;
    PipeWriters &operator=(const PipeWriters &) = delete;
    ~PipeWriters();

    /// Writes all of it into the descriptor and closes that. `ended`, which may be null, is told
    /// then whether all was written.
    using Ended = std::function<void(bool isWhole)>;
    void send(int fd, const QByteArray &bytes, Ended ended);

    /// Drops the stalled ones and says when the next will be.
    std::optional<TimePoint> keepDeadlines(TimePoint now);

private:
    struct Transfer
    {
        QByteArray bytes;
        qsizetype sent;
        TimePoint lastProgress;
        Ended ended;
    };

    void goOn(int fd);
    void end(int fd);

    WaylandConnection &m_connection;
    std::function<TimePoint()> m_now;
    std::chrono::milliseconds m_stallLimit;
    std::map<int, Transfer> m_transfers; ///< By descriptor.
};
