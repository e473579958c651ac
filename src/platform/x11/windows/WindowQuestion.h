#pragma once

#include "platform/ApplicationNames.h"
#include "platform/x11/X11Connection.h"

#include <xcb/res.h>

#include <optional>

/// What a window tells of its program, asked in one go: the server can work on it, and the window
/// may be gone, before the answer is collected. Not safe from two threads.
class WindowQuestion
{
public:
    struct Atoms
    {
        xcb_atom_t processId, clientMachine, gtkApplicationId, utf8;
    };
    static Atoms atoms(const X11Connection &connection);

    /// Sends the question; `connection` must outlive this object. No window tells nothing.
    WindowQuestion(const X11Connection &connection, const Atoms &atoms, xcb_window_t window);

    /// The process of this machine that the window belongs to; 0 when it cannot be told.
    quint32 processId();

    /// Absent when the window did not exist. A window that was made for nothing but to own a
    /// selection has at least a process.
    std::optional<WindowIdentity> identity();

private:
    using ClientIds =
        PendingReply<xcb_res_query_client_ids_cookie_t, xcb_res_query_client_ids_reply_t>;
    static std::optional<ClientIds> askClientIds(xcb_connection_t *connection, xcb_window_t window);
    quint32 clientProcessId();

    PendingReply<xcb_get_window_attributes_cookie_t, xcb_get_window_attributes_reply_t> m_exists;
    PendingProperty m_class;
    PendingProperty m_gtkApplicationId;
    PendingProperty m_machine;
    PendingProperty m_processId;
    std::optional<ClientIds> m_clientIds;
    std::optional<quint32> m_knownProcessId;
};
