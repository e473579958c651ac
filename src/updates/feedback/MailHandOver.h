#pragma once

#include <QString>

#include <optional>

class Workspace;
struct FeedbackMessage;

/// The way of a message where no server's address is built in: it becomes a file that stays with
/// the user, and the desktop's mail program is opened to send it. Owned by FeedbackDelivery.
class MailHandOver
{
public:
    MailHandOver(Workspace &workspace, QString folder);

    const QString &folder() const { return m_folder; }
    /// The new file's path; absent, with a log line, when it could not be written. Whether a mail
    /// program opens, nobody tells.
    std::optional<QString> handOver(const FeedbackMessage &message) const;

private:
    Workspace &m_workspace;
    const QString m_folder;
};
