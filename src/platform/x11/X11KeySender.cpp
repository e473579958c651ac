#include "platform/x11/X11KeySender.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/x11/X11FrontApplication.h"

#include <xcb/xtest.h>

#include <utility>

namespace {

constexpr int kEvdevOffset = 8;

void fake(const X11Connection &connection, uint8_t eventType, xcb_keycode_t keycode)
{
    xcb_test_fake_input(connection.get(), eventType, keycode, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

/// Releases the keys that are down among `keycodes`.
void releaseHeld(const X11Connection &connection, const std::vector<xcb_keycode_t> &keycodes)
{
    const XcbPointer<xcb_query_keymap_reply_t> down(
        xcb_query_keymap_reply(connection.get(), xcb_query_keymap(connection.get()), nullptr));
    for (const xcb_keycode_t keycode : keycodes) {
        if (down && (down->keys[keycode / 8] & (1U << (keycode % 8))))
            fake(connection, XCB_KEY_RELEASE, keycode);
    }
}

} // namespace

X11KeySender::X11KeySender(X11HotKeys &hotKeys, const X11FrontApplication &frontApplication,
                           Selections selections)
    : m_hotKeys(hotKeys), m_front(frontApplication), m_selections(std::move(selections))
{
}

bool X11KeySender::isAvailable() const
{
    return m_hotKeys.canType();
}

bool X11KeySender::isKeyHeld() const
{
    return m_hotKeys.isKeyHeld();
}

bool X11KeySender::sendCommand(quint32 keyCode)
{
    const bool isCopy = keyCode == VirtualKey::kC;
    if (!isAvailable() || (!isCopy && keyCode != VirtualKey::kV))
        return false;
    const xcb_window_t target = m_front.windowInFront();
    if (!isCopy)
        m_selections.expectPaste(target);
    if (!m_front.isTerminal(target))
        return send(
            {CarbonModifiers::kControl, isCopy ? xkb_keysym_t(XKB_KEY_c) : XKB_KEY_v, keyCode});
    if (isCopy) {
        m_selections.publishPrimary(target);
        return true;
    }
    m_selections.offerPrimary();
    return send({CarbonModifiers::kShift, XKB_KEY_Insert, VirtualKey::kHelp});
}

bool X11KeySender::send(const Chord &chord)
{
    return m_hotKeys.typeFreely(
        [&chord](const X11HotKeys::Typing &typing) { type(typing, chord); });
}

void X11KeySender::type(const X11HotKeys::Typing &typing, const Chord &chord)
{
    const X11Modifiers &modifiers = typing.grabs.modifiers();
    const bool isControl = chord.carbonModifier == CarbonModifiers::kControl;
    const xcb_keycode_t modifierKey = isControl ? modifiers.controlKey : modifiers.shiftKey;
    typing.keyboard.readGroup();
    const auto position =
        xcb_keycode_t(VirtualKey::toEvdev(chord.keyCode).value_or(0) + kEvdevOffset);
    const xcb_keycode_t key = typing.keyboard.keyFor(chord.symbol).value_or(position);

    // The user may have made a hot key of the very keystroke we type.
    const bool isHotKey =
        !typing.grabs.matching(key, modifiers.maskOf(chord.carbonModifier)).empty();
    if (isHotKey)
        typing.grabs.setSuspended(true);
    // The key itself as well: the server ignores the press of a key that is down.
    std::vector<xcb_keycode_t> inTheWay = modifiers.heldKeys;
    inTheWay.push_back(key);
    releaseHeld(typing.connection, inTheWay);
    fake(typing.connection, XCB_KEY_PRESS, modifierKey);
    fake(typing.connection, XCB_KEY_PRESS, key);
    fake(typing.connection, XCB_KEY_RELEASE, key);
    fake(typing.connection, XCB_KEY_RELEASE, modifierKey);
    typing.connection.roundTrip();
    if (isHotKey)
        typing.grabs.setSuspended(false);
}
