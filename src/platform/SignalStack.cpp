#include "platform/SignalStack.h"

#include <csignal>

#include <sys/mman.h>

SignalStack::SignalStack()
{
    stack_t present = {};
    if (::sigaltstack(nullptr, &present) != 0 || !(present.ss_flags & SS_DISABLE))
        return;
    // Pages that are never touched cost no memory.
    void *memory = ::mmap(nullptr, kSizeInBytes, PROT_READ | PROT_WRITE,
                          MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK, -1, 0);
    if (memory == MAP_FAILED)
        return;
    stack_t own = {};
    own.ss_sp = memory;
    own.ss_size = kSizeInBytes;
    if (::sigaltstack(&own, nullptr) == 0)
        m_memory = memory;
    else
        ::munmap(memory, kSizeInBytes);
}

SignalStack::~SignalStack()
{
    if (!m_memory)
        return;
    stack_t none = {};
    none.ss_flags = SS_DISABLE;
    ::sigaltstack(&none, nullptr);
    ::munmap(m_memory, kSizeInBytes);
}
