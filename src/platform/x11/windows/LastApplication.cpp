#include "platform/x11/windows/LastApplication.h"

#include "platform/x11/windows/ClientProcess.h"

#include <unistd.h>

void LastApplication::remember(const QString &name, quint32 processId)
{
    const bool isOurs = processId == static_cast<quint32>(getpid());
    m_name = isOurs ? QString() : name;
    m_processId = processId;
    m_processName = ClientProcess::nameOf(processId);
}

QString LastApplication::nameWhileItRuns() const
{
    // Process numbers come again, so that the name must be the same as well.
    const bool isRunning =
        !m_processName.isEmpty() && ClientProcess::nameOf(m_processId) == m_processName;
    return isRunning ? m_name : QString();
}
