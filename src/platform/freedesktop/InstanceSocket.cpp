#include "platform/freedesktop/InstanceSocket.h"

#include <QByteArray>
#include <QDir>
#include <QLoggingCategory>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

Q_LOGGING_CATEGORY(lcInstance, "quillmarsh.platform.instance", QtInfoMsg)

constexpr const char *kLockName = "org.quillmarsh.Quillmarsh.lock";
constexpr const char *kSocketName = "org.quillmarsh.Quillmarsh.socket";
/// First line of a message; a start of another version that speaks differently is not confirmed.
constexpr const char *kGreeting = "quillmarsh 1";
constexpr const char *kConfirmation = "taken";
constexpr qsizetype kLargestMessage = 4096;

using Clock = std::chrono::steady_clock;

void closeDescriptor(int &descriptor)
{
    if (descriptor >= 0)
        ::close(std::exchange(descriptor, -1));
}

/// A folder that only this user can enter, or -1.
int openPrivateFolder(const QByteArray &path, int flags)
{
    int folder = ::open(path.constData(), O_DIRECTORY | O_RDONLY | O_CLOEXEC | flags);
    struct stat facts = {};
    if (folder >= 0 && (::fstat(folder, &facts) != 0 || facts.st_uid != ::geteuid() ||
                        (facts.st_mode & 077) != 0)) {
        closeDescriptor(folder);
        errno = EPERM;
    }
    return folder;
}

/// The socket's address by way of the folder's descriptor, because the longest address is 107
/// bytes and a folder's path may be longer.
sockaddr_un addressIn(int folder)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "/proc/self/fd/%d/%s", folder,
                  kSocketName);
    return address;
}

const sockaddr *generic(const sockaddr_un &address)
{
    return reinterpret_cast<const sockaddr *>(&address);
}

/// Waits for `events` until `deadline`.
bool waitFor(int descriptor, short events, Clock::time_point deadline)
{
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        pollfd question{descriptor, events, 0};
        const int count = ::poll(&question, 1, static_cast<int>(std::max<qint64>(0, left.count())));
        if (count >= 0 || errno != EINTR)
            return count > 0;
    }
}

} // namespace

InstanceSocket::~InstanceSocket()
{
    release();
}

void InstanceSocket::release()
{
    // The lock goes last: while it is held nobody else makes a socket of that name.
    if (m_socket >= 0)
        ::unlinkat(m_folder, kSocketName, 0);
    closeDescriptor(m_socket);
    closeDescriptor(m_lock);
    closeDescriptor(m_folder);
}

bool InstanceSocket::openFolder()
{
    if (m_folder >= 0)
        return true;
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    if (!runtime.isEmpty())
        m_folder = openPrivateFolder(runtime, 0);
    if (m_folder >= 0)
        return true;
    const QByteArray own =
        QFile::encodeName(QDir::tempPath()) + "/quillmarsh-" + QByteArray::number(::geteuid());
    ::mkdir(own.constData(), 0700); // It may exist already; what counts is whose it is.
    m_folder = openPrivateFolder(own, O_NOFOLLOW);
    if (m_folder < 0)
        qCWarning(lcInstance, "no runtime folder: XDG_RUNTIME_DIR is unusable and %s: %s",
                  own.constData(), std::strerror(errno));
    return m_folder >= 0;
}

InstanceSocket::Claim InstanceSocket::claim()
{
    if (!openFolder())
        return Claim::Unusable;
    // Nobody ever removes the lock file, so everybody locks the same one.
    if (m_lock < 0)
        m_lock = ::openat(m_folder, kLockName, O_CREAT | O_RDWR | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (m_lock < 0) {
        qCWarning(lcInstance, "no lock file: %s", std::strerror(errno));
        return Claim::Unusable;
    }
    if (::flock(m_lock, LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? Claim::Held : Claim::Unusable;
    // Says to those who clean runtime folders by age that it is still wanted.
    ::fchmod(m_lock, S_ISVTX | 0600);
    if (!listen())
        qCWarning(lcInstance, "a second start cannot reach this one: %s", std::strerror(errno));
    return Claim::Taken;
}

bool InstanceSocket::listen()
{
    const int own = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (own < 0)
        return false;
    // What stands there is a dead instance's: we hold the lock.
    ::unlinkat(m_folder, kSocketName, 0);
    const sockaddr_un address = addressIn(m_folder);
    const mode_t savedMask = ::umask(0177);
    const int bound = ::bind(own, generic(address), sizeof address);
    ::umask(savedMask);
    if (bound != 0) {
        ::close(own);
        return false;
    }
    m_socket = own;
    return true;
}

bool InstanceSocket::forward(const DoorMessage &message, std::chrono::milliseconds limit) const
{
    const auto deadline = Clock::now() + limit;
    int own = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (own < 0)
        return false;
    // A name of the kernel's choosing, so that the answer finds us; once connected, nobody but
    // the instance can send it.
    const sockaddr_un unnamed{AF_UNIX, {}};
    const sockaddr_un address = addressIn(m_folder);
    const QByteArray text = QByteArray(kGreeting) + '\n' + message.action.toUtf8() + '\n' +
                            message.activationToken.simplified().toUtf8().left(kLargestMessage / 2);
    bool isTaken = false;
    if (::bind(own, generic(unnamed), sizeof(sa_family_t)) == 0 &&
        ::connect(own, generic(address), sizeof address) == 0) {
        ssize_t sent = ::send(own, text.constData(), static_cast<size_t>(text.size()), 0);
        if (sent < 0 && errno == EAGAIN && waitFor(own, POLLOUT, deadline))
            sent = ::send(own, text.constData(), static_cast<size_t>(text.size()), 0);
        char answer[16] = {};
        isTaken = sent == text.size() && waitFor(own, POLLIN, deadline) &&
                  ::recv(own, answer, sizeof answer - 1, 0) > 0 &&
                  std::strcmp(answer, kConfirmation) == 0;
    }
    ::close(own);
    return isTaken;
}

std::optional<DoorMessage> InstanceSocket::receive()
{
    char text[kLargestMessage];
    sockaddr_un sender = {};
    socklen_t senderSize = sizeof sender;
    const ssize_t size = ::recvfrom(m_socket, text, sizeof text, 0,
                                    reinterpret_cast<sockaddr *>(&sender), &senderSize);
    if (size <= 0)
        return std::nullopt;
    const QList<QByteArray> lines = QByteArray(text, size).split('\n');
    if (lines.size() != 3 || lines.first() != kGreeting) {
        qCWarning(lcInstance, "a message at the door was not understood");
        return std::nullopt;
    }
    ::sendto(m_socket, kConfirmation, std::strlen(kConfirmation), 0, generic(sender), senderSize);
    return DoorMessage{QString::fromUtf8(lines.at(1)), QString::fromUtf8(lines.at(2))};
}
