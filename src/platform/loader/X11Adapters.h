#pragma once

#include "platform/Platform.h"

#include <memory>

class DesktopEntryCatalog;

/// Puts into the platform what the X server has, and tells its capabilities, which are there
/// already, what that is. `isThroughXwayland` says that the session is a Wayland one all the same.
void makeX11Adapters(Platform &platform, const std::shared_ptr<DesktopEntryCatalog> &entries,
                     bool isThroughXwayland);
