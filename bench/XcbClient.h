#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

/// What the probe and the bare reference both say to the X server, so that they differ in nothing
/// but what is measured.

template <typename T>
struct Free
{
    void operator()(T *pointer) const { std::free(pointer); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free<T>>;

// X key codes by position (evdev + 8).
constexpr xcb_keycode_t kKeyV = 55;
constexpr xcb_keycode_t kKeySuper = 133;
constexpr xcb_keycode_t kKeyShift = 50;
constexpr xcb_keycode_t kKeyControl = 37;
constexpr xcb_keycode_t kKeyReturn = 36;
constexpr xcb_keycode_t kKeyEscape = 9;
constexpr xcb_keycode_t kKeyBackspace = 22;

/// XCB_ATOM_NONE when the server does not answer.
inline xcb_atom_t atom(xcb_connection_t *connection, const char *name)
{
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<uint16_t>(std::strlen(name)), name),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

/// The bytes that a selection's owner left in `property`, which is deleted; empty when nothing is
/// there.
inline std::string takeProperty(xcb_connection_t *connection, xcb_window_t window,
                                xcb_atom_t property)
{
    const Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(
        connection, xcb_get_property(connection, 1, window, property, XCB_ATOM_ANY, 0, 1 << 20),
        nullptr));
    std::string bytes;
    if (reply)
        bytes.assign(static_cast<char *>(xcb_get_property_value(reply.get())),
                     static_cast<size_t>(xcb_get_property_value_length(reply.get())));
    return bytes;
}

/// Tells the requestor that `property` holds its answer, or with XCB_ATOM_NONE that there is none.
inline void notify(xcb_connection_t *connection, const xcb_selection_request_event_t &request,
                   xcb_atom_t property)
{
    xcb_selection_notify_event_t event{};
    event.response_type = XCB_SELECTION_NOTIFY;
    event.time = request.time;
    event.requestor = request.requestor;
    event.selection = request.selection;
    event.target = request.target;
    event.property = property;
    xcb_send_event(connection, 0, request.requestor, 0, reinterpret_cast<char *>(&event));
    xcb_flush(connection);
}
