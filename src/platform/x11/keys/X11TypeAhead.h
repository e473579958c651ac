#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/keys/X11HeldKeys.h"
#include "platform/x11/keys/X11KeyGrabs.h"
#include "platform/x11/keys/X11Keyboard.h"

#include <chrono>
#include <functional>
#include <initializer_list>
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

    /// What the hot keys do for it.
    struct Hooks
    {
        /// Handles the events that the server has sent before it was asked.
        std::function<void()> takeArrived;
        /// Ends the grab of a hot key that is down.
        std::function<void()> giveKeyboardBack;
    };

    /// All references must outlive this object.
    X11TypeAhead(const X11Connection &connection, X11Keyboard &keyboard, const X11KeyGrabs &grabs,
                 const X11HeldKeys &heldKeys, Hooks hooks);

    /// Return and Enter, with whatever modifiers, stop the keyboard when pressed in `window`.
    void watch(xcb_window_t window) const;

    /// One of them was pressed. From now on every key comes here.
    void begin(const xcb_key_press_event_t &event);

    /// Keeps a key event.
    void take(const xcb_key_press_event_t &event, bool isPress);

    bool isKeeping() const { return m_deadline.has_value(); }
    /// When the keyboard is to be let go whatever happened; absent while nothing is kept.
    std::optional<TimePoint> deadline() const { return m_deadline; }

    /// Lets the keyboard go; a key that was on its way here before is still kept.
    void letGo();
    bool hasLetGo() const { return m_hasLetGo; }
    /// After letGo(): keeps on keeping. The modifiers that were pressed meanwhile are down again,
    /// because one that a keystroke has released would come up unseen.
    void takeBack();

    /// Lets the keyboard go with what was kept, and ends.
    void giveBack();

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

    Keycodes keysFor(std::initializer_list<xkb_keysym_t> symbols) const;
    /// Types the kept keys again, in order. Modifiers count while they are down; every other key is
    /// tapped, because its own release comes later, and `locks` are left out: they have worked
    /// already.
    void typeAgain(const Keycodes &locks);
    void typeModifier(const Key &key);

    const X11Connection &m_connection;
    X11Keyboard &m_keyboard;
    const X11KeyGrabs &m_grabs;
    const X11HeldKeys &m_heldKeys;
    const Hooks m_hooks;
    std::optional<TimePoint> m_deadline;
    bool m_hasLetGo = false;
    xcb_window_t m_window = XCB_NONE; ///< Ours, in which it began.
    xcb_keycode_t m_firstKey = 0;     ///< The one it began with, until that comes up.
    std::vector<Key> m_kept;
    Keycodes m_lent;
};
