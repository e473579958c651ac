#include "platform/loader/SharedParts.h"

#include "platform/freedesktop/RegularFile.h"
#include "platform/freedesktop/shortcuts/FreedesktopSymbolicHotKeys.h"
#include "platform/kde/KGlobalAccelHotKeys.h"

#include <QDBusConnection>
#include <QDir>
#include <QLibraryInfo>
#include <QStandardPaths>

#include <utility>

bool SharedParts::canQtDoWayland()
{
    // A plug-in that is not there would end the process as well.
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) +
                       QStringLiteral("/platforms"));
    return !plugins.entryList({QStringLiteral("libqwayland*.so")}).isEmpty();
}

std::optional<QByteArray> SharedParts::readUsersKeys()
{
    return readRegularFile(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                           QStringLiteral("/quillmarsh/keys.json"));
}

std::unique_ptr<HotKeys> SharedParts::makeHotKeys(const KeyboardLayout &layout, bool grabs,
                                                  std::unique_ptr<HotKeys> otherwise)
{
    const QStringList desktops = FreedesktopSymbolicHotKeys::currentDesktops();
    if (!desktops.contains(u"KDE", Qt::CaseInsensitive))
        return otherwise;
    using Keys = KGlobalAccelHotKeys::Keys;
    return std::make_unique<KGlobalAccelHotKeys>(QDBusConnection::sessionBus(), layout,
                                                 grabs ? Keys::Otherwise : Keys::Service,
                                                 std::move(otherwise));
}
