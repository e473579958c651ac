#pragma once

#include "platform/HotKeys.h"

#include <QString>

#include <optional>

class KeyboardLayout;

/// Combinations as the portal of shortcuts is told of them, and as GNOME tells people of them.
namespace PortalTriggers {

/// Such as "LOGO+SHIFT+v". Empty for what the portal has no words for.
QString of(const HotKeyCombination &combination, const KeyboardLayout &layout);

/// What the desktop says of keys, such as "Press <super><shift>v", in its own language. Absent for
/// what is none of the combinations that we know.
std::optional<HotKeyCombination> combinationIn(const QString &description,
                                               const KeyboardLayout &layout);

} // namespace PortalTriggers
