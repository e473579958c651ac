#include "updates/updater/Installation.h"

#include "looks/ReadingDirection.h"
#include "updates/updater/UpdateVersion.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace {

const auto kVersions = QStringLiteral("versions");

QString systemCommand()
{
    struct Manager
    {
        QString program;
        QString command;
    };
    static const QList<Manager> kManagers{
        {QStringLiteral("/usr/bin/apt"),
         QStringLiteral("sudo apt install --only-upgrade quillmarsh")},
        {QStringLiteral("/usr/bin/dnf"), QStringLiteral("sudo dnf upgrade quillmarsh")},
        {QStringLiteral("/usr/bin/zypper"), QStringLiteral("sudo zypper update quillmarsh")},
        {QStringLiteral("/usr/bin/pacman"), QStringLiteral("sudo pacman -Syu quillmarsh")},
    };
    for (const Manager &manager : kManagers) {
        if (QFileInfo::exists(manager.program))
            return manager.command;
    }
    return {};
}

bool isBelow(const QString &path, const QString &folder)
{
    return path == folder || path.startsWith(folder + u'/');
}

/// Empty when there is no file.
QByteArray markOf(const QString &path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    QByteArray mark;
    for (const auto number :
         {static_cast<qint64>(status.st_dev), static_cast<qint64>(status.st_ino),
          static_cast<qint64>(status.st_size), static_cast<qint64>(status.st_mtim.tv_sec),
          static_cast<qint64>(status.st_mtim.tv_nsec)})
        mark += QByteArray::number(number) + ' ';
    return mark;
}

} // namespace

Installation::Evidence Installation::Evidence::of(const QString &bundlePath)
{
    return {QFileInfo(bundlePath).canonicalFilePath(), qEnvironmentVariable("APPIMAGE"),
            qEnvironmentVariable("APPDIR")};
}

Installation Installation::of(const Evidence &evidence)
{
    Installation installation;
    installation.bundlePath = evidence.bundlePath;
    const QString appDir = QFileInfo(evidence.appDir).canonicalFilePath();
    // An image that we were merely started from hands these variables down, too.
    if (QFileInfo(evidence.appImage).isFile() && !appDir.isEmpty() &&
        isBelow(evidence.bundlePath, appDir)) {
        installation.kind = Kind::AppImage;
        installation.path = QFileInfo(evidence.appImage).canonicalFilePath();
        installation.imageMark = markOf(installation.path);
        return installation;
    }
    const QFileInfo folder(QFileInfo(evidence.bundlePath).path());
    if (folder.fileName() == kVersions &&
        QFileInfo(folder.path() + QStringLiteral("/current")).isSymLink()) {
        installation.kind = Kind::Prefix;
        installation.path = folder.path();
        return installation;
    }
    const bool isLocal = isBelow(evidence.bundlePath, QStringLiteral("/usr/local"));
    if (isBelow(evidence.bundlePath, QStringLiteral("/usr")) && !isLocal) {
        installation.kind = Kind::PackageManager;
        installation.command = systemCommand();
    }
    return installation;
}

QString Installation::kindName() const
{
    switch (kind) {
    case Kind::AppImage:
        return QStringLiteral("appimage");
    case Kind::Prefix:
        return QStringLiteral("prefix");
    default:
        return {};
    }
}

std::optional<QString> Installation::obstacle() const
{
    switch (kind) {
    case Kind::PackageManager:
        return tr("Quillmarsh was installed by your system's package manager, which also updates "
                  "it.");
    case Kind::Unknown:
        return tr("Quillmarsh was not installed in a way that it could update itself. Updates come "
                  "from where you got it.");
    default:
        break;
    }
    const QString folder = kind == Kind::AppImage ? QFileInfo(path).path() : path;
    const bool isWritable =
        QFileInfo(folder).isWritable() &&
        (kind == Kind::AppImage || QFileInfo(path + u'/' + kVersions).isWritable());
    if (!isWritable)
        return tr("The folder %1 cannot be written to.").arg(ReadingDirection::leftToRight(folder));
    return std::nullopt;
}

QString Installation::lockPath() const
{
    return kind == Kind::AppImage ? QFileInfo(path).path() + QStringLiteral("/.") +
                                        QFileInfo(path).fileName() + QStringLiteral(".update-lock")
                                  : path + QStringLiteral("/.update-lock");
}

std::optional<QString> Installation::nextVersion() const
{
    if (kind != Kind::Prefix)
        return std::nullopt;
    return QFileInfo(QFileInfo(path + QStringLiteral("/current")).canonicalFilePath()).fileName();
}

bool Installation::startsAtLeast(const QString &version) const
{
    const auto next = UpdateVersion::parse(nextVersion().value_or(QString()));
    const auto asked = UpdateVersion::parse(version);
    return next && asked && *next >= *asked;
}

bool Installation::holds(const QString &otherBundlePath) const
{
    return otherBundlePath == bundlePath ||
           (kind == Kind::Prefix && isBelow(otherBundlePath, path + u'/' + kVersions));
}

std::optional<QString> Installation::replacement() const
{
    if (kind != Kind::AppImage || markOf(path) == imageMark)
        return std::nullopt;
    return tr("%1 was replaced while Quillmarsh was running. Restart Quillmarsh to use what is "
              "there now.")
        .arg(ReadingDirection::leftToRight(path));
}

QString Installation::lastingPath(const QString &programPath) const
{
    if (kind == Kind::AppImage)
        return path;
    if (kind == Kind::Prefix && isBelow(programPath, bundlePath))
        return path + QStringLiteral("/current") + programPath.mid(bundlePath.size());
    return programPath;
}
