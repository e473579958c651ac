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

    Mutex mutex;
    ProxyQuestion *question QUILLMARSH_GUARDED_BY(mutex);
};

ProxyQuestion::ProxyQuestion(const QUrl &url, QObject *parent)
    : QObject(parent), m_link(std::make_shared<Link>(this))
{
    ++g_openQuestions;
    std::thread([link = m_link, url] {
        const SignalStack signalStack;
        const QNetworkProxy proxy =
            QNetworkProxyFactory::systemProxyForQuery(QNetworkProxyQuery(url))
                .value(0, QNetworkProxy::NoProxy);
        const MutexLock lock(link->mutex);
        if (ProxyQuestion *question = link->question)
            QMetaObject::invokeMethod(
                question, [question, proxy] { Q_EMIT question->answered(proxy); },
                Qt::QueuedConnection);
        --g_openQuestions;
    }).detach();
}

ProxyQuestion::~ProxyQuestion()
{
    const MutexLock lock(m_link->mutex);
    m_link->question = nullptr;
}

int ProxyQuestion::endingWith(int status)
{
    if (g_openQuestions > 0) {
        std::fflush(nullptr);
        std::_Exit(status);
    }
    return status;
}
