#pragma once

#include "platform/Platform.h"

#include <functional>
#include <memory>

class DesktopEntryCatalog;
class WaylandConnection;

/// Puts into the platform what the compositor of `wayland` has, and tells its capabilities, which
/// are there already, what that is. The adapters bind what they need of the connection, whose
/// thread begins when all have. `areAnimationsWanted` is asked whenever something is to move.
void makeWaylandAdapters(Platform &platform, const std::shared_ptr<WaylandConnection> &wayland,
                         const std::shared_ptr<DesktopEntryCatalog> &entries,
                         const std::function<bool()> &areAnimationsWanted);
