#include "platform/PlatformLoader.h"

#include "platform/DisplayChoice.h"
#include "platform/Info.h"
#include "platform/OwnProgram.h"
#include "platform/absent/AbsentHotKeys.h"
#include "platform/absent/AbsentKeySender.h"
#include "platform/freedesktop/DataFolders.h"
#include "platform/freedesktop/FreedesktopNotifications.h"
#include "platform/freedesktop/FreedesktopSettingsStore.h"
#include "platform/freedesktop/FreedesktopWorkspace.h"
#include "platform/freedesktop/PortalAppearance.h"
#include "platform/freedesktop/ProcRunningApplications.h"
#include "platform/freedesktop/RegularFile.h"
#include "platform/freedesktop/StatusNotifierStatusBar.h"
#include "platform/freedesktop/SystemClock.h"
#include "platform/freedesktop/entries/DesktopEntryApplicationNames.h"
#include "platform/freedesktop/entries/DesktopEntryCatalog.h"
#include "platform/freedesktop/entries/DesktopEntryScan.h"
#include "platform/freedesktop/entries/FreedesktopInstalledApplications.h"
#include "platform/freedesktop/entries/FreedesktopLoginItems.h"
#include "platform/freedesktop/instance/DBusSingleInstance.h"
#include "platform/freedesktop/shortcuts/FreedesktopSymbolicHotKeys.h"
#include "platform/kde/FakeInput.h"
#include "platform/kde/KGlobalAccelHotKeys.h"
#include "platform/kde/PlasmaWindows.h"
#include "platform/wayland/FrontNames.h"
#include "platform/wayland/PlainWindowSpace.h"
#include "platform/wayland/QtWaylandBuffers.h"
#include "platform/wayland/ToplevelTracker.h"
#include "platform/wayland/VirtualKeyboard.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandFrontApplication.h"
#include "platform/wayland/WaylandKeySender.h"
#include "platform/wayland/WaylandKeyboardLayout.h"
#include "platform/wayland/pasteboard/WaylandPasteboard.h"
#include "platform/x11/keys/X11HotKeys.h"
#include "platform/x11/keys/X11KeySender.h"
#include "platform/x11/keys/X11KeyboardLayout.h"
#include "platform/x11/selection/X11Pasteboard.h"
#include "platform/x11/windows/X11FrontApplication.h"
#include "platform/x11/windows/X11OpenWindows.h"
#include "platform/x11/windows/X11TrayArea.h"
#include "platform/x11/windows/X11WindowSpace.h"

#ifdef QUILLMARSH_HAS_LAYER_SHELL
#include "platform/wayland/LayerWindowSpace.h"
#endif

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QProcessEnvironment>
#include <QStandardPaths>

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

bool canQtDoWayland()
{
    // A plug-in that is not there would end the process as well.
    const QDir plugins(QLibraryInfo::path(QLibraryInfo::PluginsPath) +
                       QStringLiteral("/platforms"));
    return !plugins.entryList({QStringLiteral("libqwayland*.so")}).isEmpty();
}

/// What keeps us from the compositor at hand, whose connection is kept for when nothing does.
std::optional<QString> whatWaylandLacks()
{
    g_wayland = WaylandConnection::open();
    if (!g_wayland)
        return QString();
    if (!canQtDoWayland())
        return QStringLiteral("Qt's support of Wayland (the package qt6-wayland) is not installed");
    if (g_wayland->versionOf("wl_seat") == 0)
        return QStringLiteral("its compositor has neither keyboard nor pointer");
    if (g_wayland->versionOf("ext_data_control_manager_v1") == 0 &&
        g_wayland->versionOf("zwlr_data_control_manager_v1") == 0)
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

/// The user's table of the keys that applications take.
std::optional<QByteArray> readUsersKeys()
{
    return readRegularFile(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                           QStringLiteral("/quillmarsh/keys.json"));
}

/// An X server keeps nothing back.
void tellThatAllWorks(Capabilities &capabilities)
{
    using Kind = Capability::Kind;
    for (const Kind kind : {Kind::Recording, Kind::Shortcuts, Kind::Pasting, Kind::WindowPlace})
        capabilities.tell({kind});
}

/// Where native windows are out of our reach.
void tellOfXwayland(const HotKeys &hotKeys, Capabilities &capabilities)
{
    Capability recording{Capability::Kind::Recording, Capability::State::Withheld};
    recording.reason = QT_TRANSLATE_NOOP(
        "Capabilities", "Quillmarsh runs through Xwayland here and sees only what X11 applications "
                        "copy.");
    if (!canQtDoWayland())
        recording.remedy = QT_TRANSLATE_NOOP(
            "Capabilities", "Install the package qt6-wayland, and start Quillmarsh again.");
    capabilities.tell(recording);
    Capability shortcuts{Capability::Kind::Shortcuts, Capability::State::WorksAfter};
    shortcuts.reason = QT_TRANSLATE_NOOP(
        "Capabilities", "They may do nothing while a native Wayland window is in front.");
    shortcuts.remedy =
        QT_TRANSLATE_NOOP("Capabilities", "Have the desktop run “quillmarsh launch” for a key.");
    // Those of the desktop's own service reach us whatever is in front.
    const bool areDesktops = qobject_cast<const KGlobalAccelHotKeys *>(&hotKeys) != nullptr;
    capabilities.tell(areDesktops ? Capability{Capability::Kind::Shortcuts} : shortcuts);
    Capability pasting{Capability::Kind::Pasting, Capability::State::Withheld};
    pasting.reason = QT_TRANSLATE_NOOP("Capabilities", "Only X11 applications can be pasted into.");
    capabilities.tell(pasting);
    capabilities.tell({Capability::Kind::WindowPlace});
}

/// Plasma's own service of shortcuts, and `otherwise` on other desktops or where it is not there.
std::unique_ptr<HotKeys> makeHotKeys(const KeyboardLayout &layout, KGlobalAccelHotKeys::Keys keys,
                                     std::unique_ptr<HotKeys> otherwise)
{
    const QStringList desktops = FreedesktopSymbolicHotKeys::currentDesktops();
    if (!desktops.contains(u"KDE", Qt::CaseInsensitive))
        return otherwise;
    return std::make_unique<KGlobalAccelHotKeys>(QDBusConnection::sessionBus(), layout, keys,
                                                 std::move(otherwise));
}

/// How a command of the desktop's starts us: by its name alone where that finds us.
QString ownCommand()
{
    const auto name = QStringLiteral("quillmarsh");
    const QString program = OwnProgram::startPath();
    const QString found = QStandardPaths::findExecutable(name);
    return QFileInfo(found).canonicalFilePath() == program ? name : program;
}

void tellOfHotKeys(const HotKeys &hotKeys, Capabilities &capabilities)
{
    Capability shortcuts{Capability::Kind::Shortcuts};
    if (hotKeys.control() == HotKeys::Control::Nobody) {
        shortcuts.state = Capability::State::WorksAfter;
        shortcuts.reason =
            QT_TRANSLATE_NOOP("Capabilities", "This desktop lets no program set shortcuts.");
        shortcuts.remedy =
            QT_TRANSLATE_NOOP("Capabilities", "Have its configuration start Quillmarsh for a key.");
    }
    capabilities.tell(shortcuts);
}

/// Where one adapter needs another, it is the sibling it was made with: both know X11.
void makeX11Adapters(Platform &platform, const std::shared_ptr<DesktopEntryCatalog> &entries)
{
    const ApplicationNames &names = *platform.applicationNames;
    auto hotKeys = std::make_unique<X11HotKeys>();
    auto frontApplication = std::make_unique<X11FrontApplication>(names, *hotKeys);
    auto pasteboard = std::make_unique<X11Pasteboard>(names);
    const X11KeySender::Selections selections{
        [served = pasteboard.get()](xcb_window_t target) { served->expectPaste(target); },
        [served = pasteboard.get()] { served->offerPrimary(); },
        [served = pasteboard.get()](xcb_window_t target) { served->publishPrimary(target); },
        [served = pasteboard.get()] { return served->askers(); }};
    platform.keySender = std::make_unique<X11KeySender>(*hotKeys, *frontApplication, names,
                                                        selections, readUsersKeys);
    QObject::connect(pasteboard.get(), &Pasteboard::pasteRead, hotKeys.get(),
                     &X11HotKeys::letTypedAheadGo);
    platform.windowSpace = std::make_unique<X11WindowSpace>();
    platform.keyboardLayout = std::make_unique<X11KeyboardLayout>();
    using Keys = KGlobalAccelHotKeys::Keys;
    platform.hotKeys =
        makeHotKeys(*platform.keyboardLayout, g_isThroughXwayland ? Keys::Service : Keys::Otherwise,
                    std::move(hotKeys));
    platform.frontApplication = std::move(frontApplication);
    platform.pasteboard = std::move(pasteboard);
    platform.installedApplications = std::make_unique<FreedesktopInstalledApplications>(
        entries, [] { return X11OpenWindows().identities(); });
    platform.statusBar = std::make_unique<StatusNotifierStatusBar>(std::make_unique<X11TrayArea>());
    if (g_isThroughXwayland)
        tellOfXwayland(*platform.hotKeys, *platform.capabilities);
    else
        tellThatAllWorks(*platform.capabilities);
}

CompositorBindings::Compositor compositor()
{
    return CompositorBindings::compositorIn(QProcessEnvironment::systemEnvironment());
}

std::unique_ptr<WindowSpace>
makeWaylandWindowSpace([[maybe_unused]] const WaylandConnection &wayland,
                       const std::function<bool()> &areAnimationsWanted, Capabilities &capabilities)
{
#ifdef QUILLMARSH_HAS_LAYER_SHELL
    if (wayland.versionOf("zwlr_layer_shell_v1") > 0) {
        capabilities.tell({Capability::Kind::WindowPlace});
        return std::make_unique<LayerWindowSpace>(areAnimationsWanted);
    }
#endif
    // In the middle of the screen: compositors that tile leave alone what has one size only.
    capabilities.tell({Capability::Kind::WindowPlace});
    return std::make_unique<PlainWindowSpace>(areAnimationsWanted);
}

std::shared_ptr<Toplevels> makeToplevels(const std::shared_ptr<WaylandConnection> &wayland)
{
    const QString ourApplicationId = Info::main().bundleIdentifier;
    if (wayland->versionOf(PlasmaWindows::kInterface) >= PlasmaWindows::kLeastVersion)
        return std::make_shared<PlasmaWindows>(wayland, ourApplicationId);
    return std::make_shared<ToplevelTracker>(wayland, ourApplicationId);
}

/// Null where the compositor lets no program type, or not us.
std::unique_ptr<Typist> makeTypist(const std::shared_ptr<WaylandConnection> &wayland,
                                   const std::shared_ptr<const Toplevels> &toplevels)
{
    if (wayland->versionOf(FakeInput::kInterface) >= FakeInput::kLeastVersion)
        return std::make_unique<FakeInput>(wayland, toplevels);
    if (wayland->versionOf(VirtualKeyboard::kInterface) > 0)
        return std::make_unique<VirtualKeyboard>(wayland);
    return nullptr;
}

/// What an installed package has for this, for the program at hand wherever it lies.
QString plasmaEntry()
{
    return QStringLiteral("[Desktop Entry]\nType=Application\nName=Quillmarsh\nNoDisplay=true\n"
                          "Exec=%1\nX-KDE-Wayland-Interfaces=org_kde_kwin_fake_input,"
                          "org_kde_plasma_window_management,org_kde_kwin_keystate")
        .arg(QCoreApplication::applicationFilePath());
}

/// KWin lets those type whose installed desktop entry asks for it; others let nobody.
Capability pastingWithheld(const WaylandConnection &wayland)
{
    Capability pasting{Capability::Kind::Pasting, Capability::State::Withheld};
    pasting.reason = QT_TRANSLATE_NOOP(
        "Capabilities",
        "This desktop lets no program type, so clips are put on the clipboard only.");
    if (wayland.versionOf("org_kde_plasma_shell") > 0) {
        pasting.state = Capability::State::WorksAfter;
        pasting.reason = QT_TRANSLATE_NOOP(
            "Capabilities",
            "KDE has not allowed Quillmarsh to type, so clips are put on the clipboard only.");
        pasting.remedy = QT_TRANSLATE_NOOP(
            "Capabilities", "Install the package, or save these lines as "
                            "~/.local/share/applications/quillmarsh-program.desktop. Then start "
                            "Quillmarsh again.");
        pasting.configuration = plasmaEntry();
    }
    return pasting;
}

/// Tells, too, what becomes of pasting.
std::unique_ptr<KeySender> makeWaylandKeySender(const std::shared_ptr<WaylandConnection> &wayland,
                                                const std::shared_ptr<const Toplevels> &toplevels,
                                                const Platform &platform,
                                                WaylandPasteboard &pasteboard)
{
    std::unique_ptr<Typist> typist = makeTypist(wayland, toplevels);
    if (!typist) {
        platform.capabilities->tell(pastingWithheld(*wayland));
        return std::make_unique<AbsentKeySender>();
    }
    platform.capabilities->tell({Capability::Kind::Pasting});
    const WaylandKeySender::Selections selections{
        [&pasteboard] { pasteboard.expectPaste(); }, [&pasteboard] { pasteboard.offerPrimary(); },
        [&pasteboard](Toplevels::Id window) { pasteboard.publishPrimary(window); }};
    auto sender = std::make_unique<WaylandKeySender>(
        std::move(typist), toplevels, *platform.applicationNames, selections, readUsersKeys);
    QObject::connect(&pasteboard, &Pasteboard::pasteRead, sender.get(),
                     &WaylandKeySender::letTypedAheadGo);
    return sender;
}

void makeWaylandHotKeys(Platform &platform)
{
    platform.hotKeys = makeHotKeys(
        *platform.keyboardLayout, KGlobalAccelHotKeys::Keys::Service,
        std::make_unique<AbsentHotKeys>(*platform.keyboardLayout, compositor(), ownCommand()));
    const auto tell = [hotKeys = platform.hotKeys.get(),
                       capabilities = platform.capabilities.get()] {
        tellOfHotKeys(*hotKeys, *capabilities);
    };
    tell();
    QObject::connect(platform.hotKeys.get(), &HotKeys::controlChanged, platform.capabilities.get(),
                     tell);
}

/// They bind what they need of the connection, whose thread begins when all have.
void makeWaylandAdapters(Platform &platform, const std::shared_ptr<DesktopEntryCatalog> &entries,
                         const std::function<bool()> &areAnimationsWanted)
{
    keepQtWaylandFromOpenGL();
    const std::shared_ptr<WaylandConnection> wayland = std::exchange(g_wayland, nullptr);
    platform.windowSpace =
        makeWaylandWindowSpace(*wayland, areAnimationsWanted, *platform.capabilities);
    platform.keyboardLayout = std::make_unique<WaylandKeyboardLayout>(wayland);
    const std::shared_ptr<Toplevels> toplevels = makeToplevels(wayland);
    const auto frontNames = std::make_shared<FrontNames>(toplevels, *platform.applicationNames);
    platform.frontApplication =
        std::make_unique<WaylandFrontApplication>(wayland, toplevels, frontNames);
    auto pasteboard = std::make_unique<WaylandPasteboard>(wayland, [toplevels, frontNames] {
        const FrontNames::Front front = frontNames->front();
        const auto window = toplevels->front();
        return WaylandPasteboard::Front{front.applicationName, front.isOurs,
                                        window ? window->id : 0};
    });
    platform.capabilities->tell({Capability::Kind::Recording});
    platform.keySender = makeWaylandKeySender(wayland, toplevels, platform, *pasteboard);
    platform.pasteboard = std::move(pasteboard);
    makeWaylandHotKeys(platform);
    platform.installedApplications = std::make_unique<FreedesktopInstalledApplications>(
        entries, [toplevels] { return toplevels->identities(); });
    // No tray of windows: only those panels that are told over the bus.
    platform.statusBar = std::make_unique<StatusNotifierStatusBar>(nullptr);
    wayland->start();
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
        makeWaylandAdapters(*platform, entries, areAnimationsWanted);
    else
        makeX11Adapters(*platform, entries);
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
