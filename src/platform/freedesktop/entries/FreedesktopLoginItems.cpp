#include "platform/freedesktop/entries/FreedesktopLoginItems.h"

#include "platform/Info.h"
#include "platform/OwnProgram.h"
#include "platform/freedesktop/RegularFile.h"
#include "platform/freedesktop/entries/AutostartEntry.h"
#include "platform/freedesktop/entries/DesktopEntry.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

Q_LOGGING_CATEGORY(lcLoginItems, "quillmarsh.loginitems")

namespace {

/// The path with links followed; as it stands when nothing is there (any more).
QString resolved(const QString &path)
{
    const QString canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? path : canonical;
}

/// Where a program lies whatever version of it is installed: the updater keeps versions in folders
/// beside a link to the one that counts, and removes the old ones in time.
QString lasting(const QString &path)
{
    static const QRegularExpression kVersioned(QStringLiteral("\\A(.*)/versions/([^/]+)(/.*)\\z"));
    const auto match = kVersioned.match(path);
    const QString link = match.captured(1) + QStringLiteral("/current");
    if (!match.hasMatch() || QFile::symLinkTarget(link).section(u'/', -1) != match.captured(2))
        return path;
    return link + match.captured(3);
}

bool makeFolder(const QString &folder)
{
    const QFileInfo info(folder);
    return QDir().mkpath(info.isSymLink() && !info.exists() ? info.symLinkTarget() : folder);
}

} // namespace

QString FreedesktopLoginItems::standardFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart");
}

std::optional<QString> FreedesktopLoginItems::runningApplication()
{
    const QString executable = OwnProgram::startPath();
    // A program that was started from within somebody else's image inherits these variables; the
    // image is ours only if we run out of it.
    const QString mount = qEnvironmentVariable("APPDIR");
    const QString image = qEnvironmentVariable("APPIMAGE");
    if (!mount.isEmpty() && QFileInfo(image).isFile() &&
        resolved(executable).startsWith(resolved(mount) + u'/'))
        return resolved(image);
    return executable.isEmpty() ? std::nullopt : std::optional(resolved(executable));
}

FreedesktopLoginItems::FreedesktopLoginItems(const QString &folder,
                                             const std::optional<QString> &applicationPath)
    : m_folder(folder), m_applicationPath(applicationPath)
{
}

LoginItem FreedesktopLoginItems::ownItem()
{
    return {Info::main().bundleIdentifier + QStringLiteral(".desktop")};
}

std::optional<QList<LoginItem>> FreedesktopLoginItems::allItems() const
{
    const QFileInfo folder(m_folder);
    if (!folder.exists())
        return QList<LoginItem>();
    if (!folder.isDir() || !folder.isReadable())
        return std::nullopt;
    QFileInfoList files = QDir(m_folder).entryInfoList(
        {QStringLiteral("*.desktop")}, QDir::Files | QDir::System | QDir::Hidden, QDir::Name);
    std::stable_sort(files.begin(), files.end(), [](const auto &left, const auto &right) {
        return left.lastModified() < right.lastModified();
    });
    QList<LoginItem> items;
    for (const QFileInfo &file : files)
        items.append({file.fileName()});
    return items;
}

std::optional<QList<LoginItem>> FreedesktopLoginItems::snapshot() const
{
    auto items = allItems();
    // By the autostart standard such a file is as good as none: it stands there to hide the
    // system's file of that name.
    if (items)
        items->removeIf([this](const LoginItem &item) {
            const auto entry = DesktopEntry::read(pathOf(item));
            return entry && entry->isTrue("Hidden");
        });
    return items;
}

std::optional<QString> FreedesktopLoginItems::resolvedPath(const LoginItem &item) const
{
    const auto entry = DesktopEntry::read(pathOf(item));
    const QStringList command = entry ? entry->command() : QStringList();
    if (command.isEmpty())
        return std::nullopt;
    const QString program = QStandardPaths::findExecutable(command.first());
    return program.isEmpty() ? std::nullopt : std::optional(QDir::cleanPath(program));
}

bool FreedesktopLoginItems::startsApplication(const LoginItem &item) const
{
    const auto path = resolvedPath(item);
    return path && m_applicationPath && resolved(*path) == resolved(*m_applicationPath);
}

OwnEntry FreedesktopLoginItems::ownEntry() const
{
    OwnEntry found = OwnEntry::Missing;
    const QList<LoginItem> items = allItems().value_or(QList<LoginItem>());
    for (const LoginItem &item : items) {
        const auto entry = DesktopEntry::read(pathOf(item));
        const bool isDisabled = entry && AutostartEntry::isSwitchedOff(*entry);
        // One that says nothing but that it is hidden tells no program either.
        if (!startsApplication(item) && !(isDisabled && item == ownItem()))
            continue;
        if (!isDisabled)
            return OwnEntry::Enabled;
        found = OwnEntry::Disabled;
    }
    return found;
}

void FreedesktopLoginItems::remove(const LoginItem &item)
{
    if (startsApplication(item))
        m_removed = readRegularFile(pathOf(item)).value_or(QByteArray());
    QFile file(pathOf(item));
    if (!file.remove())
        qCWarning(lcLoginItems, "The login item %s could not be removed: %s",
                  qUtf8Printable(file.fileName()), qUtf8Printable(file.errorString()));
}

/// Milliseconds since 1970: now, or just after the newest entry where that lies ahead.
qint64 FreedesktopLoginItems::timeAfterLast() const
{
    qint64 time = QDateTime::currentMSecsSinceEpoch();
    const QList<LoginItem> items = snapshot().value_or(QList<LoginItem>());
    for (const LoginItem &item : items)
        time = std::max(time, QFileInfo(pathOf(item)).lastModified().toMSecsSinceEpoch() + 1);
    return time;
}

void FreedesktopLoginItems::insertLast(const QString &path)
{
    const QString target = pathOf(ownItem());
    const QByteArray former = readRegularFile(target).value_or(m_removed);
    const qint64 time = timeAfterLast();
    makeFolder(m_folder);
    // Saving would follow a link and write into whatever it leads to.
    if (QFileInfo(target).isSymLink())
        QFile::remove(target);
    QSaveFile file(target);
    const QByteArray bytes = AutostartEntry::compose(lasting(path), former);
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() &&
        file.setFileTime(QDateTime::fromMSecsSinceEpoch(time), QFileDevice::FileModificationTime) &&
        file.commit();
    if (!isWritten)
        qCWarning(lcLoginItems, "The login item %s could not be written: %s",
                  qUtf8Printable(target), qUtf8Printable(file.errorString()));
}
