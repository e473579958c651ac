#pragma once

#include "platform/Platform.h"
#include "platform/SingleInstance.h"

#include <memory>
#include <optional>

/// Chooses and builds the adapters for the display at hand: the only place that names them.
namespace PlatformLoader {

/// Settles, before the application object is made, which display system Qt uses, and which folders
/// it looks for icons in. A message when there is no display that Quillmarsh can work on; nothing
/// can be built then.
std::optional<QString> chooseDisplay();

/// `storeFolder` is the one whose history only one instance may keep.
std::unique_ptr<SingleInstance> makeSingleInstance(const QString &storeFolder);

std::unique_ptr<Platform> makePlatform();

/// What the update helper wants: clock, settings, running applications, keyboard layout and status
/// bar. The rest is null, because two programs must not both serve the pasteboard and grab the
/// keys.
std::unique_ptr<Platform> makeHelperPlatform();

} // namespace PlatformLoader
