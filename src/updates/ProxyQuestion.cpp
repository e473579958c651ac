#include "updates/ProxyQuestion.h"

#include "platform/Mutex.h"
#include "platform/SignalStack.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace {

std::atomic<int> g_openQuestions = 0;

} // namespace

/// What the thread knows of the question, which may be gone before the answer comes.
struct ProxyQuestion::Link
{
    explicit Link(ProxyQuestion *asked) : question(asked) {}

    void answer(const QNetworkProxy &proxy)
    {
        const MutexLock lock(mutex);
        if (ProxyQuestion *asking = question)
            QMetaObject::invokeMethod(
                asking, [asking, proxy] { Q_EMIT asking->answered(proxy); }, Qt::QueuedConnection);
    }

    Mutex mutex;
    ProxyQuestion *question QUILLMARSH_GUARDED_BY(mutex);
};

ProxyQuestion::ProxyQuestion(const QUrl &url, QObject *parent)
    : QObject(parent), m_link(std::make_shared<Link>(this))
{
    ++g_openQuestions;
    std::thread([link = m_link, url] {
        const SignalStack signalStack;
        link->answer(QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url))
                         .value(0, QNetworkProxy::NoProxy));
        // Behind all that needs the libraries, which may be tidied up from now on.
        --g_openQuestions;
    }).detach();
}

ProxyQuestion::~ProxyQuestion()
{
    const MutexLock lock(m_link->mutex);
    m_link->question = nullptr;
}

bool ProxyQuestion::isAnyOpen()
{
    return g_openQuestions > 0;
}

int ProxyQuestion::endingWith(int status)
{
    if (isAnyOpen()) {
        std::fflush(nullptr);
        std::_Exit(status);
    }
    return status;
}
