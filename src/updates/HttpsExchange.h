#pragma once

#include <QByteArray>
#include <QNetworkRequest>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QUrl>

#include <chrono>

class QNetworkAccessManager;
class QNetworkProxy;
class QNetworkReply;

/// One request and its answer, by the rules that all our network traffic obeys: HTTPS only, also
/// after a redirect; no certificate problem is ever overlooked; the answer is bounded in size and
/// in the time that it may stand still; the system's proxy is used. Owned by whoever asks; used
/// once, on the main thread. Destroying it abandons the exchange silently; from its own signals,
/// only with deleteLater().
class HttpsExchange : public QObject
{
    Q_OBJECT

public:
    struct Limits
    {
        qint64 maxBytes = 1024 * 1024; ///< A longer answer is refused.
        /// An answer that brings less than `minProgress` bytes in this time is given up.
        std::chrono::milliseconds stall{20000};
        qint64 minProgress = 1;
        /// For the whole exchange; zero for none.
        std::chrono::milliseconds total{60000};
    };

    /// `authorities` (PEM) are trusted instead of the system's, unless they are empty.
    HttpsExchange(const QByteArray &authorities, const Limits &limits, QObject *parent = nullptr);
    ~HttpsExchange() override;

    void setHeader(const QByteArray &name, const QByteArray &value);

    void get(const QUrl &url) { send(url); }
    void post(const QUrl &url, const QByteArray &contentType, const QByteArray &body);

    /// Of the answer; 0 before it came.
    int status() const;
    /// A header of the answer; empty when it has none of that name.
    QByteArray header(const QByteArray &name) const;

Q_SIGNALS:
    /// The next part of the answer's body, in order.
    void received(const QByteArray &bytes);
    /// The whole answer has come, with a status from 200 to 299.
    void succeeded();
    /// Nothing more comes. `reason` is a sentence for the user.
    void failed(const QString &reason);

private:
    void send(const QUrl &url);
    void start(const QNetworkProxy &proxy);
    bool isGoodStatus() const { return status() >= 200 && status() <= 299; }
    void read();
    void replyFinished();
    void checkProgress();
    void end();
    void fail(const QString &reason);

    const QByteArray m_authorities;
    const Limits m_limits;
    QNetworkRequest m_request;
    QByteArray m_body;
    bool m_isPost = false;
    bool m_isOver = false;
    qint64 m_count = 0;
    qint64 m_countAtLastCheck = 0;
    QTimer m_stallTimer;
    QTimer m_totalTimer;
    QNetworkAccessManager *m_manager = nullptr;
    QNetworkReply *m_reply = nullptr; ///< The manager's.
};
