#pragma once

#include "platform/HelperPlatform.h"
#include "platform/Platform.h"
#include "platform/SharedClips.h"
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

/// The clips of the instance that runs, for a process that is none; null when nobody answers.
std::unique_ptr<SharedClips> findRunningClips();

std::unique_ptr<Platform> makePlatform();

std::unique_ptr<HelperPlatform> makeHelperPlatform();

} // namespace PlatformLoader
