#pragma once

#include "platform/freedesktop/instance/InstanceCall.h"

#include <QLoggingCategory>
#include <QString>

#include <chrono>
#include <functional>
#include <utility>

Q_DECLARE_LOGGING_CATEGORY(lcInstance)

/// What one start hands to the instance that runs.
struct InstanceMessage
{
    QString action;          ///< Empty: activate.
    QString activationToken; ///< Empty when the start brought none.
};

/// One instance a store, whatever the environment of a start: a lock in the folder of the store
/// that the kernel releases when its process ends, however it ends, and beside it a socket through
/// which a second start reaches the first. Works without a bus and without an application object,
/// because a second start should cost nothing more. Owned by DBusSingleInstance.
class InstanceSocket
{
public:
    enum class Claim {
        Taken,   ///< We hold the lock, and listen.
        Held,    ///< Another process holds the lock.
        Unusable ///< There is no folder to keep a lock in; a log line has said why.
    };

    using Answer = InstanceCall::Answer;

    /// Answers Taken, Refused or Unable.
    using Receiver = std::function<Answer(const InstanceMessage &)>;
    /// Tells a start that waits: Taken with the open file of a list, which stays the teller's, or
    /// Nobody with -1. To be called at most once, and not after stopListening().
    using Reply = std::function<void(Answer meaning, int file)>;
    /// Is asked for the list of what a search for `term` finds, and replies later.
    using Lister = std::function<void(const QString &term, const Reply &reply)>;

    /// `folder` is made when it is missing, and is this user's alone from then on.
    explicit InstanceSocket(QString folder);
    InstanceSocket(const InstanceSocket &) = delete;
    InstanceSocket &operator=(const InstanceSocket &) = delete;
    ~InstanceSocket() { release(); }

    Claim claim();
    /// Gives lock and socket up.
    void release();

    /// Hands `message` to the process that holds the lock, and waits at most `limit` for its
    /// answer. Call claim() again after Nobody.
    Answer forward(const InstanceMessage &message, std::chrono::milliseconds limit);

    /// Readable when a message waits; -1 when we do not listen.
    int descriptor() const { return m_socket; }
    /// Reads the next message and tells its sender what `receiver` made of it. One that is none of
    /// ours is not answered.
    void receive(const Receiver &receiver);
    /// Whom a start asks that wants a list; without one it is refused.
    void setLister(Lister lister) { m_lister = std::move(lister); }
    /// Sends everybody away who waits for an answer or would come: this instance ends. The lock
    /// stays until release().
    void stopListening();

private:
    struct Letter;

    bool openFolder();
    bool listen();
    Letter read() const;
    void answer(const Letter &letter, Answer meaning) const;

    const QString m_path;
    int m_folder = -1;
    int m_lock = -1;
    int m_socket = -1;
    Lister m_lister;
};
