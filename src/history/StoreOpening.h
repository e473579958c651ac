#pragma once

#include <QString>

#include <memory>

namespace SQLite {
class Database;
}

/// Opens the store "Quillmarsh.sqlite" in `folder`, making both when they do not exist; the folder
/// and its files are for their owner's eyes only, and writable where they can be made so; where
/// they cannot, the store is opened to be read. Never returns without a store: one that cannot be
/// opened or brought into our shape is told in a log line and stops the process, and its file is
/// left as it was.
std::unique_ptr<SQLite::Database> openClipStore(const QString &folder);
