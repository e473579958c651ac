#include "platform/freedesktop/instance/InstanceCall.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

using InstanceCall::Answer;

/// Who waits for an answer looks so often whether the holder is gone, which sends no word of it.
constexpr int64_t kLookInterval = 5;

struct Word
{
    const char *word;
    Answer answer;
};

constexpr Word kWords[] = {
    {"taken", Answer::Taken},
    {"refused", Answer::Refused},
    {"unable", Answer::Unable},
    {"leaving", Answer::Nobody},
};

constexpr const char *kActions[] = {
    "launch",  "swop",      "preferences", "check-for-updates", "feedback", "help",
    "welcome", "clear-all", "quit",
};

/// Milliseconds since some time.
int64_t now()
{
    timespec time = {};
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return int64_t(time.tv_sec) * 1000 + time.tv_nsec / 1'000'000;
}

const sockaddr *generic(const sockaddr_un &address)
{
    return reinterpret_cast<const sockaddr *>(&address);
}

/// Waits for `events` until `deadline`.
bool waitFor(int descriptor, short events, int64_t deadline)
{
    for (;;) {
        pollfd question{descriptor, events, 0};
        const int count =
            ::poll(&question, 1, static_cast<int>(std::max<int64_t>(0, deadline - now())));
        if (count >= 0 || errno != EINTR)
            return count > 0;
    }
}

/// Room for one open file beside a message.
union FileNote {
    cmsghdr head;
    char room[CMSG_SPACE(sizeof(int))];
};

/// Receives a word and perhaps an open file with it.
Answer readAnswer(int own, int *file)
{
    char told[16] = {};
    FileNote note = {};
    iovec part{told, sizeof told - 1};
    msghdr message = {};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    // Without room for it the kernel keeps the file.
    message.msg_control = file ? note.room : nullptr;
    message.msg_controllen = file ? sizeof note.room : 0;
    if (::recvmsg(own, &message, MSG_CMSG_CLOEXEC) <= 0)
        return Answer::None;
    const cmsghdr *const head = CMSG_FIRSTHDR(&message);
    if (file && head && head->cmsg_level == SOL_SOCKET && head->cmsg_type == SCM_RIGHTS)
        std::memcpy(file, CMSG_DATA(head), sizeof *file);
    for (const auto &[word, answer] : kWords) {
        if (std::strcmp(told, word) == 0)
            return answer;
    }
    return Answer::None;
}

Answer awaitAnswer(int own, int lock, int64_t deadline, int *file)
{
    while (!waitFor(own, POLLIN, std::min(deadline, now() + kLookInterval))) {
        // It went without reading what was sent. The lock is ours with that, which is what the
        // caller asks for next.
        if (::flock(lock, LOCK_EX | LOCK_NB) == 0)
            return Answer::Nobody;
        if (now() >= deadline)
            return Answer::None;
    }
    return readAnswer(own, file);
}

} // namespace

const char *InstanceCall::wordOf(Answer answer)
{
    for (const auto &[word, meaning] : kWords) {
        if (meaning == answer)
            return word;
    }
    return "";
}

bool InstanceCall::isAction(const char *name)
{
    for (const char *action : kActions) {
        if (std::strcmp(action, name) == 0)
            return true;
    }
    return false;
}

sockaddr_un InstanceCall::addressIn(int folder)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "/proc/self/fd/%d/%s", folder,
                  kSocketName);
    return address;
}

Answer InstanceCall::forward(int folder, int lock, const char *message, size_t size, int limit,
                             int *file)
{
    if (file)
        *file = -1;
    const int64_t deadline = now() + limit;
    const int own = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (own < 0)
        return Answer::None;
    // A name of the kernel's choosing, so that the answer finds us; once connected, nobody but
    // the instance can send it.
    const sockaddr_un unnamed{AF_UNIX, {}};
    const sockaddr_un address = addressIn(folder);
    Answer answer = Answer::Nobody;
    if (::bind(own, generic(unnamed), sizeof(sa_family_t)) == 0 &&
        ::connect(own, generic(address), sizeof address) == 0) {
        ssize_t sent = ::send(own, message, size, 0);
        if (sent < 0 && errno == EAGAIN && waitFor(own, POLLOUT, deadline))
            sent = ::send(own, message, size, 0);
        answer = sent == static_cast<ssize_t>(size) ? awaitAnswer(own, lock, deadline, file)
                                                    : Answer::None;
    }
    ::close(own);
    return answer;
}

void InstanceCall::answer(int own, const sockaddr_un &caller, socklen_t size, Answer meaning,
                          int file)
{
    const char *const word = wordOf(meaning);
    iovec part{const_cast<char *>(word), std::strlen(word)};
    sockaddr_un address = caller;
    FileNote note = {};
    msghdr message = {};
    message.msg_name = &address;
    message.msg_namelen = size;
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    if (file >= 0) {
        message.msg_control = note.room;
        message.msg_controllen = sizeof note.room;
        cmsghdr *const head = CMSG_FIRSTHDR(&message);
        head->cmsg_level = SOL_SOCKET;
        head->cmsg_type = SCM_RIGHTS;
        head->cmsg_len = CMSG_LEN(sizeof file);
        std::memcpy(CMSG_DATA(head), &file, sizeof file);
    }
    ::sendmsg(own, &message, 0);
}

int InstanceCall::endWith(Answer answer, const char *action)
{
    switch (answer) {
    case Answer::Taken:
    case Answer::Nobody:
        return EXIT_SUCCESS;
    case Answer::Refused:
        std::fprintf(stderr, "quillmarsh: the one that is running does not know \"%s\"\n", action);
        break;
    case Answer::Unable:
        // Only a change of the history depends on anything.
        std::fputs("quillmarsh: nothing was deleted: the history cannot be written\n", stderr);
        break;
    case Answer::None:
        std::fputs("quillmarsh: it is already running but does not answer\n", stderr);
        break;
    }
    return EXIT_FAILURE;
}
