#pragma once

#include "platform/HotKeys.h"

#include <optional>

class KeyboardLayout;

/// Combinations as Plasma names them: one of Qt's keys with Qt's modifiers in a single number. Keys
/// that print something are named by what the layout prints on them.
namespace QtKeyCodes {

/// Absent for a key that Qt has no name for, and with Caps Lock.
std::optional<int> of(const HotKeyCombination &combination, const KeyboardLayout &layout);

/// Absent for a key that has no virtual key code.
std::optional<HotKeyCombination> combinationOf(int code, const KeyboardLayout &layout);

} // namespace QtKeyCodes
