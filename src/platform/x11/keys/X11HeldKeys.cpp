#include "platform/x11/keys/X11HeldKeys.h"

#include <QByteArrayView>

#include <xcb/xinput.h>

#include <vector>

namespace {

constexpr uint16_t kNeededMajor = 2;
/// Since 2.1 raw events come while another client has the keyboard, too.
constexpr uint16_t kNeededMinor = 1;

X11HeldKeys::Keys keysDown(xcb_input_query_device_state_reply_t &state)
{
    X11HeldKeys::Keys down;
    xcb_input_input_state_iterator_t classes =
        xcb_input_query_device_state_classes_iterator(&state);
    for (; classes.rem > 0; xcb_input_input_state_next(&classes)) {
        if (classes.data->class_id != XCB_INPUT_INPUT_CLASS_KEY)
            continue;
        const auto *keys = reinterpret_cast<const xcb_input_key_state_t *>(classes.data);
        for (size_t keycode = 0; keycode < down.size(); ++keycode)
            down[keycode] = keys->keys[keycode / 8] & (1U << (keycode % 8));
    }
    return down;
}

/// Whether what programs type with the test extension comes from the device.
bool isForPrograms(const xcb_input_xi_device_info_t &device)
{
    return QByteArrayView(xcb_input_xi_device_info_name(&device), device.name_len)
        .contains("XTEST");
}

} // namespace

X11HeldKeys::X11HeldKeys(const X11Connection &connection) : m_connection(connection)
{
    if (connection.isBroken())
        return;
    const xcb_query_extension_reply_t *extension =
        xcb_get_extension_data(connection.get(), &xcb_input_id);
    if (!extension || !extension->present)
        return;
    const auto cookie = xcb_input_xi_query_version(connection.get(), kNeededMajor, kNeededMinor);
    const XcbPointer<xcb_input_xi_query_version_reply_t> version(
        xcb_input_xi_query_version_reply(connection.get(), cookie, nullptr));
    if (version && version->major_version >= kNeededMajor &&
        (version->major_version > kNeededMajor || version->minor_version >= kNeededMinor))
        m_opcode = extension->major_opcode;
}

X11HeldKeys::Keys X11HeldKeys::down(bool withPrograms) const
{
    if (m_opcode == 0)
        return {};
    xcb_connection_t *xcb = m_connection.get();
    const XcbPointer<xcb_input_xi_query_device_reply_t> devices(xcb_input_xi_query_device_reply(
        xcb, xcb_input_xi_query_device(xcb, XCB_INPUT_DEVICE_ALL), nullptr));
    if (!devices)
        return {};
    // Each device by itself: the master, as the core keymap, mixes fingers and XTEST. A floating
    // one has left its master, but may have a key down.
    std::vector<xcb_input_query_device_state_cookie_t> cookies;
    xcb_input_xi_device_info_iterator_t device =
        xcb_input_xi_query_device_infos_iterator(devices.get());
    for (; device.rem > 0; xcb_input_xi_device_info_next(&device)) {
        const uint16_t type = device.data->type;
        const bool isKeyboard = type == XCB_INPUT_DEVICE_TYPE_SLAVE_KEYBOARD ||
                                type == XCB_INPUT_DEVICE_TYPE_FLOATING_SLAVE;
        if (isKeyboard && (withPrograms || !isForPrograms(*device.data)))
            cookies.push_back(xcb_input_query_device_state(xcb, uint8_t(device.data->deviceid)));
    }
    Keys down;
    for (const auto &cookie : cookies) {
        const XcbPointer<xcb_input_query_device_state_reply_t> state(
            xcb_input_query_device_state_reply(xcb, cookie, nullptr));
        if (state)
            down |= keysDown(*state);
    }
    return down;
}

void X11HeldKeys::setListening(bool isListening)
{
    if (m_opcode == 0 || isListening == m_isListening)
        return;
    // Only while it matters: it wakes us at each key that anybody lets go of.
    m_isListening = isListening;
    struct
    {
        xcb_input_event_mask_t head;
        uint32_t mask;
    } selection = {{XCB_INPUT_DEVICE_ALL_MASTER, 1},
                   isListening ? uint32_t(XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE) : 0U};
    xcb_input_xi_select_events(m_connection.get(), m_connection.root(), 1, &selection.head);
}

std::optional<xcb_timestamp_t> X11HeldKeys::releaseTime(const xcb_generic_event_t &event) const
{
    if (m_opcode == 0 || event.response_type != XCB_GE_GENERIC)
        return std::nullopt;
    const auto &generic = reinterpret_cast<const xcb_ge_generic_event_t &>(event);
    if (generic.extension != m_opcode || generic.event_type != XCB_INPUT_RAW_KEY_RELEASE)
        return std::nullopt;
    return reinterpret_cast<const xcb_input_raw_key_release_event_t &>(event).time;
}
