#include "platform/freedesktop/instance/ApplicationAdaptor.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>

namespace {

const auto kActivationToken = QStringLiteral("activation-token");
const auto kStartupId = QStringLiteral("desktop-startup-id");

} // namespace

ApplicationAdaptor::ApplicationAdaptor(QObject *parent, Receiver receiver)
    : QDBusAbstractAdaptor(parent), m_receiver(std::move(receiver))
{
}

QString ApplicationAdaptor::activationToken(const QVariantMap &platformData)
{
    // Launchers of Wayland send the one, those of X11 the other, many both.
    const QString token = platformData.value(kActivationToken).toString();
    return token.isEmpty() ? platformData.value(kStartupId).toString() : token;
}

QVariantMap ApplicationAdaptor::platformData(const QString &activationToken)
{
    if (activationToken.isEmpty())
        return {};
    return {{kActivationToken, activationToken}, {kStartupId, activationToken}};
}

void ApplicationAdaptor::Activate(const QVariantMap &platformData)
{
    m_receiver({QString(), activationToken(platformData)});
}

void ApplicationAdaptor::Open(const QStringList &, const QVariantMap &platformData)
{
    Activate(platformData);
}

void ApplicationAdaptor::ActivateAction(const QString &action, const QVariantList &,
                                        const QVariantMap &platformData, const QDBusMessage &call)
{
    const auto answer = m_receiver({action, activationToken(platformData)});
    if (answer == InstanceSocket::Answer::Taken)
        return;
    // The reply that Qt sends by itself would say that it was done.
    call.setDelayedReply(true);
    QDBusConnection::sessionBus().send(
        answer == InstanceSocket::Answer::Refused
            ? call.createErrorReply(QDBusError::InvalidArgs,
                                    QStringLiteral("There is no such action."))
            : call.createErrorReply(QLatin1String(kUnable),
                                    QStringLiteral("This cannot be done now.")));
}
