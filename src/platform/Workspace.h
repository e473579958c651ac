#pragma once

#include <QIcon>
#include <QString>
#include <QUrl>

#include <functional>

/// Files and addresses handed to the desktop's other programs. Owned by Platform; used from the
/// main thread. Nothing here waits for another program; the file questions are asked off the
/// main thread with a bound, because a hung mount never answers.
class Workspace
{
public:
    Workspace() = default;
    Workspace(const Workspace &) = delete;
    Workspace &operator=(const Workspace &) = delete;
    virtual ~Workspace() = default;

    /// Whether a file exists at `path`; a file system that does not answer within 200 ms counts
    /// as no.
    virtual bool fileExists(const QString &path) = 0;

    /// The same question without waiting: `answer` is called later on the main thread, unless
    /// `context` has been destroyed.
    virtual void askFileExists(const QString &path, QObject *context,
                               std::function<void(bool)> answer) = 0;

    /// Opens a file with the application the desktop has for it. False when none could be started.
    virtual bool openFile(const QString &path) = 0;

    /// Opens an address with the application the desktop has for it.
    virtual bool openUrl(const QUrl &url) = 0;

    /// Shows `path` selected in a file browser; `folder` is opened where no browser can select.
    virtual void selectFile(const QString &path, const QString &folder) = 0;

    /// The icon of the file or application at `path`; a plain one when it has none.
    virtual QIcon iconForFile(const QString &path) = 0;
};
