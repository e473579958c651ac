#include "platform/kde/KeyStates.h"

#include "platform/wayland/WaylandConnection.h"

#include <keystate-client-protocol.h>

#include <utility>

namespace {

// The first version that tells of modifiers; older descriptions of the protocol lack their names.
constexpr quint32 kVersion = 5;
constexpr quint32 kFirstModifier = 3; // alt, shift, control, meta, altgr
constexpr quint32 kLastModifier = 7;
constexpr quint32 kPressed = 3;

} // namespace

KeyStates::KeyStates(std::shared_ptr<WaylandConnection> connection)
    : m_connection(std::move(connection))
{
    static const org_kde_kwin_keystate_listener kListener = [] {
        org_kde_kwin_keystate_listener listener = {};
        listener.stateChanged = [](void *self, org_kde_kwin_keystate *, uint32_t key,
                                   uint32_t state) {
            static_cast<KeyStates *>(self)->take(key, state);
        };
        return listener;
    }();
    const bool isTold = m_connection->versionOf(org_kde_kwin_keystate_interface.name) >= kVersion &&
                        org_kde_kwin_keystate_interface.version >= int(kVersion);
    if (!isTold)
        return;
    m_states = m_connection->bind<org_kde_kwin_keystate>(org_kde_kwin_keystate_interface, kVersion);
    org_kde_kwin_keystate_add_listener(m_states, &kListener, this);
    // From then on it tells of every change.
    org_kde_kwin_keystate_fetchStates(m_states);
}

KeyStates::~KeyStates()
{
    const auto end = [this] {
        if (m_states)
            org_kde_kwin_keystate_destroy(m_states);
    };
    if (!m_connection->run(end))
        end();
}

bool KeyStates::awaitReleased(TimePoint deadline) const
{
    const MutexLock lock(m_mutex);
    while (!m_held.empty()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        m_changed.wait_until(m_mutex, deadline);
    }
    return true;
}

void KeyStates::take(quint32 key, quint32 state)
{
    if (key < kFirstModifier || key > kLastModifier)
        return;
    {
        const MutexLock lock(m_mutex);
        if (state == kPressed)
            m_held.insert(key);
        else
            m_held.erase(key);
    }
    m_changed.notify_all();
}
