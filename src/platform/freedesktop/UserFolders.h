#pragma once

/// What the environment says of where the user's files are.
namespace UserFolders {

/// Puts it right before anybody reads it, so that every start of a user finds the same files: a
/// relative path, which would depend on the working folder, counts as none, and a home that is not
/// named is the one that the system knows. For the start of a program, with one thread.
void settle();

} // namespace UserFolders
