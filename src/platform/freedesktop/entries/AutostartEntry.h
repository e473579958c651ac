#pragma once

#include <QByteArray>
#include <QString>

class DesktopEntry;

/// The text of our desktop entry in the user's autostart folder.
namespace AutostartEntry {

/// An entry that starts the program at `path`. From `former`, the entry that stood there before,
/// it takes over what the user had added: keys that are not ours, and other groups. What would
/// keep the program from starting (Hidden, a TryExec, a switch of the desktop's) stays behind.
QByteArray compose(const QString &path, const QByteArray &former);

/// Whether the desktop passes the entry over: it is marked as hidden, or switched off in the
/// desktop's own list of programs to start.
bool isSwitchedOff(const DesktopEntry &entry);

} // namespace AutostartEntry
