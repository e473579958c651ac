#pragma once

#include <mutex>

// Clang's compiler checks these; for others they say who guards what.
#if defined(__clang__)
#define QUILLMARSH_THREAD_ANNOTATION(annotation) __attribute__((annotation))
#else
#define QUILLMARSH_THREAD_ANNOTATION(annotation)
#endif

/// A member that is read and written only while `mutex` is held.
#define QUILLMARSH_GUARDED_BY(mutex) QUILLMARSH_THREAD_ANNOTATION(guarded_by(mutex))
/// An operation that its caller calls only while `mutex` is held.
#define QUILLMARSH_REQUIRES(mutex) QUILLMARSH_THREAD_ANNOTATION(requires_capability(mutex))

/// A mutex of which the compiler knows what it guards. Waited on with a
/// std::condition_variable_any.
class QUILLMARSH_THREAD_ANNOTATION(capability("mutex")) Mutex
{
public:
    void lock() QUILLMARSH_THREAD_ANNOTATION(acquire_capability()) { m_mutex.lock(); }
    void unlock() QUILLMARSH_THREAD_ANNOTATION(release_capability()) { m_mutex.unlock(); }

private:
    std::mutex m_mutex;
};

/// Holds a mutex for as long as it lives.
class QUILLMARSH_THREAD_ANNOTATION(scoped_lockable) MutexLock
{
public:
    explicit MutexLock(Mutex &mutex) QUILLMARSH_THREAD_ANNOTATION(acquire_capability(mutex))
        : m_mutex(mutex)
    {
        m_mutex.lock();
    }
    MutexLock(const MutexLock &) = delete;
    MutexLock &operator=(const MutexLock &) = delete;
    ~MutexLock() QUILLMARSH_THREAD_ANNOTATION(release_capability()) { m_mutex.unlock(); }

private:
    Mutex &m_mutex;
};
