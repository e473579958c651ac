#pragma once

#include "updates/feedback/MailHandOver.h"

#include <QByteArray>
#include <QObject>
#include <QUrl>

#include <memory>

class HttpsExchange;
class Workspace;
struct FeedbackMessage;
struct Info;

/// Hands messages over: to the server whose address was built in, else to the mail program. Owned
/// by the window that asks; one message at a time. The server learns the message and nothing else:
/// no language, no version of anything.
class FeedbackDelivery : public QObject
{
    Q_OBJECT

public:
    /// `folder` receives the files of the way by mail.
    FeedbackDelivery(const Info &info, Workspace &workspace, const QString &folder,
                     QObject *parent = nullptr);
    ~FeedbackDelivery() override;

    bool hasServer() const { return !m_address.isEmpty(); }
    /// What a button that delivers says.
    QString actionInWords() const;
    /// What the user should know about the way before choosing it; empty when there is a server.
    QString wayInWords() const;

    /// Ends in exactly one of the signals, perhaps at once, unless cancel() comes first.
    void deliver(const FeedbackMessage &message);
    /// Drops a delivery under way without a signal. It may have arrived.
    void cancel();

Q_SIGNALS:
    /// `outcome` and `reason` are sentences for the user.
    void delivered(const QString &outcome);
    void failed(const QString &reason);

private:
    void post(const FeedbackMessage &message);
    void handOver(const FeedbackMessage &message);

    const QUrl m_address; ///< Empty without a server.
    const QByteArray m_authorities;
    const MailHandOver m_mail;
    std::unique_ptr<HttpsExchange> m_exchange;
};
