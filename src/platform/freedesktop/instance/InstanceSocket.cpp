#include "platform/freedesktop/instance/InstanceSocket.h"

#include <QByteArray>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

#include <cerrno>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

Q_LOGGING_CATEGORY(lcInstance, "quillmarsh.platform.instance", QtInfoMsg)

namespace {

constexpr qsizetype kMaxMessage = InstanceCall::kMaxMessage;

void closeDescriptor(int &descriptor)
{
    if (descriptor >= 0)
        ::close(std::exchange(descriptor, -1));
}

const sockaddr *generic(const sockaddr_un &address)
{
    return reinterpret_cast<const sockaddr *>(&address);
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
        m_lock = ::openat(m_folder, InstanceCall::kLockName,
                          O_CREAT | O_RDWR | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
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
    ::unlinkat(m_folder, InstanceCall::kSocketName, 0);
    const sockaddr_un address = InstanceCall::addressIn(m_folder);
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
    const QByteArray text = QByteArray(InstanceCall::kGreeting) + '\n' + message.action.toUtf8() +
                            '\n' + message.activationToken.simplified().toUtf8();
    return InstanceCall::forward(m_folder, m_lock, text.constData(),
                                 static_cast<size_t>(text.size()), static_cast<int>(limit.count()));
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
    InstanceCall::answer(m_socket, letter.sender, letter.senderSize, meaning);
}

void InstanceSocket::receive(const Receiver &receiver)
{
    const Letter letter = read();
    if (letter.size <= 0)
        return;
    const bool isWhole = letter.size <= kMaxMessage;
    const QList<QByteArray> lines =
        isWhole ? QByteArray(letter.text, letter.size).split('\n') : QList<QByteArray>();
    if (lines.size() != 3 || lines.first() != InstanceCall::kGreeting) {
        qCWarning(lcInstance, "a message from another start was not understood");
        return;
    }
    if (m_lister && lines.at(1) == InstanceCall::kList) {
        m_lister(
            QString::fromUtf8(lines.at(2)),
            [this, sender = letter.sender, size = letter.senderSize](Answer meaning, int file) {
                InstanceCall::answer(m_socket, sender, size, meaning, file);
            });
        return;
    }
    answer(letter, receiver({QString::fromUtf8(lines.at(1)), QString::fromUtf8(lines.at(2))}));
}

void InstanceSocket::stopListening()
{
    if (m_socket < 0)
        return;
    ::unlinkat(m_folder, InstanceCall::kSocketName, 0);
    for (Letter letter = read(); letter.size > 0; letter = read())
        answer(letter, Answer::Nobody);
    closeDescriptor(m_socket);
}
