#pragma once

#include <cstddef>

/// Gives the thread that makes it a second stack for signal handlers, so that a crash report can
/// still be written when the thread's own stack is used up. Lives on that thread, from its first
/// line to its last. A thread that has such a stack already (a sanitizer's) keeps it, and one that
/// cannot have it goes without.
class SignalStack
{
public:
    SignalStack();
    SignalStack(const SignalStack &) = delete;
    SignalStack &operator=(const SignalStack &) = delete;
    ~SignalStack();

private:
    static constexpr size_t kSizeInBytes = size_t{128} * 1024;

    void *m_memory = nullptr;
};
