#pragma once

#include <QStringList>

#include <chrono>

class FileQuestions;

/// The folders of XDG_DATA_DIRS, in which the toolkit looks for icons and kinds of files, on the
/// main thread and for as long as a folder takes to answer.
namespace DataFolders {

inline constexpr std::chrono::milliseconds kLimit{300};

/// Takes those of them that do not answer within kLimit, mounts whose server is gone, out of this
/// process's environment, with a log line for each. Before the application object is made.
void leaveOutHung(FileQuestions &questions);

} // namespace DataFolders
