#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/keys/X11HeldKeys.h"

#include <chrono>
#include <optional>
#include <vector>

/// Keeps what is typed between a Return in one of our windows, which may paste, and the moment
/// when the target reads what the keystroke pastes: many insert it only then. The Return itself
/// stops the keyboard at the server, so the very next key already comes here; the window gets its
/// Return passed on. The kept keys are typed again behind the keystroke. (Letting them go by
/// themselves, as X11KeyboardHandOver does, would bring them in front of it: the server puts what a
/// program types behind what it holds back.) Owned by the hot keys and used on their thread.
class X11TypeAhead
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;
    using Keycodes = std::vector<xcb_keycode_t>;

    /// Both references must outlive this object.
    X11TypeAhead(const X11Connection &connection, const X11HeldKeys &heldKeys);

    /// `keys`, with whatever modifiers, stop the keyboard when they are pressed in `window`.
    void watch(xcb_window_t window, const Keycodes &keys) const;

    /// One of those keys was pressed. From now on every key comes here.
    void begin(const xcb_key_press_event_t &event);

    /// Keeps a key event.
    void take(const xcb_key_press_event_t &event, bool isPress);

    bool isKeeping() const { return m_deadline.has_value(); }
    /// When the keyboard is to be let go whatever happened; absent while nothing is kept.
    std::optional<TimePoint> deadline() const { return m_deadline; }

    /// Lets the keyboard go; a key that was on its way here before is still kept.
    void letGo();
    bool hasLetGo() const { return m_hasLetGo; }
    /// After letGo(): keeps on keeping. The `modifiers` that were pressed meanwhile are down again,
    /// because one that a keystroke has released would come up unseen.
    void takeBack(const Keycodes &modifiers);
    /// Nothing is on its way any more.
    void end();

    /// Types the kept keys again, in order. `modifiers` are the keys that count while they are
    /// down; every other key is tapped, because its own release comes later, and `locks` are left
    /// out: they have worked already.
    void typeAgain(const Keycodes &modifiers, const Keycodes &locks);

    /// Whether a modifier that was typed again is still down under the user's finger.
    bool isModifierLent() const { return !m_lent.empty(); }
    /// Takes back the modifiers whose own keys have come up meanwhile.
    void takeBackModifiers();

private:
    struct Key
    {
        xcb_keycode_t keycode;
        bool isPress;
    };

    void typeModifier(const Key &key);

    const X11Connection &m_connection;
    const X11HeldKeys &m_heldKeys;
    std::optional<TimePoint> m_deadline;
    bool m_hasLetGo = false;
    xcb_window_t m_window = XCB_NONE; ///< Ours, in which it began.
    xcb_keycode_t m_firstKey = 0;     ///< The one it began with, until that comes up.
    std::vector<Key> m_kept;
    Keycodes m_lent;
};
