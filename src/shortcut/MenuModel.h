#pragma once

#include <QString>

#include <vector>

/// One entry of a menu, as far as it can clash with a shortcut.
struct MenuItem
{
    QString title;
    /// The character of its key, as MASShortcut::keyCodeStringForKeyEquivalent() tells it; a
    /// capital letter implies Shift. Empty when it has no key.
    QString keyEquivalent = {};
    quint64 modifierMask = 0; ///< Bits of ModifierFlags.
    std::vector<MenuItem> submenu = {};
};

using MenuModel = std::vector<MenuItem>;
