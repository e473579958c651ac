#include "platform/HelperThread.h"

#include <chrono>

using namespace std::chrono_literals;

HelperThread::HelperThread()
{
    m_thread.setMaxThreadCount(1);
    m_thread.setExpiryTimeout(static_cast<int>(std::chrono::milliseconds(30s).count()));
}

HelperThread::~HelperThread()
{
    m_thread.clear();
    m_thread.waitForDone();
}

void HelperThread::deliver(const Work &result)
{
    QMetaObject::invokeMethod(&m_receiver, result, Qt::QueuedConnection);
}
