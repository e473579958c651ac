#include "updates/feedback/MailHandOver.h"

#include "platform/Workspace.h"
#include "updates/PrivateFile.h"
#include "updates/feedback/FeedbackMessage.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QUrl>

#include <utility>

namespace {

QString encoded(const QString &text)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

/// Without a recipient: the user fills it in. The file's path stands for the text, because the
/// address goes over command lines, which every user of the machine may list. Not every mail
/// program attaches what it is told to, so the words name the file, too.
QUrl mailUrl(const QString &path)
{
    const QString body =
        QCoreApplication::translate("MailHandOver", "(Please attach the file %1)").arg(path);
    return QUrl(QStringLiteral("mailto:?subject=Quillmarsh&body=%1&attach=%2")
                    .arg(encoded(body), encoded(path)),
                QUrl::StrictMode);
}

} // namespace

MailHandOver::MailHandOver(Workspace &workspace, QString folder)
    : m_workspace(workspace), m_folder(std::move(folder))
{
}

std::optional<QString> MailHandOver::handOver(const FeedbackMessage &message) const
{
    const QString moment =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd-hhmmss-zzz"));
    const QString path = QStringLiteral("%1/%2-%3.txt").arg(m_folder, message.kindName(), moment);
    if (!PrivateFile::write(path, message.toPlainText().toUtf8()))
        return std::nullopt;
    m_workspace.openUrl(mailUrl(path));
    return path;
}
