#include "platform/x11/X11KeySender.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"
#include "platform/x11/X11FrontApplication.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWindow>

#include <utility>

namespace {

constexpr int kEvdevOffset = 8;

/// The keys that are down among `keycodes`.
std::vector<xcb_keycode_t> heldOf(const X11Connection &connection,
                                  const std::vector<xcb_keycode_t> &keycodes)
{
    const XcbPointer<xcb_query_keymap_reply_t> down(
        xcb_query_keymap_reply(connection.get(), xcb_query_keymap(connection.get()), nullptr));
    std::vector<xcb_keycode_t> held;
    for (const xcb_keycode_t keycode : keycodes) {
        if (down && (down->keys[keycode / 8] & (1U << (keycode % 8))))
            held.push_back(keycode);
    }
    return held;
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
    // In a terminal Ctrl-C would end the program inside and Ctrl-V type a control character, and
    // Ctrl-Shift-V is not every terminal's. What is marked there is PRIMARY already, and
    // Shift-Insert pastes PRIMARY.
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

void X11KeySender::keepTypedAhead(QWindow *window)
{
    m_hotKeys.keepTypedAhead(xcb_window_t(window->winId()));
    if (!std::exchange(m_isFiltering, true))
        QCoreApplication::instance()->installEventFilter(this);
}

bool X11KeySender::eventFilter(QObject *watched, QEvent *event)
{
    const auto isReturn = [event] {
        const int key = static_cast<QKeyEvent *>(event)->key();
        return key == Qt::Key_Return || key == Qt::Key_Enter;
    };
    const bool isReturnOfWindow =
        event->type() == QEvent::KeyPress && watched->isWindowType() && isReturn();
    // An input method may have taken the Return for itself.
    if (isReturnOfWindow || event->type() == QEvent::InputMethod)
        QMetaObject::invokeMethod(
            this,
            [this, sent = m_sent] {
                if (sent == m_sent)
                    m_hotKeys.letTypedAheadGo();
            },
            Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

bool X11KeySender::send(const Chord &chord)
{
    ++m_sent;
    return m_hotKeys.typeFreely(
        [&chord](const X11HotKeys::Typing &typing) { return plan(typing, chord); });
}

X11HotKeys::Keystroke X11KeySender::plan(const X11HotKeys::Typing &typing, const Chord &chord)
{
    const X11Modifiers &modifiers = typing.grabs.modifiers();
    const bool isControl = chord.carbonModifier == CarbonModifiers::kControl;
    const xcb_keycode_t modifierKey = isControl ? modifiers.controlKey : modifiers.shiftKey;
    // Asked anew: a notice may be under way, and in another group the key types another letter.
    typing.keyboard.readGroup();
    const auto position =
        xcb_keycode_t(VirtualKey::toEvdev(chord.keyCode).value_or(0) + kEvdevOffset);
    const xcb_keycode_t key = typing.keyboard.keyFor(chord.symbol).value_or(position);

    X11HotKeys::Keystroke keystroke;
    // The user may have made a hot key of the very keystroke we type.
    keystroke.isHotKey =
        !typing.grabs.matching(key, modifiers.maskOf(chord.carbonModifier)).empty();
    // The key itself as well: the server ignores the press of a key that is down.
    std::vector<xcb_keycode_t> inTheWay = modifiers.heldKeys;
    inTheWay.push_back(key);
    for (const xcb_keycode_t held : heldOf(typing.connection, inTheWay))
        keystroke.steps.push_back({XCB_KEY_RELEASE, held});
    keystroke.steps.insert(keystroke.steps.end(), {{XCB_KEY_PRESS, modifierKey},
                                                   {XCB_KEY_PRESS, key},
                                                   {XCB_KEY_RELEASE, key},
                                                   {XCB_KEY_RELEASE, modifierKey}});
    return keystroke;
}
