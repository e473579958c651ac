#pragma once

#include "platform/freedesktop/instance/InstanceSocket.h"

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

/// The interface org.freedesktop.Application on the bus. Owned by DBusSingleInstance, to which it
/// hands every call; a call is confirmed as soon as it was handed over.
class ApplicationAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    using Receiver = InstanceSocket::Receiver;
    /// The name of the error that answers for an action that cannot be done now.
    static constexpr const char *kUnable = "org.quillmarsh.Quillmarsh.Error.Unable";

    /// `parent` is the object on the bus.
    ApplicationAdaptor(QObject *parent, Receiver receiver);

    /// What the caller's platform data say of its activation token.
    static QString activationToken(const QVariantMap &platformData);
    static QVariantMap platformData(const QString &activationToken);

public Q_SLOTS: // The interface's own names.
    void Activate(const QVariantMap &platformData);
    /// Nothing of ours opens files: the same as Activate.
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void ActivateAction(const QString &action, const QVariantList &parameter,
                        const QVariantMap &platformData, const QDBusMessage &call);

private:
    Receiver m_receiver;
};
