#include "updates/feedback/FeedbackMessage.h"

#include <QJsonDocument>
#include <QJsonObject>

QLatin1String FeedbackMessage::kindName() const
{
    switch (kind) {
    case FeedbackMessage::Kind::Feedback:
        return QLatin1String("feedback");
    case FeedbackMessage::Kind::Issue:
        return QLatin1String("issue");
    case FeedbackMessage::Kind::Usage:
        return QLatin1String("usage");
    }
    Q_UNREACHABLE();
}

QByteArray FeedbackMessage::toJson() const
{
    QJsonObject fields;
    fields[QLatin1String("kind")] = kindName();
    fields[QLatin1String("text")] = text;
    if (mail)
        fields[QLatin1String("mail")] = *mail;
    if (system)
        fields[QLatin1String("system")] = *system;
    return QJsonDocument(fields).toJson(QJsonDocument::Compact);
}

QString FeedbackMessage::toPlainText() const
{
    QString plain = text + u'\n';
    if (mail)
        plain += u'\n' + *mail;
    if (system)
        plain += u'\n' + *system;
    return plain;
}
