#pragma once

#include "platform/SymbolicHotKeys.h"

#include <QByteArray>
#include <QStringList>

/// Which of the settings that `gsettings` lists are shortcuts, for the desktops that keep theirs
/// there, and how they are read.
namespace GSettingsShortcuts {

/// The schemas that hold a desktop's shortcuts, for a name out of XDG_CURRENT_DESKTOP; empty for
/// a desktop that keeps them elsewhere.
QStringList schemasOf(const QString &desktop);

/// The shortcuts in the output of `gsettings list-recursively`, from the given schemas only.
QList<SymbolicHotKey> parse(const QByteArray &listing, const QStringList &schemas);

/// The further "schema:path" that the same output refers to: the user's own shortcuts.
QStringList customSchemas(const QByteArray &listing, const QStringList &schemas);

/// The shortcut in the listing of one of those.
QList<SymbolicHotKey> parseCustom(const QByteArray &listing);

} // namespace GSettingsShortcuts
