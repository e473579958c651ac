#pragma once

#include "platform/Workspace.h"

#include <QDBusConnection>
#include <QObject>

class FileQuestions;

/// Hands files and addresses to the programs that the desktop has for them: `xdg-open` or `gio`
/// opens, org.freedesktop.FileManager1 selects. Owned by Platform. Programs are started detached,
/// so neither their hanging nor their end is noticed here.
class FreedesktopWorkspace : public QObject, public Workspace
{
    Q_OBJECT

public:
    /// `questions` must outlive the workspace.
    explicit FreedesktopWorkspace(FileQuestions &questions,
                                  QDBusConnection bus = QDBusConnection::sessionBus());

    // ^Workspace
    bool fileExists(const QString &path) override;
    void askFileExists(const QString &path, QObject *context,
                       std::function<void(bool)> answer) override;
    bool openFile(const QString &path) override;
    bool openUrl(const QUrl &url) override;
    void selectFile(const QString &path, const QString &folder) override;
    QIcon iconForFile(const QString &path) override;

private:
    FileQuestions &m_questions;
    QDBusConnection m_bus;
};
