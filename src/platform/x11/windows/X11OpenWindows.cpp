#include "platform/x11/windows/X11OpenWindows.h"

#include <QCoreApplication>

X11OpenWindows::X11OpenWindows() : m_clientList(m_connection.atoms({"_NET_CLIENT_LIST"})[0]) {}

QList<WindowIdentity> X11OpenWindows::identities() const
{
    // The list of a window manager that has died stays behind.
    const std::vector<xcb_window_t> windows =
        m_windows.isManaged()
            ? m_connection.elements(m_connection.root(), m_clientList, XCB_ATOM_WINDOW)
            : shownWithoutManager();
    const auto own = static_cast<quint32>(QCoreApplication::applicationPid());
    QList<WindowIdentity> identities;
    for (const xcb_window_t window : windows) {
        if (m_windows.ask(window).processId() == own)
            continue;
        if (const auto identity = m_windows.identityOf(m_windows.namingWindowOf(window)))
            identities.append(*identity);
    }
    return identities;
}

std::vector<xcb_window_t> X11OpenWindows::shownWithoutManager() const
{
    const XcbPointer<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
        m_connection.get(), xcb_query_tree(m_connection.get(), m_connection.root()), nullptr));
    std::vector<xcb_window_t> shown;
    if (!tree)
        return shown;
    const xcb_window_t *children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        // Nobody has put them into frames, so they are on the root window itself, beside menus and
        // helpers, which have no class.
        const bool hasClass =
            !m_connection.property(children[i], XCB_ATOM_WM_CLASS, XCB_ATOM_STRING).isEmpty();
        if (hasClass && m_windows.isShown(children[i]))
            shown.push_back(children[i]);
    }
    return shown;
}
