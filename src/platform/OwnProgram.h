#pragma once

#include <QString>

/// Where the program at hand was installed. A prefix holds bin/quillmarsh, which people and
/// desktops start, and the application that it becomes, libexec/quillmarsh/quillmarsh.
namespace OwnProgram {

/// The prefix of a program in one of the two folders, and of this one. Absolute.
QString prefixOf(const QString &program);
QString prefix();

/// What starts this program again, now or in another session: of the application its prefix's
/// bin/quillmarsh, of any other program itself.
QString startPath();

} // namespace OwnProgram
