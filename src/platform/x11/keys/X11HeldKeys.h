#pragma once

#include "platform/x11/X11Connection.h"

#include <bitset>
#include <optional>

/// Tells whether a key is down under somebody's finger, and when it comes up, although the server
/// reports it to nobody: the keyboard that all clients share forgets a key that was released for
/// the user, the device itself does not. Owned by the hot keys and used on their thread.
class X11HeldKeys
{
public:
    /// `connection` must outlive this object.
    explicit X11HeldKeys(const X11Connection &connection);

    /// One bit a keycode.
    using Keys = std::bitset<256>;

    /// What any keyboard device has down; nothing where the server cannot tell.
    Keys down() const { return down(true); }
    /// The same without the device that programs type with.
    Keys underFingers() const { return down(false); }
    bool isDown(xcb_keycode_t keycode) const { return down().test(keycode); }

    /// Starts or stops reports of every key that comes up, whoever has the keyboard. Only for as
    /// long as a hot key is held: what else is typed is nobody's business.
    void setListening(bool isListening);

    /// When the key that such a report is about came up; absent for every other event.
    std::optional<xcb_timestamp_t> releaseTime(const xcb_generic_event_t &event) const;

private:
    Keys down(bool withPrograms) const;

    const X11Connection &m_connection;
    uint8_t m_opcode = 0; ///< Of the input extension; 0 when the server lacks it.
    bool m_isListening = false;
};
