#pragma once

#include "platform/Mutex.h"
#include "platform/typing/Xkb.h"
#include "platform/wayland/SeatKeyboard.h"
#include "platform/wayland/Typist.h"

#include <QByteArray>

#include <chrono>
#include <memory>

class PortalBus;
class RemoteControlSession;
class Toplevels;
class WaylandConnection;

/// Presses keys of the user's own keyboard through a remote-control session. What the user holds
/// counts with our keys and cannot be released by us, so it is waited for.
class PortalTypist : public Typist
{
public:
    /// For whoever lets go of the modifiers of a shortcut.
    static constexpr std::chrono::milliseconds kPatience{500};

    /// Before the connection is started, or on its thread. `session` must outlive this object.
    PortalTypist(std::shared_ptr<PortalBus> bus, const RemoteControlSession &session,
                 std::shared_ptr<WaylandConnection> connection,
                 std::shared_ptr<Toplevels> toplevels);

    // ^Typist
    bool isAvailable() const override;
    bool canTypeBesideUser() const override { return false; }
    [[nodiscard]] KeySender::Outcome type(const KeySequence &sequence) override;

private:
    XkbPointer<xkb_keymap> keymap() const;

    const std::shared_ptr<PortalBus> m_bus;
    const RemoteControlSession &m_session;
    const std::shared_ptr<Toplevels> m_toplevels;
    mutable Mutex m_mutex;
    QByteArray m_keymap QUILLMARSH_GUARDED_BY(m_mutex); ///< The user's, as text.
    const SeatKeyboard m_keyboard;                      ///< After what it tells of the keymap.
};
