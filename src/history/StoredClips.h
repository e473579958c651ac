#pragma once

class QString;

/// The clips on disk while no application has them open.
namespace StoredClips {

/// Deletes every clip of the store in `storeFolder`. Where there is no store none is made. False
/// when some remain, which a log line has explained; a store that cannot be opened stops the
/// process as ClipHistory does.
[[nodiscard]] bool clear(const QString &storeFolder);

} // namespace StoredClips
