#pragma once

#include "preview/PreviewType.h"

#include <functional>

class Patience;
class PreviewFile;

/// The pictures that file managers have put into the desktop's thumbnail cache, of films, sounds,
/// office documents and what else has no reader.
namespace Thumbnails {

/// Whether there may be one of such files.
bool mayBeOf(const PreviewType &type);

/// Hands each that there is of the file at `path` to `isIt`, opened, until that takes one;
/// `written` is when the file was, as a thumbnail tells it that is of the file as it is now.
void find(const QString &path, const Patience &patience,
          const std::function<bool(PreviewFile &thumbnail, const QString &written)> &isIt);

} // namespace Thumbnails
