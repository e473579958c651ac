#pragma once

#include "preview/PreviewContent.h"

#include <memory>

class Patience;
class QString;

/// Folders: how much they hold, as far as it was counted in a moment, and the first entries.
/// Nothing in them is opened.
namespace FolderListing {

constexpr int kMaxCounted = 20'000; ///< Looked at, in the folders below as well.

/// On a helper thread.
std::shared_ptr<const PreviewContent> read(const QString &path, const Patience &patience);

} // namespace FolderListing
