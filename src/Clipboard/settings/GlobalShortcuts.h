#pragma once

#include "shortcut/MASShortcut.h"
#include "shortcut/MenuModel.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class HotKeys;
class KeyboardLayout;
class SettingsStore;
class SymbolicHotKeys;

/// The two system-wide shortcuts, as far as they are not the General pane's: it binds them to their
/// actions when it loads.
namespace GlobalShortcuts {

/// Gives the process-wide shortcut objects their ports. Once, before any of them is used.
/// `statusMenu` tells the menu whose entries a new shortcut must not clash with; copying, cutting
/// and pasting are taken besides.
void connect(KeyboardLayout &keyboardLayout, HotKeys &hotKeys, SymbolicHotKeys &symbolicHotKeys,
             SettingsStore &settings, const std::function<MenuModel()> &statusMenu);

/// A shortcut in words, as the keys of a Linux keyboard are called: "Super + Shift + V".
QString wordName(const MASShortcut &shortcut);

/// The shortcuts that open the history and start a swop unless the user sets others.
MASShortcut defaultOpenShortcut();
MASShortcut defaultSwopShortcut();

/// The shortcut stored under `key`; absent when there is none.
std::optional<MASShortcut> storedShortcut(const SettingsStore &settings, const QString &key);

/// Whether a program of this desktop can have shortcuts at all.
bool canBeHad();

/// The keys to press, by the names printed on a Linux keyboard: "Super", "Shift", "V".
QStringList keyCaps(const MASShortcut &shortcut);

/// How a sentence names a shortcut to the user, in signs and in words: "⇧⌘V (Super + Shift + V)".
QString sentenceName(const MASShortcut &shortcut);

/// The sentence name of the shortcut stored under `key`; absent when none is stored there, or when
/// pressing it does nothing, because another program has it.
std::optional<QString> workingSentenceName(const SettingsStore &settings, const QString &key);

} // namespace GlobalShortcuts
