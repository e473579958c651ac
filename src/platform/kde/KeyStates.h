#pragma once

#include "platform/Mutex.h"

#include <QtGlobal>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <set>

class WaylandConnection;
struct org_kde_kwin_keystate;

/// Which modifier keys the user holds, as KWin tells to programs whose desktop entry asks for it.
class KeyStates
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// Before the connection is started, or on its thread.
    explicit KeyStates(std::shared_ptr<WaylandConnection> connection);
    KeyStates(const KeyStates &) = delete;
    KeyStates &operator=(const KeyStates &) = delete;
    ~KeyStates();

    /// Whether it is known at all: older versions tell of locks only.
    bool areKnown() const { return m_states != nullptr; }

    /// Waits until no modifier is held. False when one is at the deadline.
    bool awaitReleased(TimePoint deadline) const;

private:
    void take(quint32 key, quint32 state);

    const std::shared_ptr<WaylandConnection> m_connection;
    org_kde_kwin_keystate *m_states = nullptr; ///< Null where it does not tell.
    mutable Mutex m_mutex;
    mutable std::condition_variable_any m_changed;
    std::set<quint32> m_held QUILLMARSH_GUARDED_BY(m_mutex);
};
