#pragma once

#include <QString>

#include <memory>

namespace SQLite {
class Database;
}

/// Another program that looks into the store must not hold the main thread up for longer.
constexpr int kStoreBusyMilliseconds = 50;

/// Opens the store "Quillmarsh.sqlite" in `folder`, making both when they do not exist; the folder
/// and its files are for their owner's eyes only, and writable where they can be made so; where
/// they cannot, the store is opened to be read. Never returns without a store: one that cannot be
/// opened or brought into our shape is told in a log line and stops the process, and its file is
/// left as it was.
std::unique_ptr<SQLite::Database> openClipStore(const QString &folder);

/// The same for a store that went away below the running program, which is no reason to stop: null
/// when it can be neither opened nor made.
std::unique_ptr<SQLite::Database> openClipStoreAnew(const QString &folder);
