#include "platform/x11/keys/X11TypeAhead.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <utility>

namespace {

/// The keyboard is nobody's meanwhile.
constexpr std::chrono::milliseconds kLimit{500};

void fake(const X11Connection &connection, uint8_t eventType, xcb_keycode_t keycode)
{
    xcb_test_fake_input(connection.get(), eventType, keycode, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

bool contains(const X11TypeAhead::Keycodes &keycodes, xcb_keycode_t keycode)
{
    return std::find(keycodes.begin(), keycodes.end(), keycode) != keycodes.end();
}

xcb_grab_keyboard_cookie_t grab(const X11Connection &connection)
{
    return xcb_grab_keyboard(connection.get(), 0, connection.root(), XCB_CURRENT_TIME,
                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
}

} // namespace

X11TypeAhead::X11TypeAhead(const X11Connection &connection, X11Keyboard &keyboard,
                           const X11KeyGrabs &grabs, const X11HeldKeys &heldKeys, Hooks hooks)
    : m_connection(connection), m_keyboard(keyboard), m_grabs(grabs), m_heldKeys(heldKeys),
      m_hooks(std::move(hooks))
{
}

void X11TypeAhead::watch(xcb_window_t window) const
{
    // With any modifiers, because Return pastes with some of them too.
    for (const xcb_keycode_t key : keysFor({XKB_KEY_Return, XKB_KEY_KP_Enter}))
        xcb_grab_key(m_connection.get(), 0, window, XCB_MOD_MASK_ANY, key, XCB_GRAB_MODE_ASYNC,
                     XCB_GRAB_MODE_SYNC);
}

void X11TypeAhead::begin(const xcb_key_press_event_t &event)
{
    // The grab that brought the event ends with its key, and with its window, which is about to be
    // hidden; one of the whole screen does not.
    const XcbPointer<xcb_grab_keyboard_reply_t> reply(
        xcb_grab_keyboard_reply(m_connection.get(), grab(m_connection), nullptr));
    if (!reply || reply->status != XCB_GRAB_STATUS_SUCCESS) {
        xcb_allow_events(m_connection.get(), XCB_ALLOW_REPLAY_KEYBOARD, XCB_CURRENT_TIME);
        return;
    }
    m_deadline = std::chrono::steady_clock::now() + kLimit;
    m_hasLetGo = false;
    m_window = event.event;
    m_firstKey = event.detail;
    // By the server, so that the window gets it behind all that was typed before.
    xcb_send_event(m_connection.get(), 0, m_window, XCB_EVENT_MASK_KEY_PRESS,
                   reinterpret_cast<const char *>(&event));
}

void X11TypeAhead::take(const xcb_key_press_event_t &event, bool isPress)
{
    if (event.detail != m_firstKey) {
        m_kept.push_back({event.detail, isPress});
        return;
    }
    // Held, it repeats.
    if (isPress)
        return;
    m_firstKey = 0;
    xcb_key_release_event_t release = event;
    release.event = m_window;
    release.child = XCB_NONE;
    xcb_send_event(m_connection.get(), 0, m_window, XCB_EVENT_MASK_KEY_RELEASE,
                   reinterpret_cast<const char *>(&release));
}

void X11TypeAhead::letGo()
{
    m_hasLetGo = true;
    xcb_ungrab_keyboard(m_connection.get(), XCB_CURRENT_TIME);
}

void X11TypeAhead::takeBack()
{
    m_hasLetGo = false;
    // Refused, nothing comes here until the limit.
    xcb_discard_reply(m_connection.get(), grab(m_connection).sequence);
    Keycodes down;
    for (const Key &key : m_kept) {
        std::erase(down, key.keycode);
        if (key.isPress && contains(m_grabs.modifiers().heldKeys, key.keycode))
            down.push_back(key.keycode);
    }
    for (const xcb_keycode_t keycode : down)
        fake(m_connection, XCB_KEY_PRESS, keycode);
}

void X11TypeAhead::giveBack()
{
    // Keys that have their effect when they are pressed, whoever gets them.
    const Keycodes locks = keysFor({XKB_KEY_Caps_Lock, XKB_KEY_Num_Lock, XKB_KEY_Scroll_Lock,
                                    XKB_KEY_ISO_Next_Group, XKB_KEY_ISO_Prev_Group});
    // Programs type for people too, and must not come in between. Fingers can, but for the
    // microseconds from the last look to the last key.
    xcb_grab_server(m_connection.get());
    m_hooks.takeArrived();
    letGo();
    m_hooks.giveKeyboardBack();
    typeAgain(locks);
    xcb_ungrab_server(m_connection.get());
    m_hooks.takeArrived();
    // A Return among it may have begun anew.
    if (!m_hasLetGo)
        return;
    typeAgain(locks);
    m_deadline.reset();
    m_hasLetGo = false;
}

X11TypeAhead::Keycodes X11TypeAhead::keysFor(std::initializer_list<xkb_keysym_t> symbols) const
{
    Keycodes keys;
    for (const xkb_keysym_t symbol : symbols) {
        if (const std::optional<xcb_keycode_t> key = m_keyboard.keyFor(symbol))
            keys.push_back(*key);
    }
    return keys;
}

void X11TypeAhead::typeAgain(const Keycodes &locks)
{
    const Keycodes modifiers = m_grabs.modifiers().heldKeys;
    const std::vector<Key> kept = std::exchange(m_kept, {});
    // Down already, they would change the keys before them.
    for (const Key &key : kept) {
        if (key.isPress && contains(modifiers, key.keycode))
            fake(m_connection, XCB_KEY_RELEASE, key.keycode);
    }
    for (const Key &key : kept) {
        if (contains(modifiers, key.keycode)) {
            typeModifier(key);
        } else if (key.isPress && !contains(locks, key.keycode)) {
            // Still down, its press would be ignored.
            fake(m_connection, XCB_KEY_RELEASE, key.keycode);
            fake(m_connection, XCB_KEY_PRESS, key.keycode);
            fake(m_connection, XCB_KEY_RELEASE, key.keycode);
        }
    }
    takeBackModifiers();
}

void X11TypeAhead::typeModifier(const Key &key)
{
    // Put down again by takeBack().
    if (key.isPress && contains(m_lent, key.keycode))
        return;
    std::erase(m_lent, key.keycode);
    fake(m_connection, XCB_KEY_RELEASE, key.keycode);
    if (!key.isPress)
        return;
    fake(m_connection, XCB_KEY_PRESS, key.keycode);
    m_lent.push_back(key.keycode);
}

void X11TypeAhead::takeBackModifiers()
{
    if (m_lent.empty())
        return;
    const X11HeldKeys::Keys underFingers = m_heldKeys.underFingers();
    std::erase_if(m_lent, [&](xcb_keycode_t keycode) {
        if (underFingers.test(keycode))
            return false;
        fake(m_connection, XCB_KEY_RELEASE, keycode);
        return true;
    });
}
