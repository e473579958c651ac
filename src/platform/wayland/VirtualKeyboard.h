#pragma once

#include "platform/typing/Xkb.h"
#include "platform/wayland/Typist.h"

#include <atomic>
#include <memory>

class WaylandConnection;
struct zwp_virtual_keyboard_v1;

/// A keyboard of our own beside the user's. What the user holds or has locked stays on the user's,
/// and so does the user's layout: ours is an American one, in which every table's keys are found,
/// and applications follow the keyboard that is typed on. It lives as long as it can: windows lose
/// the keyboard for a moment when one goes.
class VirtualKeyboard : public Typist
{
public:
    static constexpr const char *kInterface = "zwp_virtual_keyboard_manager_v1";

    /// Before the connection is started, or on its thread.
    explicit VirtualKeyboard(std::shared_ptr<WaylandConnection> connection);
    ~VirtualKeyboard() override;

    // ^Typist
    bool isAvailable() const override { return m_isAvailable; }
    bool canTypeBesideUser() const override { return true; }
    [[nodiscard]] KeySender::Outcome type(const KeySequence &sequence) override;

private:
    void follow();
    void make();
    void end();
    bool sendKeymap() const;

    const std::shared_ptr<WaylandConnection> m_connection;
    const XkbPointer<xkb_keymap> m_keymap;
    zwp_virtual_keyboard_v1 *m_keyboard = nullptr; ///< Null while there is none. Thread only.
    void *m_seat = nullptr;                        ///< The seat that it is a keyboard of.
    std::atomic<bool> m_isAvailable = false;
};
