#pragma once

#include "platform/kde/KGlobalAccelHotKeys.h"

#include <QByteArray>

#include <memory>
#include <optional>

/// What the adapters of X11 and those of Wayland are put together with alike.
namespace SharedParts {

/// Whether the toolkit's plug-in for Wayland is installed.
bool canQtDoWayland();

/// The user's table of the keys that applications take; absent when there is none.
std::optional<QByteArray> readUsersKeys();

/// Plasma's own service of shortcuts, and `otherwise` on other desktops or where it is not there.
std::unique_ptr<HotKeys> makeHotKeys(const KeyboardLayout &layout, KGlobalAccelHotKeys::Keys keys,
                                     std::unique_ptr<HotKeys> otherwise);

} // namespace SharedParts
