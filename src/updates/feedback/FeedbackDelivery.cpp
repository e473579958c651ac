#include "updates/feedback/FeedbackDelivery.h"

#include "looks/ReadingDirection.h"
#include "platform/Info.h"
#include "updates/HttpsExchange.h"
#include "updates/UpdatesLog.h"
#include "updates/feedback/FeedbackMessage.h"

#include <QDir>

namespace {

QString inHome(const QString &path)
{
    const QString home = QDir::homePath() + u'/';
    return ReadingDirection::leftToRight(
        path.startsWith(home) ? QStringLiteral("~/") + path.mid(home.size()) : path);
}

} // namespace

FeedbackDelivery::FeedbackDelivery(const Info &info, Workspace &workspace, const QString &folder,
                                   QObject *parent)
    : QObject(parent), m_address(info.feedbackUrl), m_authorities(info.certificateAuthorities),
      m_mail(workspace, folder)
{
}

FeedbackDelivery::~FeedbackDelivery() = default;

QString FeedbackDelivery::actionInWords() const
{
    return hasServer() ? tr("&Send") : tr("&Save and Mail…");
}

QString FeedbackDelivery::wayInWords() const
{
    if (hasServer())
        return {};
    return tr("This build knows no address to send to: the text is saved in %1, and your mail "
              "program opens so that you can attach it.")
        .arg(inHome(m_mail.folder()));
}

void FeedbackDelivery::deliver(const FeedbackMessage &message)
{
    if (hasServer())
        post(message);
    else
        handOver(message);
}

void FeedbackDelivery::cancel()
{
    m_exchange.reset();
}

void FeedbackDelivery::post(const FeedbackMessage &message)
{
    m_exchange = std::make_unique<HttpsExchange>(m_authorities, HttpsExchange::Limits());
    connect(m_exchange.get(), &HttpsExchange::succeeded, this,
            [this] { Q_EMIT delivered(tr("Sent. Thank you.")); });
    connect(m_exchange.get(), &HttpsExchange::failed, this,
            [this, kind = message.kindName()](const QString &reason) {
                qCInfo(lcUpdates).noquote() << kind << "was not sent:" << reason;
                Q_EMIT failed(reason);
            });
    m_exchange->post(m_address, "application/json", message.toJson());
}

void FeedbackDelivery::handOver(const FeedbackMessage &message)
{
    if (const std::optional<QString> path = m_mail.handOver(message))
        Q_EMIT delivered(tr("Saved as %1. Attach it to the mail that opens; if none does, send the "
                            "file.")
                             .arg(inHome(*path)));
    else
        Q_EMIT failed(tr("No file could be written in %1.").arg(inHome(m_mail.folder())));
}
