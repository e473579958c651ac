#include "platform/loader/WaylandAdapters.h"

#include "platform/Info.h"
#include "platform/OwnProgram.h"
#include "platform/absent/AbsentHotKeys.h"
#include "platform/absent/AbsentKeySender.h"
#include "platform/freedesktop/StatusNotifierStatusBar.h"
#include "platform/freedesktop/entries/FreedesktopInstalledApplications.h"
#include "platform/kde/FakeInput.h"
#include "platform/kde/PlasmaWindows.h"
#include "platform/loader/PortalParts.h"
#include "platform/loader/SharedParts.h"
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

#ifdef QUILLMARSH_HAS_LAYER_SHELL
#include "platform/wayland/LayerWindowSpace.h"
#endif

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <utility>

namespace {

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

CompositorBindings::Compositor compositor()
{
    return CompositorBindings::compositorIn(QProcessEnvironment::systemEnvironment());
}

std::unique_ptr<WindowSpace>
makeWaylandWindowSpace([[maybe_unused]] const WaylandConnection &wayland,
                       const std::function<bool()> &areAnimationsWanted)
{
#ifdef QUILLMARSH_HAS_LAYER_SHELL
    if (wayland.versionOf("zwlr_layer_shell_v1") > 0)
        return std::make_unique<LayerWindowSpace>(areAnimationsWanted);
#endif
    // In the middle of the screen: compositors that tile leave alone what has one size only.
    return std::make_unique<PlainWindowSpace>(areAnimationsWanted);
}

/// What the compositor tells of all windows, if anything.
std::shared_ptr<Toplevels> makeToplevels(const std::shared_ptr<WaylandConnection> &wayland)
{
    const QString ourApplicationId = Info::main().bundleIdentifier;
    if (wayland->versionOf(PlasmaWindows::kInterface) >= PlasmaWindows::kLeastVersion)
        return std::make_shared<PlasmaWindows>(wayland, ourApplicationId);
    if (wayland->versionOf("zwlr_foreign_toplevel_manager_v1") > 0)
        return std::make_shared<ToplevelTracker>(wayland, ourApplicationId);
    return std::make_shared<UntoldToplevels>(ourApplicationId);
}

/// Whether the compositor lets us type by itself.
bool canType(const WaylandConnection &wayland)
{
    return wayland.versionOf(FakeInput::kInterface) >= FakeInput::kLeastVersion ||
           wayland.versionOf(VirtualKeyboard::kInterface) > 0;
}

/// Null where the compositor lets no program type, or not us.
std::unique_ptr<Typist> makeTypist(const std::shared_ptr<WaylandConnection> &wayland,
                                   const std::shared_ptr<Toplevels> &toplevels)
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
                                                const std::shared_ptr<Toplevels> &toplevels,
                                                const Platform &platform,
                                                WaylandPasteboard &pasteboard,
                                                const std::optional<PortalParts> &portals)
{
    std::unique_ptr<Typist> typist = makeTypist(wayland, toplevels);
    if (typist)
        platform.capabilities->tell({Capability::Kind::Pasting});
    else if (portals)
        typist = portals->makeTypist(wayland, toplevels);
    if (!typist) {
        platform.capabilities->tell(pastingWithheld(*wayland));
        return std::make_unique<AbsentKeySender>();
    }
    WaylandKeySender::Selections selections{[&pasteboard] { pasteboard.expectPaste(); }, {}, {}};
    if (PortalParts::hasDataControl(*wayland)) {
        selections.offerPrimary = [&pasteboard] { pasteboard.offerPrimary(); };
        selections.publishPrimary = [&pasteboard](Toplevels::Id window) {
            pasteboard.publishPrimary(window);
        };
    }
    auto sender =
        std::make_unique<WaylandKeySender>(std::move(typist), toplevels, *platform.applicationNames,
                                           selections, SharedParts::readUsersKeys);
    QObject::connect(&pasteboard, &Pasteboard::pasteRead, sender.get(),
                     &WaylandKeySender::letTypedAheadGo);
    return sender;
}

void makeWaylandHotKeys(Platform &platform, const std::optional<PortalParts> &portals)
{
    std::unique_ptr<HotKeys> otherwise =
        std::make_unique<AbsentHotKeys>(*platform.keyboardLayout, compositor(), ownCommand());
    if (portals)
        otherwise = portals->makeHotKeys(platform, std::move(otherwise));
    platform.hotKeys =
        SharedParts::makeHotKeys(*platform.keyboardLayout, false, std::move(otherwise));
    const auto tell = [hotKeys = platform.hotKeys.get(),
                       capabilities = platform.capabilities.get()] {
        tellOfHotKeys(*hotKeys, *capabilities);
    };
    tell();
    QObject::connect(platform.hotKeys.get(), &HotKeys::controlChanged, platform.capabilities.get(),
                     tell);
}

} // namespace

void makeWaylandAdapters(Platform &platform, const std::shared_ptr<WaylandConnection> &wayland,
                         const std::shared_ptr<DesktopEntryCatalog> &entries,
                         const std::function<bool()> &areAnimationsWanted)
{
    keepQtWaylandFromOpenGL();
    platform.windowSpace = makeWaylandWindowSpace(*wayland, areAnimationsWanted);
    platform.capabilities->tell({Capability::Kind::WindowPlace});
    platform.keyboardLayout = std::make_unique<WaylandKeyboardLayout>(wayland);
    const std::shared_ptr<Toplevels> toplevels = makeToplevels(wayland);
    const auto frontNames = std::make_shared<FrontNames>(toplevels, *platform.applicationNames);
    platform.frontApplication =
        std::make_unique<WaylandFrontApplication>(wayland, toplevels, frontNames);
    const auto askFront = [toplevels, frontNames] {
        const FrontNames::Front front = frontNames->front();
        const auto window = toplevels->front();
        return WaylandPasteboard::Front{front.applicationName, front.isOurs,
                                        window ? window->id : 0};
    };
    std::optional<PortalParts> portals =
        PortalParts::whereNeeded(platform, wayland, canType(*wayland));
    auto pasteboard = std::make_unique<WaylandPasteboard>(
        wayland, askFront, PasteboardLimits(), portals ? portals->makeControl(wayland) : nullptr);
    if (portals)
        portals->connectTo(platform, *pasteboard);
    if (PortalParts::hasDataControl(*wayland))
        platform.capabilities->tell({Capability::Kind::Recording});
    platform.keySender = makeWaylandKeySender(wayland, toplevels, platform, *pasteboard, portals);
    platform.pasteboard = std::move(pasteboard);
    makeWaylandHotKeys(platform, portals);
    platform.installedApplications = std::make_unique<FreedesktopInstalledApplications>(
        entries, [toplevels] { return toplevels->identities(); });
    // No tray of windows: only those panels that are told over the bus.
    platform.statusBar = std::make_unique<StatusNotifierStatusBar>(nullptr);
    wayland->start();
    if (portals)
        portals->begin();
}
