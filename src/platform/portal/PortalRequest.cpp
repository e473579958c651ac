#include "platform/portal/PortalRequest.h"

#include "platform/portal/PortalBus.h"

#include <QDBusObjectPath>
#include <QTimer>

#include <utility>

namespace {

const auto kInterface = QStringLiteral("org.freedesktop.portal.Request");

} // namespace

PortalRequest::PortalRequest(PortalBus &bus, const Question &question,
                             std::optional<std::chrono::milliseconds> limit, Receiver receive,
                             QObject *parent)
    : QObject(parent), m_bus(bus), m_receive(std::move(receive))
{
    const QString token = PortalBus::newToken();
    // Before it is asked: the answer may come before we know that it was asked.
    listen(QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
               .arg(m_bus.senderName(), token));
    QVariantMap options = question.options;
    options[QStringLiteral("handle_token")] = token;
    m_bus.call(PortalBus::message(question.interface, question.method,
                                  question.arguments + QVariantList{options}),
               this, [this](const QDBusMessage &reply) {
                   if (reply.type() == QDBusMessage::ErrorMessage)
                       finish({Outcome::Failed, {}, reply.errorMessage()});
                   // Old portals make up the path themselves.
                   else if (const auto path = reply.arguments().value(0).value<QDBusObjectPath>();
                            m_receive && path.path() != m_path)
                       listen(path.path());
               });
    if (limit)
        QTimer::singleShot(*limit, this, [this] {
            close();
            finish({Outcome::Failed, {}, QStringLiteral("no answer in time")});
        });
}

PortalRequest::~PortalRequest()
{
    close();
}

void PortalRequest::listen(const QString &path)
{
    m_path = path;
    QDBusConnection bus = m_bus.bus();
    bus.connect(PortalBus::kService, m_path, kInterface, QStringLiteral("Response"), this,
                SLOT(handleResponse(uint, QVariantMap)));
}

void PortalRequest::handleResponse(uint code, const QVariantMap &results)
{
    const Outcome outcome = code == 0   ? Outcome::Granted
                            : code == 1 ? Outcome::Cancelled
                                        : Outcome::Ended;
    finish({outcome, results});
}

void PortalRequest::finish(const Answer &answer)
{
    if (const Receiver receive = std::exchange(m_receive, nullptr))
        receive(answer);
}

void PortalRequest::close()
{
    if (m_receive)
        m_bus.bus().send(PortalBus::message(kInterface, QStringLiteral("Close"), {}, m_path));
}
