#pragma once

#include <QByteArray>

#include <memory>
#include <optional>

class HotKeys;
class KeyboardLayout;

/// What the adapters of X11 and those of Wayland are put together with alike.
namespace SharedParts {

/// Whether the toolkit's plug-in for Wayland is installed.
bool canQtDoWayland();

/// The user's table of the keys that applications take; absent when there is none.
std::optional<QByteArray> readUsersKeys();

/// Plasma's own service of shortcuts, and `otherwise` on other desktops or where it is not there.
/// If that `grabs` keys, it does so on Plasma, too, and the service keeps their names alone.
std::unique_ptr<HotKeys> makeHotKeys(const KeyboardLayout &layout, bool grabs,
                                     std::unique_ptr<HotKeys> otherwise);

} // namespace SharedParts
