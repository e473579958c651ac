#include "platform/x11/windows/StartupNotice.h"

#include "platform/x11/X11Connection.h"

#include <algorithm>
#include <cstring>

namespace {

/// `id` as a value of the protocol, in which quotes keep spaces together.
QByteArray quoted(QByteArray id)
{
    return '"' + id.replace('\\', "\\\\").replace('"', "\\\"") + '"';
}

} // namespace

void sendStartupEnd(const X11Connection &connection, xcb_window_t window, const QByteArray &id)
{
    const auto [begin, more] = connection.atoms({"_NET_STARTUP_INFO_BEGIN", "_NET_STARTUP_INFO"});
    // The zero at its end tells that it is complete.
    const QByteArray text = "remove: ID=" + quoted(id) + '\0';
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 8;
    // It sends nothing itself: listeners join the messages of one text by it.
    message.window = window;
    message.type = begin;
    constexpr qsizetype kPart = sizeof message.data.data8;
    for (qsizetype at = 0; at < text.size(); at += kPart) {
        std::memset(message.data.data8, 0, kPart);
        std::memcpy(message.data.data8, text.constData() + at,
                    static_cast<size_t>(std::min(kPart, text.size() - at)));
        xcb_send_event(connection.get(), 0, connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE,
                       reinterpret_cast<const char *>(&message));
        message.type = more;
    }
    xcb_flush(connection.get());
}
