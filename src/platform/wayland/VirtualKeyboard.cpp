#include "platform/wayland/VirtualKeyboard.h"

#include "platform/typing/KeyStrokes.h"
#include "platform/wayland/WaylandConnection.h"

#include <QLoggingCategory>

#include <virtual-keyboard-unstable-v1-client-protocol.h>

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcKeys, "quillmarsh.keys", QtInfoMsg)

constexpr xkb_keycode_t kEvdevOffset = 8;

quint32 now()
{
    using namespace std::chrono;
    return quint32(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
}

void sendModifiers(zwp_virtual_keyboard_v1 *keyboard, xkb_state *state)
{
    zwp_virtual_keyboard_v1_modifiers(keyboard,
                                      xkb_state_serialize_mods(state, XKB_STATE_MODS_DEPRESSED),
                                      xkb_state_serialize_mods(state, XKB_STATE_MODS_LATCHED),
                                      xkb_state_serialize_mods(state, XKB_STATE_MODS_LOCKED), 0);
}

} // namespace

VirtualKeyboard::VirtualKeyboard(std::shared_ptr<WaylandConnection> connection)
    : m_connection(std::move(connection)), m_keymap(Xkb::americanKeymap())
{
    follow();
    m_connection->addGlobalListener(this, [this](const QByteArray &, quint32, bool) { follow(); });
    m_connection->addLossListener(this, [this] { m_isAvailable = false; });
}

VirtualKeyboard::~VirtualKeyboard()
{
    m_connection->removeListeners(this);
    if (!m_connection->run([this] { end(); }))
        end();
}

KeySender::Outcome VirtualKeyboard::type(const KeySequence &sequence)
{
    using Outcome = KeySender::Outcome;
    const auto strokes = KeyStrokes::of(sequence, m_keymap.get());
    if (!strokes)
        return Outcome::NoKnownKeys;
    bool isSent = false;
    const bool hasRun = m_connection->run([&] {
        if (!m_keyboard)
            return;
        const XkbPointer<xkb_state> state(xkb_state_new(m_keymap.get()));
        sendModifiers(m_keyboard, state.get());
        for (const auto &[code, isPress] : *strokes) {
            zwp_virtual_keyboard_v1_key(m_keyboard, now(), code,
                                        isPress ? WL_KEYBOARD_KEY_STATE_PRESSED
                                                : WL_KEYBOARD_KEY_STATE_RELEASED);
            // The compositor leaves it to us to say what a key does to the modifiers.
            if (xkb_state_update_key(state.get(), code + kEvdevOffset,
                                     isPress ? XKB_KEY_DOWN : XKB_KEY_UP))
                sendModifiers(m_keyboard, state.get());
        }
        isSent = m_connection->roundTrip();
    });
    return hasRun && isSent ? Outcome::Sent : Outcome::Failed;
}

/// Keeps a keyboard on the seat that there is now.
void VirtualKeyboard::follow()
{
    void *seat = m_connection->versionOf(kInterface) > 0 ? m_connection->seat() : nullptr;
    if (seat == m_seat)
        return;
    end();
    m_seat = seat;
    if (m_seat)
        make();
    if (!m_isAvailable)
        qCWarning(lcKeys, "There is no keyboard to type on any more");
}

void VirtualKeyboard::make()
{
    auto *manager = m_connection->bind<zwp_virtual_keyboard_manager_v1>(
        zwp_virtual_keyboard_manager_v1_interface, 1);
    m_keyboard =
        zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(manager, m_connection->seat());
    zwp_virtual_keyboard_manager_v1_destroy(manager);
    if (sendKeymap())
        m_isAvailable = true;
    else
        end();
}

void VirtualKeyboard::end()
{
    m_isAvailable = false;
    if (m_keyboard)
        zwp_virtual_keyboard_v1_destroy(std::exchange(m_keyboard, nullptr));
}

bool VirtualKeyboard::sendKeymap() const
{
    if (!m_keymap)
        return false;
    const std::unique_ptr<char, decltype(&std::free)> text(
        xkb_keymap_get_as_string(m_keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1), &std::free);
    const std::size_t size = std::strlen(text.get()) + 1;
    const int file = memfd_create("keymap", MFD_CLOEXEC);
    const bool isWritten = file >= 0 && write(file, text.get(), size) == static_cast<ssize_t>(size);
    if (isWritten)
        zwp_virtual_keyboard_v1_keymap(m_keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file,
                                       quint32(size));
    if (file >= 0)
        close(file);
    return isWritten;
}
