#include "platform/x11/X11ActiveWindow.h"

#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

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
    identity.processName = processNameOf(window);
    return identity;
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
    const XcbPointer<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        m_connection.get(), xcb_get_window_attributes(m_connection.get(), window), nullptr));
    return reply != nullptr;
}

QString X11ActiveWindow::processNameOf(xcb_window_t window) const
{
    // A process number of another machine names a stranger here.
    const QByteArray machine = m_connection.property(window, m_atoms.clientMachine, XCB_ATOM_ANY);
    if (!machine.isEmpty() && machine != QSysInfo::machineHostName().toLocal8Bit())
        return {};
    const quint32 processId = m_connection.firstOf(window, m_atoms.processId, XCB_ATOM_CARDINAL);
    if (processId == 0)
        return {};
    QString program = QFile::symLinkTarget(QStringLiteral("/proc/%1/exe").arg(processId));
    // Said of a program that was upgraded while it runs.
    constexpr QLatin1String kDeleted(" (deleted)");
    if (program.endsWith(kDeleted))
        program.chop(kDeleted.size());
    return QFileInfo(program).fileName();
}
