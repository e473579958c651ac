#include "platform/portal/InstalledPortals.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>

namespace {

const auto kPrefix = QStringLiteral("org.freedesktop.impl.portal.");

/// What a key file has under a key, a list that ends by its separator. The toolkit's own reader of
/// such files takes that for the beginning of a comment.
QStringList listIn(const QByteArray &file, const QByteArray &key)
{
    const QByteArray start = key + '=';
    for (const QByteArray &line : file.split('\n')) {
        if (line.startsWith(start))
            return QString::fromUtf8(line.mid(start.size()).trimmed())
                .split(u';', Qt::SkipEmptyParts);
    }
    return {};
}

/// None of them is larger.
constexpr qint64 kLargestFile = 64 * 1024;

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
            QFile file(info.filePath());
            if (!file.open(QIODevice::ReadOnly))
                continue;
            const QByteArray text = file.read(kLargestFile);
            const QStringList offered = listIn(text, "Interfaces");
            const QStringList users = listIn(text, "UseIn");
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
