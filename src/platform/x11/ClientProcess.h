#pragma once

#include <QString>

/// What is known here of the process behind a window.
namespace ClientProcess {

/// Base name of the program that a process runs; empty for none, or one that has ended.
QString nameOf(quint32 processId);

} // namespace ClientProcess
