/// Reads files for previews, and is taken over by each of them: does what the word says that is in
/// it. Started by a name that ends in "-apart", it finds that it cannot be kept apart.

#include "platform/FileQuestions.h"
#include "preview/PreviewFile.h"
#include "preview/TextContent.h"
#include "preview/process/PreviewService.h"
#include "preview/process/Sandbox.h"

#include <QHash>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

int g_served = 0;
std::vector<void *> g_taken;

/// What became of a call that should not work.
QString told(long result)
{
    return result >= 0 ? QStringLiteral("done") : QString::fromLatin1(::strerrorname_np(errno));
}

QString mapped(size_t size, int protection, int flags, int descriptor = -1)
{
    return told(::mmap(nullptr, size, protection, flags, descriptor, 0) == MAP_FAILED ? -1 : 0);
}

/// Sends what no service would: a head and what follows.
void forge(quint32 number, quint32 size, const QByteArray &bytes)
{
    const std::array<quint32, 3> head = {0x514D5001, number, size};
    QByteArray message(reinterpret_cast<const char *>(head.data()), sizeof head);
    message += bytes;
    if (::write(PreviewService::kSocket, message.constData(), size_t(message.size())) < 0)
        std::abort();
}

QString connectSomewhere()
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    return told(::connect(socket, reinterpret_cast<sockaddr *>(&address), sizeof address));
}

QString runProgram()
{
    std::array<char *, 1> nothing = {nullptr};
    return told(::execve("/bin/true", nothing.data(), nothing.data()));
}

QString waitUntilUnwanted(const Patience &patience)
{
    while (!patience.isOver())
        ::usleep(1000);
    return QStringLiteral("late");
}

[[noreturn]] void spinForEver()
{
    const std::atomic<bool> isForEver = true;
    while (isForEver) {
    }
    std::abort();
}

[[noreturn]] void takeMemory()
{
    for (;;)
        g_taken.push_back(::operator new(64 << 20));
}

QString behave(const QByteArray &word, PreviewFile &file, const Patience &patience)
{
    using namespace Qt::StringLiterals;
    const QHash<QByteArray, std::function<QString()>> kBehaviour{
        {"count", [] { return QString::number(g_served); }},
        {"patient", [&] { return waitUntilUnwanted(patience); }},
        // As an allocator does that means to use little of it.
        {"reserve", [] { return mapped(16UL << 30, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS); }},
        // What ends it.
        {"crash", []() -> QString { std::abort(); }},
        {"leave", []() -> QString { ::_exit(0); }},
        {"spin", []() -> QString { spinForEver(); }},
        {"memory", []() -> QString { takeMemory(); }},
        // What is no answer.
        {"huge", [] { return forge(1, 1U << 30, {}), u"answer"_s; }},
        {"unmarked", [] { return forge(0, 0, QByteArray(64, 'x')), u"answer"_s; }},
        {"other", [] { return forge(77, 3, QByteArray(3, '\0')), u"answer"_s; }},
        {"cut", []() -> QString { return forge(1, 100, "begun"), ::_exit(0), QString(); }},
        {"claim", [] { return forge(1, 8, QByteArray("\0\0\1\0\0\0\0\1", 8)), u"answer"_s; }},
        // Ways out.
        {"open", [] { return told(::open("/etc/passwd", O_RDONLY)); }},
        {"create", [] { return told(::open("/tmp/out", O_CREAT | O_WRONLY, 0600)); }},
        {"again", [&] { return told(::openat(file.descriptor(), "", O_RDWR)); }},
        {"look",
         [] {
             struct stat status = {};
             return told(::stat("/etc/passwd", &status));
         }},
        {"change", [&] { return told(::fchmod(file.descriptor(), 0777)); }},
        {"map", [&] { return mapped(1, PROT_READ, MAP_SHARED, file.descriptor()); }},
        {"program", [] { return mapped(1, PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS); }},
        {"share", [] { return mapped(1, PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS); }},
        {"kill", [] { return told(::kill(::getppid(), SIGTERM)); }},
        {"limits", [] { return told(::syscall(SYS_prlimit64, 0, 0, nullptr, nullptr)); }},
        {"fork", [] { return told(::fork()); }},
        {"connect", connectSomewhere},
        {"exec", runProgram},
        {"trace", [] { return told(::syscall(SYS_ptrace, 16, ::getppid(), nullptr, nullptr)); }},
    };
    return kBehaviour.value(word, [] { return u"no such behaviour"_s; })();
}

PreviewAnswer decode(const PreviewOrder &, PreviewFile &file, const Patience &patience)
{
    ++g_served;
    PreviewAnswer answer;
    const QString text = behave(file.readAll(), file, patience);
    answer.content = std::make_shared<TextContent>(text, TextContent::Form::Prose, false);
    return answer;
}

} // namespace

int main(int, char **argv)
{
    if (QByteArray(argv[0]).endsWith("-apart"))
        return PreviewService::kNotApart;
    std::set_new_handler([] { ::_exit(PreviewService::kOutOfMemory); });
    if (!Sandbox::close())
        return EXIT_FAILURE;
    PreviewService::run(PreviewService::kSocket, decode);
}
