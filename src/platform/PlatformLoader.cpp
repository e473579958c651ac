#include "platform/PlatformLoader.h"

#include "platform/DisplayChoice.h"
#include "platform/freedesktop/DataFolders.h"
#include "platform/freedesktop/FreedesktopNotifications.h"
#include "platform/freedesktop/FreedesktopSettingsStore.h"
#include "platform/freedesktop/FreedesktopWorkspace.h"
#include "platform/freedesktop/PortalAppearance.h"
#include "platform/freedesktop/ProcRunningApplications.h"
#include "platform/freedesktop/StatusNotifierStatusBar.h"
#include "platform/freedesktop/SystemClock.h"
#include "platform/freedesktop/entries/DesktopEntryApplicationNames.h"
#include "platform/freedesktop/entries/DesktopEntryCatalog.h"
#include "platform/freedesktop/entries/DesktopEntryScan.h"
#include "platform/freedesktop/entries/FreedesktopLoginItems.h"
#include "platform/freedesktop/instance/BusClips.h"
#include "platform/freedesktop/instance/DBusSingleInstance.h"
#include "platform/freedesktop/shortcuts/FreedesktopSymbolicHotKeys.h"
#include "platform/loader/PortalParts.h"
#include "platform/loader/SharedParts.h"
#include "platform/loader/WaylandAdapters.h"
#include "platform/loader/X11Adapters.h"
#include "platform/wayland/QtWaylandBuffers.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandKeyboardLayout.h"
#include "platform/x11/keys/X11KeyboardLayout.h"
#include "platform/x11/windows/X11TrayArea.h"

#include <QLoggingCategory>

#include <utility>

#include <xcb/xcb.h>

namespace {

Q_LOGGING_CATEGORY(lcLoader, "quillmarsh.platform", QtInfoMsg)

constexpr const char *kQtPlatform = "QT_QPA_PLATFORM";

/// What QT_QPA_PLATFORM was before chooseDisplay() settled it; a null array when it was not set.
std::optional<QByteArray> g_qtPlatformBefore;

/// Where desktop entries lie, before folders that hang were left out for the toolkit's sake: the
/// catalogue of entries has a bound of its own and takes them in when they come.
std::optional<QStringList> g_entryFolders;

/// Has been asked before there is a platform.
std::unique_ptr<FileQuestions> g_fileQuestions;

/// The compositor whose offers have decided for it; null when the display is another one.
std::shared_ptr<WaylandConnection> g_wayland;

/// Whether the session is a Wayland one, and X11 what it has for us.
bool g_isThroughXwayland = false;

/// Asked here because Qt would end the process with a crash report instead of a message.
bool isX11ServerThere()
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const bool isThere = xcb_connection_has_error(connection) == 0;
    xcb_disconnect(connection);
    return isThere;
}

/// What keeps us from the compositor at hand, whose connection is kept for when nothing does.
std::optional<QString> whatWaylandLacks()
{
    g_wayland = WaylandConnection::open();
    if (!g_wayland)
        return QString();
    if (!SharedParts::canQtDoWayland())
        return QStringLiteral("Qt's support of Wayland (the package qt6-wayland) is not installed");
    if (g_wayland->versionOf("wl_seat") == 0)
        return QStringLiteral("its compositor has neither keyboard nor pointer");
    if (!PortalParts::hasDataControl(*g_wayland) && !PortalParts::canStandInForDataControl())
        return QStringLiteral("its compositor withholds copies from programs that are not in front "
                              "(no data-control protocol)");
    return std::nullopt;
}

/// Programs that we start choose their own display system.
void restoreEnvironment()
{
    if (!g_qtPlatformBefore)
        return;
    if (g_qtPlatformBefore->isNull())
        qunsetenv(kQtPlatform);
    else
        qputenv(kQtPlatform, *g_qtPlatformBefore);
    g_qtPlatformBefore.reset();
}

} // namespace

std::optional<QString> PlatformLoader::chooseDisplay()
{
    const DisplayChoice choice =
        DisplayChoice::in({qgetenv("QUILLMARSH_DISPLAY"), qgetenv("DISPLAY"),
                           qgetenv("WAYLAND_DISPLAY"), isX11ServerThere, whatWaylandLacks});
    if (!choice.problem.isEmpty())
        return choice.problem;
    if (!choice.notice.isEmpty())
        qCInfo(lcLoader, "%s", qUtf8Printable(choice.notice));
    const bool isWayland = choice.display == DisplayChoice::Display::Wayland;
    g_isThroughXwayland = !isWayland && !choice.notice.isEmpty();
    if (!isWayland)
        g_wayland.reset();
    g_entryFolders = DesktopEntryScan::standardFolders();
    g_fileQuestions = std::make_unique<FileQuestions>();
    DataFolders::leaveOutHung(*g_fileQuestions);
    g_qtPlatformBefore = qgetenv(kQtPlatform);
    qputenv(kQtPlatform, isWayland ? "wayland" : "xcb");
    return std::nullopt;
}

std::unique_ptr<SingleInstance> PlatformLoader::makeSingleInstance(const QString &storeFolder)
{
    return std::make_unique<DBusSingleInstance>(storeFolder);
}

std::unique_ptr<SharedClips> PlatformLoader::findRunningClips()
{
    return BusClips::find();
}

std::unique_ptr<Platform> PlatformLoader::makePlatform()
{
    restoreEnvironment();
    auto platform = std::make_unique<Platform>();
    platform->capabilities = std::make_unique<Capabilities>();
    platform->clock = std::make_unique<SystemClock>();
    platform->fileQuestions =
        g_fileQuestions ? std::move(g_fileQuestions) : std::make_unique<FileQuestions>();
    // Begins to scan at once, for those who ask first: pasteboard and front application.
    const auto entries = std::make_shared<DesktopEntryCatalog>(
        *platform->fileQuestions, g_entryFolders.value_or(DesktopEntryScan::standardFolders()));
    platform->settings = std::make_unique<FreedesktopSettingsStore>();
    platform->consent = std::make_unique<NoConsent>();
    auto appearance = std::make_unique<PortalAppearance>();
    const auto areAnimationsWanted = [portal = appearance.get()] {
        return portal->areAnimationsWanted();
    };
    platform->appearance = std::move(appearance);
    platform->applicationNames = std::make_unique<DesktopEntryApplicationNames>(entries);
    platform->loginItems = std::make_unique<FreedesktopLoginItems>();
    platform->runningApplications = std::make_unique<ProcRunningApplications>();
    platform->notifications = std::make_unique<FreedesktopNotifications>();
    platform->workspace = std::make_unique<FreedesktopWorkspace>(*platform->fileQuestions);
    platform->symbolicHotKeys = std::make_unique<FreedesktopSymbolicHotKeys>();
    if (g_wayland)
        makeWaylandAdapters(*platform, std::exchange(g_wayland, nullptr), entries,
                            areAnimationsWanted);
    else
        makeX11Adapters(*platform, entries, g_isThroughXwayland);
    return platform;
}

std::unique_ptr<HelperPlatform> PlatformLoader::makeHelperPlatform()
{
    restoreEnvironment();
    auto platform = std::make_unique<HelperPlatform>();
    platform->clock = std::make_unique<SystemClock>();
    platform->settings = std::make_unique<FreedesktopSettingsStore>();
    platform->runningApplications = std::make_unique<ProcRunningApplications>();
    if (const std::shared_ptr<WaylandConnection> wayland = std::exchange(g_wayland, nullptr)) {
        keepQtWaylandFromOpenGL();
        platform->keyboardLayout = std::make_unique<WaylandKeyboardLayout>(wayland);
        platform->statusBar = std::make_unique<StatusNotifierStatusBar>(nullptr);
        wayland->start();
    } else {
        platform->keyboardLayout = std::make_unique<X11KeyboardLayout>();
        platform->statusBar =
            std::make_unique<StatusNotifierStatusBar>(std::make_unique<X11TrayArea>());
    }
    return platform;
}
