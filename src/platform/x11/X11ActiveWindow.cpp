#include "platform/x11/X11ActiveWindow.h"

#include "platform/x11/ClientProcess.h"

#include <QList>
#include <QSysInfo>

#include <xcb/res.h>

namespace {

/// Dialogs of dialogs; no more, because two windows may say that each is for the other.
constexpr int kMostTransients = 8;

} // namespace

X11ActiveWindow::X11ActiveWindow(const X11Connection &connection) : m_connection(connection)
{
    const auto atoms =
        connection.atoms({"_NET_ACTIVE_WINDOW", "_NET_SUPPORTING_WM_CHECK", "_NET_WM_PID",
                          "WM_CLIENT_MACHINE", "_GTK_APPLICATION_ID", "UTF8_STRING"});
    m_atoms = {atoms[0], atoms[1], atoms[2], atoms[3], atoms[4], atoms[5]};
}

xcb_window_t X11ActiveWindow::current() const
{
    if (isManaged())
        return m_connection.firstOf(m_connection.root(), m_atoms.activeWindow, XCB_ATOM_WINDOW);
    // The focus may be on a part of a window; the class hint stands on the whole.
    xcb_window_t top = XCB_NONE;
    for (xcb_window_t window = inputFocus(); window != XCB_NONE && window != m_connection.root();
         window = parentOf(window)) {
        top = window;
        if (!m_connection.property(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING).isEmpty())
            break;
    }
    return top;
}

bool X11ActiveWindow::isManaged() const
{
    const xcb_window_t manager =
        m_connection.firstOf(m_connection.root(), m_atoms.supportingCheck, XCB_ATOM_WINDOW);
    return manager != XCB_NONE &&
           m_connection.firstOf(manager, m_atoms.supportingCheck, XCB_ATOM_WINDOW) == manager;
}

bool X11ActiveWindow::hasInputFocus(xcb_window_t window) const
{
    xcb_window_t focus = inputFocus();
    while (focus != XCB_NONE && focus != m_connection.root() && focus != window)
        focus = parentOf(focus);
    return focus == window && focus != XCB_NONE;
}

std::optional<WindowIdentity> X11ActiveWindow::identityOf(xcb_window_t window) const
{
    if (window == XCB_NONE || !exists(window))
        return std::nullopt;
    WindowIdentity identity;
    const QList<QByteArray> names =
        m_connection.property(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING).split('\0');
    identity.resourceName = QString::fromLatin1(names.value(0));
    identity.resourceClass = QString::fromLatin1(names.value(1));
    identity.gtkApplicationId =
        QString::fromUtf8(m_connection.property(window, m_atoms.gtkApplicationId, m_atoms.utf8));
    const quint32 processId = processIdOf(window);
    identity.processName = ClientProcess::nameOf(processId);
    identity.programPath = ClientProcess::programOf(processId);
    return identity;
}

xcb_window_t X11ActiveWindow::namingWindowOf(xcb_window_t window) const
{
    for (int i = 0; i < kMostTransients; ++i) {
        const xcb_window_t leader =
            m_connection.firstOf(window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW);
        // A dialog of the whole group says that it is for the root window.
        if (leader == XCB_NONE || leader == m_connection.root() || !exists(leader))
            break;
        window = leader;
    }
    return window;
}

quint32 X11ActiveWindow::processIdOf(xcb_window_t window) const
{
    // A process number of another machine names a stranger here.
    const QByteArray machine = m_connection.property(window, m_atoms.clientMachine, XCB_ATOM_ANY);
    if (machine.isEmpty() || machine == QSysInfo::machineHostName().toLocal8Bit()) {
        const quint32 told = m_connection.firstOf(window, m_atoms.processId, XCB_ATOM_CARDINAL);
        if (told != 0)
            return told;
    }
    return clientProcessIdOf(window);
}

xcb_window_t X11ActiveWindow::inputFocus() const
{
    const XcbPointer<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
        m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
    return reply && reply->focus != XCB_INPUT_FOCUS_POINTER_ROOT ? reply->focus
                                                                 : xcb_window_t(XCB_NONE);
}

xcb_window_t X11ActiveWindow::parentOf(xcb_window_t window) const
{
    const XcbPointer<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(
        m_connection.get(), xcb_query_tree(m_connection.get(), window), nullptr));
    return reply ? reply->parent : xcb_window_t(XCB_NONE);
}

bool X11ActiveWindow::exists(xcb_window_t window) const
{
    return mapStateOf(window).has_value();
}

bool X11ActiveWindow::isShown(xcb_window_t window) const
{
    return mapStateOf(window) == XCB_MAP_STATE_VIEWABLE;
}

std::optional<quint8> X11ActiveWindow::mapStateOf(xcb_window_t window) const
{
    const XcbPointer<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        m_connection.get(), xcb_get_window_attributes(m_connection.get(), window), nullptr));
    return reply ? std::optional(reply->map_state) : std::nullopt;
}

quint32 X11ActiveWindow::clientProcessIdOf(xcb_window_t window) const
{
    // Asked without the extension, the connection would be shut down.
    const xcb_query_extension_reply_t *extension =
        xcb_get_extension_data(m_connection.get(), &xcb_res_id);
    if (!extension || !extension->present)
        return 0;
    const xcb_res_client_id_spec_t asked{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const XcbPointer<xcb_res_query_client_ids_reply_t> reply(xcb_res_query_client_ids_reply(
        m_connection.get(), xcb_res_query_client_ids(m_connection.get(), 1, &asked), nullptr));
    if (!reply)
        return 0;
    // Empty for a client of another machine.
    const auto ids = xcb_res_query_client_ids_ids_iterator(reply.get());
    return ids.rem > 0 && xcb_res_client_id_value_value_length(ids.data) > 0
               ? *xcb_res_client_id_value_value(ids.data)
               : 0;
}
