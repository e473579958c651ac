#pragma once

#include "platform/wayland/Toplevels.h"

#include <chrono>

/// Which modifier keys the user holds, where the compositor tells that only to the window that has
/// the keyboard.
namespace HeldModifiers {

/// Waits until none is held, and until the window in front is in front again: if no window of ours
/// had the keyboard until just now, one that cannot be seen takes it meanwhile. False when the
/// deadline comes first. Main thread only; input to our windows is not handled meanwhile.
[[nodiscard]] bool awaitReleased(Toplevels &toplevels, Toplevels::TimePoint deadline);

} // namespace HeldModifiers
