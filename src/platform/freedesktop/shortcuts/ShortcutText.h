#pragma once

#include "platform/SymbolicHotKeys.h"

#include <QStringView>

#include <optional>

/// Shortcuts as desktops write them down. Keys are named by what they type; their places are
/// those of a US keyboard, which is what the desktops' own defaults mean.
namespace ShortcutText {

/// GTK's form: "<Primary><Shift>v", "<Super>Page_Up", "XF86AudioMute". Absent for anything else
/// ("disabled", a raw key code), for a key without a virtual key code, and for modifiers that no
/// shortcut of ours can have.
std::optional<SymbolicHotKey> fromGtk(QStringView accelerator);

/// Qt's form: "Meta+Shift+V". Absent as above, and for sequences of several keys.
std::optional<SymbolicHotKey> fromQt(const QString &shortcut);

} // namespace ShortcutText
