#pragma once

#include "platform/SymbolicHotKeys.h"

#include <QByteArray>

/// Xfce's channel "xfce4-keyboard-shortcuts": shortcuts of commands and of the window manager,
/// the defaults of each replaced as a whole once the user has changed one.
namespace XfceShortcuts {

/// The channel's files in the order of their weight, the user's first. What is not such a file
/// contributes nothing.
QList<SymbolicHotKey> parse(const QList<QByteArray> &channels);

} // namespace XfceShortcuts
