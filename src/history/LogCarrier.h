#pragma once

#include "platform/HelperThread.h"

#include <atomic>
#include <string>

struct sqlite3;

/// Carries what the store's write-ahead log has gathered over into the store, on a thread and a
/// connection of its own: the disk is waited for there, and neither a copy nor a paste pays for
/// those before it. Owned by ClipStore beside the connection that writes; main thread only.
class LogCarrier
{
public:
    /// `database` is that connection, which must outlive this object.
    explicit LogCarrier(sqlite3 *database);
    ~LogCarrier();
    LogCarrier(const LogCarrier &) = delete;
    LogCarrier &operator=(const LogCarrier &) = delete;

private:
    void carry();

    sqlite3 *m_database;
    const std::string m_path;
    std::atomic<bool> m_isCarrying = false;
    HelperThread m_thread;
};
