#pragma once

#include <QStringList>

#include <chrono>

/// The folders of XDG_DATA_DIRS, in which the toolkit looks for icons and kinds of files, on the
/// main thread and for as long as a folder takes to answer.
namespace DataFolders {

inline constexpr std::chrono::milliseconds kLimit{300};

/// Those of `folders` that do not answer within kLimit: mounts whose server is gone. A thread that
/// waits for one of them is left behind.
QStringList hung(const QStringList &folders);

/// Takes those that hang out of this process's environment, with a log line for each. Before the
/// application object is made.
void leaveOutHung();

} // namespace DataFolders
