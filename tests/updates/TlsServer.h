#pragma once

#include <QByteArray>
#include <QSslServer>
#include <QTcpSocket>
#include <QUrl>

#include <functional>

/// An HTTPS server on the loopback, with a certificate that is its own authority. Each request goes
/// to `answer`, with all that the client said.
class TlsServer : public QSslServer
{
    Q_OBJECT

public:
    using Answer = std::function<void(QTcpSocket &connection, const QByteArray &request)>;

    explicit TlsServer(Answer answer);

    /// PEM.
    static QByteArray authority();
    QUrl url() const;
    /// A whole answer with that body.
    static void reply(QTcpSocket &connection, const QByteArray &body);

private:
    void serve();

    const Answer m_answer;
};
