#pragma once

#include <QString>

/// What is known here of the process behind a window.
namespace ClientProcess {

/// Base name of the program that a process runs; empty for none, or one that has ended.
QString nameOf(quint32 processId);

/// The file of that program as an absolute path without links: the single file that it was started
/// from where it runs out of one, else its executable. Empty when it cannot be told, as for a
/// process of another user.
QString programOf(quint32 processId);

} // namespace ClientProcess
