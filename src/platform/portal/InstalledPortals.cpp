#include "platform/portal/InstalledPortals.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>

#include <algorithm>

namespace {

const auto kPrefix = QStringLiteral("org.freedesktop.impl.portal.");

/// A list as key files write it, which ends by its separator.
QStringList listIn(const QSettings &file, const QString &key)
{
    // What contains a comma would come as a list of its own.
    return file.value(QStringLiteral("portal/") + key)
        .toStringList()
        .join(u',')
        .split(u';', Qt::SkipEmptyParts);
}

} // namespace

QStringList InstalledPortals::folders()
{
    QStringList folders = QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                                                    QStringLiteral("xdg-desktop-portal/portals"),
                                                    QStandardPaths::LocateDirectory);
    // Where systems with a layout of their own say that they are.
    for (const char *variable : {"XDG_DESKTOP_PORTAL_DIR", "NIX_XDG_DESKTOP_PORTAL_DIR"}) {
        if (const QString folder = qEnvironmentVariable(variable); !folder.isEmpty())
            folders.prepend(folder);
    }
    return folders;
}

bool InstalledPortals::offer(const QStringList &interfaces, const QStringList &desktops,
                             const QStringList &folders)
{
    for (const QString &folder : folders) {
        const auto files =
            QDir(folder).entryInfoList({QStringLiteral("*.portal")}, QDir::Files | QDir::Readable);
        for (const QFileInfo &info : files) {
            const QSettings file(info.filePath(), QSettings::IniFormat);
            const QStringList offered = listIn(file, QStringLiteral("Interfaces"));
            const QStringList users = listIn(file, QStringLiteral("UseIn"));
            const bool hasAll = std::ranges::all_of(interfaces, [&](const QString &interface) {
                return offered.contains(kPrefix + interface);
            });
            const bool isOurs = std::ranges::any_of(desktops, [&](const QString &desktop) {
                return users.contains(desktop, Qt::CaseInsensitive);
            });
            if (hasAll && isOurs)
                return true;
        }
    }
    return false;
}
