#include "platform/freedesktop/FreedesktopWorkspace.h"

#include "platform/FileQuestions.h"
#include "platform/freedesktop/entries/DesktopEntry.h"
#include "platform/freedesktop/entries/DesktopEntryIcon.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QMimeDatabase>
#include <QProcess>
#include <QStandardPaths>
#include <QStyle>

#include <array>

#include <unistd.h>

namespace {

Q_LOGGING_CATEGORY(lcWorkspace, "quillmarsh.platform.workspace", QtInfoMsg)

/// After which a file system that does not answer counts as one without the file.
constexpr std::chrono::milliseconds kExistenceLimit{200};

/// A file manager that is only starting needs its time; after this its folder is opened instead.
constexpr int kFileManagerLimitMs = 10000;

bool existsOnDisk(const QString &path)
{
    return ::access(QFile::encodeName(path).constData(), F_OK) == 0;
}

struct Opener
{
    QString program;
    QStringList arguments;
};

bool startOpener(const QString &target)
{
    const std::array openers{
        Opener{QStringLiteral("xdg-open"), {target}},
        Opener{QStringLiteral("gio"), {QStringLiteral("open"), target}},
    };
    for (const Opener &opener : openers) {
        const QString program = QStandardPaths::findExecutable(opener.program);
        if (program.isEmpty())
            continue;
        QProcess process;
        process.setProgram(program);
        process.setArguments(opener.arguments);
        // Whatever the opened program prints is no message of ours.
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        if (process.startDetached())
            return true;
    }
    qCWarning(lcWorkspace, "neither xdg-open nor gio could be started");
    return false;
}

QIcon themeIcon(const QStringList &names)
{
    for (const QString &name : names) {
        if (QIcon icon = QIcon::fromTheme(name); !icon.isNull())
            return icon;
    }
    return {};
}

} // namespace

FreedesktopWorkspace::FreedesktopWorkspace(FileQuestions &questions, QDBusConnection bus)
    : m_questions(questions), m_bus(std::move(bus))
{
}

bool FreedesktopWorkspace::fileExists(const QString &path)
{
    return m_questions.isSo(path, kExistenceLimit, existsOnDisk);
}

void FreedesktopWorkspace::askFileExists(const QString &path, QObject *context,
                                         std::function<void(bool)> answer)
{
    m_questions.askWhether(path, kExistenceLimit, existsOnDisk, context, std::move(answer));
}

bool FreedesktopWorkspace::openFile(const QString &path)
{
    return fileExists(path) && startOpener(QFileInfo(path).absoluteFilePath());
}

bool FreedesktopWorkspace::openUrl(const QUrl &url)
{
    // A relative or empty address would be read as an option or a file of the working folder.
    if (!url.isValid() || url.scheme().isEmpty())
        return false;
    return startOpener(QString::fromLatin1(url.toEncoded()));
}

void FreedesktopWorkspace::selectFile(const QString &path, const QString &folder)
{
    const auto openFolder = [this, folder] {
        if (!openFile(folder))
            qCWarning(lcWorkspace, "no file browser could show a file");
    };
    if (!m_bus.isConnected()) {
        openFolder();
        return;
    }
    auto call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.FileManager1"),
                                               QStringLiteral("/org/freedesktop/FileManager1"),
                                               QStringLiteral("org.freedesktop.FileManager1"),
                                               QStringLiteral("ShowItems"));
    const QByteArray address = QUrl::fromLocalFile(path).toEncoded();
    call << QStringList{QString::fromLatin1(address)} << QString();
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, kFileManagerLimitMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, openFolder] {
        watcher->deleteLater();
        if (watcher->isError())
            openFolder();
    });
}

QIcon FreedesktopWorkspace::iconForFile(const QString &path)
{
    QStringList names;
    // Only a file system that has just answered is asked more.
    if (fileExists(path)) {
        const QFileInfo file(path);
        if (file.suffix() == QLatin1String("desktop")) {
            const auto entry = DesktopEntry::read(path);
            const auto name = entry ? entry->text("Icon") : std::nullopt;
            if (QIcon icon = desktopEntryIcon(name.value_or(QString())); !icon.isNull())
                return icon;
            names << QStringLiteral("application-x-executable");
        } else if (file.isDir()) {
            names << QStringLiteral("folder");
        } else if (file.isExecutable()) {
            names << file.fileName() << QStringLiteral("application-x-executable");
        }
    }
    const auto type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    names << type.iconName() << type.genericIconName() << QStringLiteral("text-x-generic");
    const QIcon icon = themeIcon(names);
    return icon.isNull() ? QApplication::style()->standardIcon(QStyle::SP_FileIcon) : icon;
}
