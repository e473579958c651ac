#pragma once

#include <QString>

/// Starts a program once this process has ended, so that the old and the new one never meet: not at
/// the bus name, not at the lock, not at the store.
namespace Relauncher {

/// `program` is an absolute path. False when nothing could be prepared.
[[nodiscard]] bool startAfterExit(const QString &program);

} // namespace Relauncher
