#pragma once

#include <QNetworkProxy>
#include <QObject>
#include <QUrl>

#include <memory>

/// Asks the system which proxy leads to an address, on a thread of its own, because whoever knows
/// may be another program. Owned by who asks; main thread. Destroying it while there is no answer
/// leaves that thread alone: one that hangs can be ended only with the process.
class ProxyQuestion : public QObject
{
    Q_OBJECT

public:
    explicit ProxyQuestion(const QUrl &url, QObject *parent = nullptr);
    ~ProxyQuestion() override;

    /// Whether somebody's question, in this process, has no answer yet.
    static bool isAnyOpen();

    /// The last thing that main() calls: hands `status` back, unless somebody's question has no
    /// answer yet. Then the process ends here and now, because what its libraries tidy up at the
    /// end would wait for the answer.
    static int endingWith(int status);

Q_SIGNALS:
    /// Once, never before the event loop goes on.
    void answered(const QNetworkProxy &proxy);

private:
    struct Link;

    std::shared_ptr<Link> m_link;
};
