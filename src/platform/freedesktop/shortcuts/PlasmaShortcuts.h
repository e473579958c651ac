#pragma once

#include "platform/SymbolicHotKeys.h"

#include <QByteArray>

/// Plasma's kglobalshortcutsrc: for each action the shortcuts in force, its defaults and its name.
namespace PlasmaShortcuts {

QList<SymbolicHotKey> parse(const QByteArray &file);

} // namespace PlasmaShortcuts
