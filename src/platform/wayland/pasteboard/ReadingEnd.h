#pragma once

#include <functional>
#include <utility>

#include <unistd.h>

/// Where contents that somebody else writes can be read. Closed with the end of this object, and
/// then whoever has opened it is told.
class ReadingEnd
{
public:
    /// There is nothing to read.
    ReadingEnd() = default;
    /// Takes the descriptor, which does not block. `closed` may be null.
    explicit ReadingEnd(int fd, std::function<void()> closed = {})
        : m_fd(fd), m_closed(std::move(closed))
    {
    }
    ReadingEnd(ReadingEnd &&other) noexcept { *this = std::move(other); }
    ReadingEnd &operator=(ReadingEnd &&other) noexcept
    {
        std::swap(m_fd, other.m_fd);
        std::swap(m_closed, other.m_closed);
        return *this;
    }
    ~ReadingEnd()
    {
        if (m_fd >= 0)
            close(m_fd);
        if (m_closed)
            m_closed();
    }

    /// -1 when there is nothing to read.
    int fd() const { return m_fd; }

private:
    int m_fd = -1;
    std::function<void()> m_closed;
};
