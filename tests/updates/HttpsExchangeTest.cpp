#include "updates/HttpsExchange.h"
#include "updates/TlsServer.h"

#include <QEventLoop>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

using namespace std::chrono_literals;

/// Writes `bytes` again and again, whenever `interval` has passed.
void drip(QTcpSocket &connection, const QByteArray &bytes, std::chrono::milliseconds interval)
{
    auto *timer = new QTimer(&connection);
    QObject::connect(timer, &QTimer::timeout, &connection,
                     [&connection, bytes] { connection.write(bytes); });
    timer->start(interval);
}

struct Server
{
    const char *name;
    TlsServer::Answer answer;
    const char *outcome; ///< What the user is told; "" when the exchange succeeds.
};

void PrintTo(const Server &server, std::ostream *out)
{
    *out << server.name;
}

using HttpsExchangeTest = testing::TestWithParam<Server>;

TEST_P(HttpsExchangeTest, endsSoonWhateverTheServerDoes)
{
    TlsServer server(GetParam().answer);
    HttpsExchange::Limits limits;
    limits.maxBytes = qint64{1024} * 1024;
    limits.stall = 400ms;
    limits.minProgress = 4;
    limits.total = 1500ms;
    HttpsExchange exchange(TlsServer::authority(), limits);
    QString outcome;
    QEventLoop loop;
    QObject::connect(&exchange, &HttpsExchange::succeeded, &loop, &QEventLoop::quit);
    QObject::connect(&exchange, &HttpsExchange::failed, &loop, [&](const QString &reason) {
        outcome = reason;
        loop.quit();
    });
    exchange.get(server.url());
    loop.exec();
    EXPECT_EQ(outcome.toStdString(), GetParam().outcome);
}

void say(QTcpSocket &connection, const char *text)
{
    connection.write(QByteArray(text) + "\r\n\r\n");
}

INSTANTIATE_TEST_SUITE_P(
    Servers, HttpsExchangeTest,
    testing::Values(
        Server{"good", [](auto &connection, auto &) { TlsServer::reply(connection, "x"); }, ""},
        Server{"silent", [](auto &, auto &) {}, "The server stopped answering."},
        Server{"drips",
               [](auto &connection, auto &) {
                   say(connection, "HTTP/1.1 200 OK");
                   drip(connection, "x", 20ms);
               },
               "The server took too long to answer."},
        Server{"hardly drips",
               [](auto &connection, auto &) {
                   say(connection, "HTTP/1.1 200 OK");
                   drip(connection, "x", 300ms);
               },
               "The server stopped answering."},
        Server{"endless",
               [](auto &connection, auto &) {
                   say(connection, "HTTP/1.1 200 OK");
                   drip(connection, QByteArray(256 * 1024, 'x'), 0ms);
               },
               "The server sends more than was announced."},
        Server{"endless headers",
               [](auto &connection, auto &) {
                   connection.write("HTTP/1.1 200 OK\r\n");
                   drip(connection, "X: " + QByteArray(16 * 1024, 'x') + "\r\n", 10ms);
               },
               "The server stopped answering."},
        Server{"ends early",
               [](auto &connection, auto &) {
                   say(connection, "HTTP/1.1 200 OK\r\nContent-Length: 9");
                   connection.disconnectFromHost();
               },
               "The server ended the connection."},
        Server{"an error that goes on for ever",
               [](auto &connection, auto &) {
                   say(connection, "HTTP/1.1 500 Oh");
                   drip(connection, QByteArray(256 * 1024, 'x'), 0ms);
               },
               "The server sends more than was announced."},
        Server{"neither here nor there",
               [](auto &connection, auto &) { say(connection, "HTTP/1.1 304 Same"); },
               "The server answered with status 304."},
        Server{"in circles",
               [](auto &connection, auto &) {
                   say(connection, "HTTP/1.1 302 On\r\nContent-Length: 0\r\nLocation: /");
               },
               "The connection failed: Too many redirects."},
        Server{"hands out a cookie on the way",
               [](auto &connection, auto &request) {
                   if (!request.startsWith("GET /2"))
                       say(connection, "HTTP/1.1 302 On\r\nContent-Length: 0\r\nLocation: /2\r\n"
                                       "Set-Cookie: who=you; Path=/");
                   else if (!request.toLower().contains("cookie"))
                       TlsServer::reply(connection, "x");
               },
               ""}));

} // namespace
