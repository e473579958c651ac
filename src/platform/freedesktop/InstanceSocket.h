#pragma once

#include <QString>

#include <chrono>
#include <optional>

/// What one start hands to the instance that runs.
struct DoorMessage
{
    QString action;          ///< Empty: activate.
    QString activationToken; ///< Empty when the start brought none.
};

/// One instance a user, whether there is a bus or not: a lock that the kernel releases when its
/// process ends, however it ends, and beside it a socket through which a second start reaches the
/// first. Both live in the user's runtime folder and are nobody else's. Works without an
/// application object, because a second start should cost nothing more. Owned by DBusInstanceDoor.
class InstanceSocket
{
public:
    enum class Claim {
        Taken,   ///< We hold the lock, and listen.
        Held,    ///< Another process holds the lock.
        Unusable ///< There is no folder to keep a lock in; a log line has said why.
    };

    InstanceSocket() = default;
    InstanceSocket(const InstanceSocket &) = delete;
    InstanceSocket &operator=(const InstanceSocket &) = delete;
    ~InstanceSocket();

    Claim claim();
    /// Gives lock and socket up.
    void release();

    /// Hands `message` to the process that holds the lock. False when it does not listen, or did
    /// not confirm within `limit`.
    bool forward(const DoorMessage &message, std::chrono::milliseconds limit) const;

    /// Readable when a message waits; -1 when we do not listen.
    int descriptor() const { return m_socket; }
    /// The next message that waits; absent when none does, or when it is none of ours. Each is
    /// confirmed to its sender.
    std::optional<DoorMessage> receive();

private:
    bool openFolder();
    bool listen();

    int m_folder = -1;
    int m_lock = -1;
    int m_socket = -1;
};
