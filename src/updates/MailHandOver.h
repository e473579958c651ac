#pragma once

#include <QString>

#include <optional>

class Workspace;
struct FeedbackMessage;

/// The way of a message where no server's address is built in: it becomes a file that stays with
/// the user, and the desktop's mail program is opened with it. Owned by FeedbackDelivery.
class MailHandOver
{
public:
    struct Result
    {
        QString path;        ///< The file that was written.
        bool isOpen = false; ///< A mail program could be started.
    };

    MailHandOver(Workspace &workspace, QString folder);

    const QString &folder() const { return m_folder; }
    /// Absent, with a log line, when the file could not be written.
    std::optional<Result> handOver(const FeedbackMessage &message) const;

private:
    Workspace &m_workspace;
    const QString m_folder;
};
