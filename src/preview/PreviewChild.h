#pragma once

#include "preview/PreviewProcess.h"
#include "preview/process/PreviewChannel.h"

#include <sys/types.h>

/// One run of the program that reads files for previews.
class PreviewProcess::Child
{
public:
    /// Starts it; null when it cannot be started.
    static std::unique_ptr<Child> start(const QString &program);

    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;
    /// Ends it, if end() was not called.
    ~Child();

    PreviewChannel &channel() { return m_channel; }

    /// Ends it, and tells why it ended by itself; `otherwise` when it had not.
    PreviewTrouble end(PreviewTrouble otherwise);

private:
    Child(pid_t process, int socket) : m_process(process), m_channel(socket) {}

    pid_t m_process; ///< Negative once it is gone.
    PreviewChannel m_channel;
};
