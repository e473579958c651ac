#pragma once

#include <QStringList>

#include <optional>

/// The files of a copy of several, of which a clip records the first.
namespace CopiedFiles {

/// The lines of the clip's text, when each is an absolute path and the first is the recorded file;
/// empty when there are not several, or when the text is something else. Whether they exist is not
/// asked.
QStringList of(const std::optional<QString> &text, const std::optional<QString> &filepath);

} // namespace CopiedFiles
