#include "updates/MailHandOver.h"

#include "platform/Workspace.h"
#include "updates/FeedbackMessage.h"
#include "updates/PrivateFile.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QUrl>

#include <utility>

namespace {

/// Longer addresses are cut or refused on their way to a mail program.
constexpr qsizetype kMostBytesOfAddress = qsizetype{8} * 1024;

QString tr(const char *text)
{
    return QCoreApplication::translate("MailHandOver", text);
}

QString encoded(QString text)
{
    text.replace(u'\n', QStringLiteral("\r\n"));
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

/// Without an address: the user fills it in.
QUrl mailUrl(const QString &body)
{
    return QUrl(QStringLiteral("mailto:?subject=Quillmarsh&body=") + encoded(body),
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
    const QString text = message.toPlainText();
    if (!PrivateFile::write(path, text.toUtf8()))
        return std::nullopt;
    QUrl url = mailUrl(text);
    if (url.toEncoded().size() > kMostBytesOfAddress)
        url = mailUrl(tr("(Please attach the file %1)").arg(path));
    m_workspace.openUrl(url);
    return path;
}
