#pragma once

#include <cstddef>

#include <sys/socket.h>
#include <sys/un.h>

/// How one start hands its action to the instance that runs. It needs the C library and nothing
/// else, because the program that is started for a key of the desktop is hardly more than this: to
/// load the toolkit takes longer than all of its work.
namespace InstanceCall {

/// In the folder of the store.
inline constexpr const char *kLockName = "Quillmarsh.lock";
inline constexpr const char *kSocketName = "Quillmarsh.socket";
/// First line of a message; a start of another version that speaks differently is not confirmed.
/// The action and the activation token follow, a line each and without a break at the end.
inline constexpr const char *kGreeting = "quillmarsh 1";
inline constexpr size_t kMaxMessage = 4096; ///< In bytes.
/// In the place of an action: the lines of the clips that a search for the third line finds, in a
/// file that comes with the answer Taken.
inline constexpr const char *kList = "list";

/// How long the running instance has to take an action, in milliseconds.
inline constexpr int kAnswerLimit = 1000;
/// How long it has for a list.
inline constexpr int kListLimit = 3000;
/// Longer activation tokens count as none: telling the display of one takes time by its length.
inline constexpr size_t kMaxTokenLength = 1024;

enum class Answer {
    Taken,
    Refused, ///< The holder does not know the action.
    Unable,  ///< The holder cannot do it now.
    None,    ///< The holder listens but did not answer in time.
    Nobody   ///< The holder does not listen: not yet, or it is on its way out, or gone.
};

/// The word by which an instance gives an answer. One that leaves has taken nothing: Nobody.
const char *wordOf(Answer answer);

/// Whether there is an action of that name.
bool isAction(const char *name);

/// The socket's address by way of the folder's descriptor, because the longest address is 107
/// bytes and a folder's path may be longer.
sockaddr_un addressIn(int folder);

/// Hands `message` to the process that holds `lock`, an open file that we have not locked, and
/// waits at most `limit` milliseconds for its answer. After Nobody the lock may be ours. `file`, if
/// any, becomes the open file that came with the answer, the caller's from then on, or -1.
Answer forward(int folder, int lock, const char *message, size_t size, int limit,
               int *file = nullptr);

/// Sends an answer by `own` to where a message came from, with an open file unless it is -1.
void answer(int own, const sockaddr_un &caller, socklen_t size, Answer meaning, int file = -1);

/// The exit code of a start that got this answer, which is told on standard error unless all is
/// well. Not for Nobody.
int endWith(Answer answer, const char *action);

} // namespace InstanceCall
