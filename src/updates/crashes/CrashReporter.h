#pragma once

#include "platform/SignalStack.h"

#include <QString>

/// Leaves a report in a folder when the process ends by a crash: a fault, an abort (qFatal() too)
/// or an exception that nobody catches. The report is the version, the signal or the type of the
/// exception, and a back trace; never a message, a value or memory, since any of those may hold a
/// clip. Afterwards the process ends as it would have without us, core dump and exit code
/// included. A signal that somebody else handles (a sanitizer) or ignores is left to them. Owned
/// by DevMateKit; at most one at a time; made on the main thread. Other threads leave a report of
/// a used-up stack only if they have a SignalStack.
class CrashReporter
{
public:
    /// Makes `folder` when it is not there; a folder that cannot be made or opened is logged, and
    /// nothing is reported. `product` is the first line of a report.
    CrashReporter(const QString &folder, const QString &product);
    CrashReporter(const CrashReporter &) = delete;
    CrashReporter &operator=(const CrashReporter &) = delete;
    ~CrashReporter();

private:
    SignalStack m_stack;
};
