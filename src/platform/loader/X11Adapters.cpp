#include "platform/loader/X11Adapters.h"

#include "platform/freedesktop/StatusNotifierStatusBar.h"
#include "platform/freedesktop/entries/FreedesktopInstalledApplications.h"
#include "platform/kde/KGlobalAccelHotKeys.h"
#include "platform/loader/SharedParts.h"
#include "platform/x11/keys/X11HotKeys.h"
#include "platform/x11/keys/X11KeySender.h"
#include "platform/x11/keys/X11KeyboardLayout.h"
#include "platform/x11/selection/X11Pasteboard.h"
#include "platform/x11/windows/X11FrontApplication.h"
#include "platform/x11/windows/X11OpenWindows.h"
#include "platform/x11/windows/X11TrayArea.h"
#include "platform/x11/windows/X11WindowSpace.h"

#include <utility>

namespace {

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
    if (!SharedParts::canQtDoWayland())
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

} // namespace

/// Where one adapter needs another, it is the sibling it was made with: both know X11.
void makeX11Adapters(Platform &platform, const std::shared_ptr<DesktopEntryCatalog> &entries,
                     bool isThroughXwayland)
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
                                                        selections, SharedParts::readUsersKeys);
    QObject::connect(pasteboard.get(), &Pasteboard::pasteRead, hotKeys.get(),
                     &X11HotKeys::letTypedAheadGo);
    platform.windowSpace = std::make_unique<X11WindowSpace>();
    platform.keyboardLayout = std::make_unique<X11KeyboardLayout>();
    platform.hotKeys =
        SharedParts::makeHotKeys(*platform.keyboardLayout, !isThroughXwayland, std::move(hotKeys));
    platform.frontApplication = std::move(frontApplication);
    platform.pasteboard = std::move(pasteboard);
    platform.installedApplications = std::make_unique<FreedesktopInstalledApplications>(
        entries, [] { return X11OpenWindows().identities(); });
    platform.statusBar = std::make_unique<StatusNotifierStatusBar>(std::make_unique<X11TrayArea>());
    if (isThroughXwayland)
        tellOfXwayland(*platform.hotKeys, *platform.capabilities);
    else
        tellThatAllWorks(*platform.capabilities);
}
