#include "preview/process/Sandbox.h"

#include <array>
#include <cerrno>
#include <memory>

#include <linux/landlock.h>
#include <linux/sched.h>
#include <malloc.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kHasShadowMemory = true; ///< Of terabytes, none of them real.
#else
constexpr bool kHasShadowMemory = false;
#endif

bool limit(__rlimit_resource what, rlim_t most)
{
    const rlimit limits = {most, most};
    return ::setrlimit(what, &limits) == 0;
}

bool setLimits()
{
    constexpr rlim_t kMaxDescriptors = 64;
    // Threads and what each of them keeps for itself would else be most of the memory.
    ::mallopt(M_ARENA_MAX, 2);
    // What can be written to, not what is set aside: a library may reserve far more than there is.
    return (kHasShadowMemory || limit(RLIMIT_DATA, Sandbox::kMaxMemory)) &&
           limit(RLIMIT_CPU, Sandbox::kMaxWork) && limit(RLIMIT_NOFILE, kMaxDescriptors) &&
           limit(RLIMIT_FSIZE, 0) && limit(RLIMIT_CORE, 0);
}

/// No file system at all, and no network; true as well where the kernel knows no such rules.
bool closeFileSystems()
{
    const long version =
        ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1)
        return errno == ENOSYS || errno == EOPNOTSUPP;
    // By their numbers, because the headers may be older than the kernel: since the first version
    // 13 rights to files, one more in each of the next two and the fifth, two to ports since the
    // fourth and two to other processes since the sixth.
    struct
    {
        __u64 files = (1ULL << 13) - 1;
        __u64 ports = 0;
        __u64 processes = 0;
    } rules;
    if (version >= 2)
        rules.files |= 1ULL << 13;
    if (version >= 3)
        rules.files |= 1ULL << 14;
    if (version >= 5)
        rules.files |= 1ULL << 15;
    if (version >= 4)
        rules.ports = 3;
    if (version >= 6)
        rules.processes = 3;
    const size_t size = version >= 6 ? 24 : version >= 4 ? 16 : 8;
    const auto set = static_cast<int>(::syscall(SYS_landlock_create_ruleset, &rules, size, 0));
    if (set < 0)
        return false;
    const bool isClosed = ::syscall(SYS_landlock_restrict_self, set, 0) == 0;
    ::close(set);
    return isClosed;
}

using Filter = std::unique_ptr<void, decltype(&seccomp_release)>;

template <typename... Conditions>
bool add(const Filter &filter, uint32_t action, int call, Conditions... conditions)
{
    return seccomp_rule_add(filter.get(), action, call, sizeof...(conditions), conditions...) == 0;
}

/// What works on memory, on what is open, on this process's threads and on the time.
constexpr std::array kHarmless{
    SCMP_SYS(read),          SCMP_SYS(readv),
    SCMP_SYS(pread64),       SCMP_SYS(lseek),
    SCMP_SYS(fstat),         SCMP_SYS(write),
    SCMP_SYS(writev),        SCMP_SYS(sendmsg),
    SCMP_SYS(recvmsg),       SCMP_SYS(poll),
    SCMP_SYS(ppoll),         SCMP_SYS(close),
    SCMP_SYS(munmap),        SCMP_SYS(mremap),
    SCMP_SYS(madvise),       SCMP_SYS(brk),
    SCMP_SYS(futex),         SCMP_SYS(set_robust_list),
    SCMP_SYS(rseq),          SCMP_SYS(rt_sigprocmask),
    SCMP_SYS(rt_sigaction),  SCMP_SYS(rt_sigreturn),
    SCMP_SYS(sigaltstack),   SCMP_SYS(restart_syscall),
    SCMP_SYS(exit),          SCMP_SYS(exit_group),
    SCMP_SYS(clock_gettime), SCMP_SYS(clock_nanosleep),
    SCMP_SYS(nanosleep),     SCMP_SYS(gettimeofday),
    SCMP_SYS(sched_yield),   SCMP_SYS(sched_getaffinity),
    SCMP_SYS(getpid),        SCMP_SYS(gettid),
    SCMP_SYS(getrandom),     SCMP_SYS(eventfd2),
    SCMP_SYS(pipe2),
};

/// What no library does by the way: whoever comes to these has taken the process over.
constexpr std::array kDeadly{
    SCMP_SYS(execve),
    SCMP_SYS(execveat),
    SCMP_SYS(fork),
    SCMP_SYS(vfork),
    SCMP_SYS(socket),
    SCMP_SYS(connect),
    SCMP_SYS(bind),
    SCMP_SYS(ptrace),
    SCMP_SYS(process_vm_readv),
    SCMP_SYS(process_vm_writev),
    SCMP_SYS(io_uring_setup),
    SCMP_SYS(bpf),
    SCMP_SYS(userfaultfd),
    SCMP_SYS(unshare),
    SCMP_SYS(setns),
};

bool filterCalls()
{
    const Filter filter(seccomp_init(SCMP_ACT_ERRNO(EPERM)), &seccomp_release);
    // All threads, also those that libraries have started by now.
    if (!filter || seccomp_attr_set(filter.get(), SCMP_FLTATR_CTL_TSYNC, 1) != 0)
        return false;
    bool isMade = true;
    for (const int call : kHarmless)
        isMade = isMade && add(filter, SCMP_ACT_ALLOW, call);
    for (const int call : kDeadly)
        isMade = isMade && add(filter, SCMP_ACT_KILL_PROCESS, call);
    // Memory that no file stands behind and no program runs in, and that the limit counts, which
    // it does with none that is shared.
    const scmp_arg_cmp notRun = SCMP_A2(SCMP_CMP_MASKED_EQ, PROT_EXEC, 0);
    const scmp_arg_cmp ofNoFile =
        SCMP_A3(SCMP_CMP_MASKED_EQ, MAP_TYPE | MAP_ANONYMOUS, MAP_PRIVATE | MAP_ANONYMOUS);
    // Threads, of which libraries make some for large pictures; but no processes. What says so in
    // memory cannot be looked at, and the C library then falls back to what can.
    const scmp_arg_cmp thread = SCMP_A0(SCMP_CMP_MASKED_EQ, CLONE_THREAD, CLONE_THREAD);
    const scmp_arg_cmp itself = SCMP_A0(SCMP_CMP_EQ, scmp_datum_t(::getpid()));
    return isMade && add(filter, SCMP_ACT_ALLOW, SCMP_SYS(mmap), notRun, ofNoFile) &&
           add(filter, SCMP_ACT_ALLOW, SCMP_SYS(mprotect), notRun) &&
           add(filter, SCMP_ACT_ALLOW, SCMP_SYS(clone), thread) &&
           add(filter, SCMP_ACT_ERRNO(ENOSYS), SCMP_SYS(clone3)) &&
           add(filter, SCMP_ACT_ALLOW, SCMP_SYS(tgkill), itself) && seccomp_load(filter.get()) == 0;
}

} // namespace

bool Sandbox::close()
{
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           ::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) == 0 && setLimits() && closeFileSystems() &&
           filterCalls();
}
