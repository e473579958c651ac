#include "platform/freedesktop/instance/InstanceSocket.h"

#include <QByteArray>
#include <QDir>
#include <QFileInfo>
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

Q_LOGGING_CATEGORY(lcInstance, "quillmarsh.platform.instance", QtInfoMsg)

namespace {

constexpr const char *kLockName = "Quillmarsh.lock";
constexpr const char *kSocketName = "Quillmarsh.socket";
/// First line of a message; a start of another version that speaks differently is not confirmed.
constexpr const char *kGreeting = "quillmarsh 1";
/// The answers that a start may get. Who is told that the instance leaves has reached nobody.
constexpr std::pair<const char *, InstanceSocket::Answer> kWords[] = {
    {"taken", InstanceSocket::Answer::Taken},
    {"refused", InstanceSocket::Answer::Refused},
    {"unable", InstanceSocket::Answer::Unable},
    {"leaving", InstanceSocket::Answer::Nobody},
};
constexpr qsizetype kMaxMessage = 4096;
/// Who waits for an answer looks so often whether the holder is gone, which sends no word of it.
constexpr std::chrono::milliseconds kLookInterval{5};

using Clock = std::chrono::steady_clock;

void closeDescriptor(int &descriptor)
{
    if (descriptor >= 0)
        ::close(std::exchange(descriptor, -1));
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

/// One message with the name that its answer goes to.
struct InstanceSocket::Letter
{
    ssize_t size = 0; ///< In bytes; none came when it is not positive.
    char text[kMaxMessage];
    sockaddr_un sender = {};
    socklen_t senderSize = sizeof(sockaddr_un);
};

InstanceSocket::InstanceSocket(QString folder) : m_path(std::move(folder)) {}

void InstanceSocket::release()
{
    // The lock goes last: while it is held nobody else makes a socket of that name.
    stopListening();
    closeDescriptor(m_lock);
    closeDescriptor(m_folder);
}

bool InstanceSocket::openFolder()
{
    if (m_folder >= 0)
        return true;
    const QByteArray path = QFile::encodeName(m_path);
    if (::mkdir(path.constData(), S_IRWXU) != 0 && errno == ENOENT &&
        QDir().mkpath(QFileInfo(m_path).absolutePath()))
        ::mkdir(path.constData(), S_IRWXU);
    m_folder = ::open(path.constData(), O_DIRECTORY | O_RDONLY | O_CLOEXEC);
    struct stat status = {};
    if (m_folder >= 0 && ::fstat(m_folder, &status) == 0 && status.st_uid != ::geteuid()) {
        closeDescriptor(m_folder);
        errno = EPERM;
    }
    if (m_folder < 0)
        return false;
    // Whoever may enter it could send messages.
    if ((status.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        ::fchmod(m_folder, S_IRWXU);
    return true;
}

InstanceSocket::Claim InstanceSocket::claim()
{
    // Nobody ever removes the lock file, so everybody locks the same one.
    if (openFolder() && m_lock < 0)
        m_lock = ::openat(m_folder, kLockName, O_CREAT | O_RDWR | O_NOFOLLOW | O_CLOEXEC,
                          S_IRUSR | S_IWUSR);
    if (m_lock < 0) {
        qCWarning(lcInstance, "nothing keeps a second start from the history: no lock in %s: %s",
                  qUtf8Printable(m_path), std::strerror(errno));
        return Claim::Unusable;
    }
    if (::flock(m_lock, LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? Claim::Held : Claim::Unusable;
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

InstanceSocket::Answer InstanceSocket::forward(const InstanceMessage &message,
                                               std::chrono::milliseconds limit)
{
    const auto deadline = Clock::now() + limit;
    int own = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (own < 0)
        return Answer::None;
    // A name of the kernel's choosing, so that the answer finds us; once connected, nobody but
    // the instance can send it.
    const sockaddr_un unnamed{AF_UNIX, {}};
    const sockaddr_un address = addressIn(m_folder);
    const QByteArray text = QByteArray(kGreeting) + '\n' + message.action.toUtf8() + '\n' +
                            message.activationToken.simplified().toUtf8();
    Answer answer = Answer::Nobody;
    if (::bind(own, generic(unnamed), sizeof(sa_family_t)) == 0 &&
        ::connect(own, generic(address), sizeof address) == 0) {
        ssize_t sent = ::send(own, text.constData(), static_cast<size_t>(text.size()), 0);
        if (sent < 0 && errno == EAGAIN && waitFor(own, POLLOUT, deadline))
            sent = ::send(own, text.constData(), static_cast<size_t>(text.size()), 0);
        answer = sent == text.size() ? awaitAnswer(own, deadline) : Answer::None;
    }
    ::close(own);
    return answer;
}

InstanceSocket::Answer InstanceSocket::awaitAnswer(int own, Clock::time_point deadline) const
{
    while (!waitFor(own, POLLIN, std::min(deadline, Clock::now() + kLookInterval))) {
        // It went without reading what was sent. The lock is ours with that, which is what a
        // further claim() asks for.
        if (::flock(m_lock, LOCK_EX | LOCK_NB) == 0)
            return Answer::Nobody;
        if (Clock::now() >= deadline)
            return Answer::None;
    }
    char word[16] = {};
    if (::recv(own, word, sizeof word - 1, 0) <= 0)
        return Answer::None;
    for (const auto &[known, meaning] : kWords) {
        if (std::strcmp(word, known) == 0)
            return meaning;
    }
    return Answer::None;
}

InstanceSocket::Letter InstanceSocket::read() const
{
    Letter letter;
    letter.size = ::recvfrom(m_socket, letter.text, sizeof letter.text, MSG_TRUNC,
                             reinterpret_cast<sockaddr *>(&letter.sender), &letter.senderSize);
    return letter;
}

void InstanceSocket::answer(const Letter &letter, Answer meaning) const
{
    const auto *row = std::find_if(std::begin(kWords), std::end(kWords),
                                   [meaning](const auto &word) { return word.second == meaning; });
    ::sendto(m_socket, row->first, std::strlen(row->first), 0, generic(letter.sender),
             letter.senderSize);
}

void InstanceSocket::receive(const Receiver &receiver)
{
    const Letter letter = read();
    if (letter.size <= 0)
        return;
    const bool isWhole = letter.size <= kMaxMessage;
    const QList<QByteArray> lines =
        isWhole ? QByteArray(letter.text, letter.size).split('\n') : QList<QByteArray>();
    if (lines.size() != 3 || lines.first() != kGreeting) {
        qCWarning(lcInstance, "a message from another start was not understood");
        return;
    }
    answer(letter, receiver({QString::fromUtf8(lines.at(1)), QString::fromUtf8(lines.at(2))}));
}

void InstanceSocket::stopListening()
{
    if (m_socket < 0)
        return;
    ::unlinkat(m_folder, kSocketName, 0);
    for (Letter letter = read(); letter.size > 0; letter = read())
        answer(letter, Answer::Nobody);
    closeDescriptor(m_socket);
}
