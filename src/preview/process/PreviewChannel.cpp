#include "preview/process/PreviewChannel.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/// Before each message. The other end is this machine's, so its order of bytes is too.
struct Head
{
    quint32 mark = kMark;
    quint32 number = 0;
    quint32 size = 0;

    static constexpr quint32 kMark = 0x514D5001; ///< With the version in its last byte.
};

bool waitFor(int socket, short event, int milliseconds)
{
    pollfd poll = {socket, event, 0};
    return ::poll(&poll, 1, milliseconds) > 0;
}

/// Takes the first descriptor of what was received and closes any other.
int descriptorOf(msghdr &header)
{
    int taken = -1;
    for (cmsghdr *part = CMSG_FIRSTHDR(&header); part; part = CMSG_NXTHDR(&header, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS)
            continue;
        const size_t count = (part->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (size_t i = 0; i < count; ++i) {
            int descriptor = -1;
            std::memcpy(&descriptor, CMSG_DATA(part) + i * sizeof(int), sizeof(int));
            if (taken < 0)
                taken = descriptor;
            else
                ::close(descriptor);
        }
    }
    return taken;
}

} // namespace

PreviewChannel::PreviewChannel(int socket) : m_socket(socket)
{
    if (socket < 0)
        m_state = State::Broken;
}

PreviewChannel::~PreviewChannel()
{
    if (m_socket >= 0)
        ::close(m_socket);
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

std::optional<std::pair<int, int>> PreviewChannel::makePair()
{
    std::array<int, 2> ends = {-1, -1};
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        return std::nullopt;
    return std::pair(ends[0], ends[1]);
}

bool PreviewChannel::send(quint32 number, const QByteArray &bytes, int descriptor)
{
    const Head head{Head::kMark, number, quint32(bytes.size())};
    std::array<iovec, 2> parts = {{{const_cast<Head *>(&head), sizeof head},
                                   {const_cast<char *>(bytes.constData()), size_t(bytes.size())}}};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control = {};
    msghdr header = {};
    header.msg_iov = parts.data();
    header.msg_iovlen = parts.size();
    if (descriptor >= 0) {
        header.msg_control = control.data();
        header.msg_controllen = control.size();
        cmsghdr *part = CMSG_FIRSTHDR(&header);
        part->cmsg_level = SOL_SOCKET;
        part->cmsg_type = SCM_RIGHTS;
        part->cmsg_len = CMSG_LEN(sizeof(int));
        std::memcpy(CMSG_DATA(part), &descriptor, sizeof(int));
    }
    while (m_state == State::Open && parts[0].iov_len + parts[1].iov_len > 0) {
        const ssize_t sent = ::sendmsg(m_socket, &header, MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR)
            continue;
        if (sent <= 0) {
            m_state = State::Broken;
            break;
        }
        // The descriptor went with the first byte.
        header.msg_control = nullptr;
        header.msg_controllen = 0;
        size_t left = size_t(sent);
        for (iovec &part : parts) {
            const size_t done = std::min(left, part.iov_len);
            part.iov_base = static_cast<char *>(part.iov_base) + done;
            part.iov_len -= done;
            left -= done;
        }
    }
    return m_state == State::Open;
}

bool PreviewChannel::takeIn(char *to, qsizetype size, Descriptors descriptors)
{
    iovec part = {to, size_t(size)};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(4 * sizeof(int))> control = {};
    msghdr header = {};
    header.msg_iov = &part;
    header.msg_iovlen = 1;
    // Without a place for them the system closes those that are sent.
    if (descriptors == Descriptors::Taken) {
        header.msg_control = control.data();
        header.msg_controllen = control.size();
    }
    const ssize_t got = ::recvmsg(m_socket, &header, MSG_DONTWAIT | MSG_CMSG_CLOEXEC);
    if (got < 0 && (errno == EAGAIN || errno == EINTR))
        return false;
    if (got <= 0) {
        m_state = State::Broken;
        return false;
    }
    if (const int descriptor = descriptorOf(header); descriptor >= 0) {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
        m_descriptor = descriptor;
    }
    m_got += got;
    return true;
}

std::optional<PreviewChannel::Message> PreviewChannel::receive(qsizetype maxBytes, int milliseconds,
                                                               Descriptors descriptors)
{
    if (m_state == State::Open && !isTouched())
        waitFor(m_socket, POLLIN, milliseconds);
    while (m_state == State::Open) {
        if (m_wanted < 0) {
            m_head.resize(sizeof(Head));
            if (m_got < m_head.size()) {
                if (!takeIn(m_head.data() + m_got, m_head.size() - m_got, descriptors))
                    return std::nullopt;
                continue;
            }
            Head head;
            std::memcpy(&head, m_head.constData(), sizeof head);
            if (head.mark != Head::kMark || head.size > quint64(maxBytes)) {
                m_state = State::Broken;
                return std::nullopt;
            }
            m_number = head.number;
            m_wanted = head.size;
            m_got = 0;
            m_bytes = QByteArray(m_wanted, Qt::Uninitialized);
        }
        if (m_got == m_wanted) {
            m_wanted = -1;
            m_got = 0;
            return Message{m_number, std::exchange(m_bytes, {}), std::exchange(m_descriptor, -1)};
        }
        if (!takeIn(m_bytes.data() + m_got, m_wanted - m_got, descriptors))
            return std::nullopt;
    }
    return std::nullopt;
}

bool PreviewChannel::isTouched() const
{
    return waitFor(m_socket, POLLIN, 0);
}
