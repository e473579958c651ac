#include "updates/HttpsExchange.h"

#include "updates/ProxyQuestion.h"

#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QSslCertificate>
#include <QSslConfiguration>

namespace {

constexpr int kMaxRedirects = 4;
constexpr qint64 kReadBufferBytes = 256 * 1024;

/// Of the failures that a user can do something about, what happened; of the others what Qt says.
QString reasonFor(const QNetworkReply &reply)
{
    switch (reply.error()) {
    case QNetworkReply::InsecureRedirectError:
        return HttpsExchange::tr("The server redirects to an address that is not secure.");
    case QNetworkReply::SslHandshakeFailedError:
        return HttpsExchange::tr("The server could not prove who it is, or the connection is not "
                                 "secure.");
    case QNetworkReply::HostNotFoundError:
        return HttpsExchange::tr("The server %1 was not found. Are you connected to the internet?")
            .arg(reply.url().host());
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::TimeoutError:
    case QNetworkReply::NetworkSessionFailedError:
        return HttpsExchange::tr("The server %1 cannot be reached.").arg(reply.url().host());
    case QNetworkReply::RemoteHostClosedError:
        return HttpsExchange::tr("The server ended the connection.");
    case QNetworkReply::ContentNotFoundError:
    case QNetworkReply::ContentGoneError:
        return HttpsExchange::tr("The server does not have the file.");
    default:
        break;
    }
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status >= 400)
        return HttpsExchange::tr("The server answered with error %1.").arg(status);
    return HttpsExchange::tr("The connection failed: %1.").arg(reply.errorString());
}

} // namespace

HttpsExchange::HttpsExchange(const QByteArray &authorities, const Limits &limits, QObject *parent)
    : QObject(parent), m_authorities(authorities), m_limits(limits)
{
    // Compressed, an answer could be longer than its bytes.
    m_request.setRawHeader("Accept-Encoding", "identity");
    // Otherwise Qt would name itself and the user's language.
    m_request.setRawHeader("User-Agent", "Quillmarsh");
    m_request.setRawHeader("Accept-Language", "*");
    connect(&m_stallTimer, &QTimer::timeout, this, &HttpsExchange::checkProgress);
    m_totalTimer.setSingleShot(true);
    connect(&m_totalTimer, &QTimer::timeout, this,
            [this] { fail(tr("The server took too long to answer.")); });
}

HttpsExchange::~HttpsExchange()
{
    m_isOver = true;
    if (m_reply)
        m_reply->abort();
}

void HttpsExchange::setHeader(const QByteArray &name, const QByteArray &value)
{
    m_request.setRawHeader(name, value);
}

void HttpsExchange::post(const QUrl &url, const QByteArray &contentType, const QByteArray &body)
{
    m_isPost = true;
    m_body = body;
    m_request.setHeader(QNetworkRequest::ContentTypeHeader, contentType);
    send(url);
}

int HttpsExchange::status() const
{
    return m_reply ? m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() : 0;
}

QByteArray HttpsExchange::header(const QByteArray &name) const
{
    return m_reply ? m_reply->rawHeader(name) : QByteArray();
}

void HttpsExchange::send(const QUrl &url)
{
    m_stallTimer.start(m_limits.stall);
    if (m_limits.total.count() > 0)
        m_totalTimer.start(m_limits.total);
    if (url.scheme() != u"https" || url.host().isEmpty()) {
        // Later, because nobody expects an answer before the question was asked.
        QMetaObject::invokeMethod(
            this, [this] { fail(tr("The address is not a secure one (https).")); },
            Qt::QueuedConnection);
        return;
    }
    m_request.setUrl(url);
    auto *question = new ProxyQuestion(url, this);
    connect(question, &ProxyQuestion::answered, this, [this](const QNetworkProxy &proxy) {
        if (!m_isOver)
            start(proxy);
    });
}

void HttpsExchange::start(const QNetworkProxy &proxy)
{
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    if (!m_authorities.isEmpty())
        tls.setCaCertificates(QSslCertificate::fromData(m_authorities));
    m_request.setSslConfiguration(tls);
    m_request.setMaximumRedirectsAllowed(kMaxRedirects);
    m_request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                           m_isPost ? QNetworkRequest::ManualRedirectPolicy
                                    : QNetworkRequest::NoLessSafeRedirectPolicy);
    m_request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    m_request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                           QNetworkRequest::AlwaysNetwork);
    for (const auto cookies :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute})
        m_request.setAttribute(cookies, QNetworkRequest::Manual);
    m_manager = new QNetworkAccessManager(this);
    m_manager->setProxy(proxy);
    m_reply = m_isPost ? m_manager->post(m_request, m_body) : m_manager->get(m_request);
    m_reply->setReadBufferSize(kReadBufferBytes);
    connect(m_reply, &QIODevice::readyRead, this, &HttpsExchange::read);
    connect(m_reply, &QNetworkReply::finished, this, &HttpsExchange::replyFinished);
}

void HttpsExchange::read()
{
    while (!m_isOver && m_reply->bytesAvailable() > 0) {
        const QByteArray bytes = m_reply->read(kReadBufferBytes);
        if (bytes.isEmpty())
            return;
        m_count += bytes.size();
        if (m_count > m_limits.maxBytes) {
            fail(tr("The server sends more than was announced."));
            return;
        }
        // The page that explains an error is of no use to anybody here.
        if (isGoodStatus())
            Q_EMIT received(bytes);
    }
}

void HttpsExchange::replyFinished()
{
    read();
    if (m_isOver)
        return;
    if (m_reply->error() != QNetworkReply::NoError) {
        fail(reasonFor(*m_reply));
    } else if (!isGoodStatus()) {
        fail(tr("The server answered with status %1.").arg(status()));
    } else {
        end();
        Q_EMIT succeeded();
    }
}

void HttpsExchange::checkProgress()
{
    if (m_count - m_countAtLastCheck < m_limits.minProgress)
        fail(tr("The server stopped answering."));
    m_countAtLastCheck = m_count;
}

void HttpsExchange::end()
{
    m_isOver = true;
    m_stallTimer.stop();
    m_totalTimer.stop();
}

void HttpsExchange::fail(const QString &reason)
{
    if (m_isOver)
        return;
    end();
    if (m_reply)
        m_reply->abort();
    Q_EMIT failed(reason);
}
