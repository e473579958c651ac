#include "updates/TlsServer.h"

#include <QFile>
#include <QProcess>
#include <QSslConfiguration>
#include <QSslKey>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

struct Identity
{
    QByteArray certificate;
    QByteArray key;
};

const Identity &identity()
{
    static const Identity made = [] {
        const QTemporaryDir folder;
        QProcess openssl;
        openssl.setWorkingDirectory(folder.path());
        openssl.start(QStringLiteral("openssl"),
                      QStringLiteral("req -x509 -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes "
                                     "-days 2 -subj /CN=localhost -addext "
                                     "subjectAltName=DNS:localhost -keyout key -out certificate")
                          .split(u' '));
        EXPECT_TRUE(openssl.waitForFinished() && openssl.exitCode() == 0);
        const auto contents = [&](const char *name) {
            QFile file(folder.filePath(QLatin1String(name)));
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            return file.readAll();
        };
        return Identity{contents("certificate"), contents("key")};
    }();
    return made;
}

} // namespace

TlsServer::TlsServer(Answer answer) : m_answer(std::move(answer))
{
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setLocalCertificate(QSslCertificate(identity().certificate));
    tls.setPrivateKey(QSslKey(identity().key, QSsl::Ec));
    setSslConfiguration(tls);
    connect(this, &QTcpServer::pendingConnectionAvailable, this, &TlsServer::serve);
    EXPECT_TRUE(listen(QHostAddress::LocalHost));
}

QByteArray TlsServer::authority()
{
    return identity().certificate;
}

QUrl TlsServer::url() const
{
    return QUrl(QStringLiteral("https://localhost:%1/").arg(serverPort()));
}

void TlsServer::reply(QTcpSocket &connection, const QByteArray &body)
{
    connection.write("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) +
                     "\r\n\r\n" + body);
}

void TlsServer::serve()
{
    QTcpSocket *connection = nextPendingConnection();
    connect(connection, &QIODevice::readyRead, this, [this, connection] {
        // The clients' requests are short and come whole.
        m_answer(*connection, connection->readAll());
    });
}
