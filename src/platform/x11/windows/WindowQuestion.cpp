#include "platform/x11/windows/WindowQuestion.h"

#include "platform/x11/windows/ClientProcess.h"

#include <QList>
#include <QSysInfo>

WindowQuestion::Atoms WindowQuestion::atoms(const X11Connection &connection)
{
    const auto atoms = connection.atoms(
        {"_NET_WM_PID", "WM_CLIENT_MACHINE", "_GTK_APPLICATION_ID", "UTF8_STRING"});
    return {atoms[0], atoms[1], atoms[2], atoms[3]};
}

WindowQuestion::WindowQuestion(const X11Connection &connection, const Atoms &atoms,
                               xcb_window_t window)
    // All on their way at once: answered one by one they would hold up each copy.
    : m_exists(connection.get(), xcb_get_window_attributes(connection.get(), window)),
      m_class(connection.ask(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING)),
      m_gtkApplicationId(connection.ask(window, atoms.gtkApplicationId, atoms.utf8)),
      m_machine(connection.ask(window, atoms.clientMachine, XCB_ATOM_ANY)),
      m_processId(connection.ask(window, atoms.processId, XCB_ATOM_CARDINAL)),
      m_clientIds(askClientIds(connection.get(), window))
{
}

std::optional<WindowQuestion::ClientIds> WindowQuestion::askClientIds(xcb_connection_t *connection,
                                                                      xcb_window_t window)
{
    // Asked without the extension, the connection would be shut down.
    const xcb_query_extension_reply_t *extension = xcb_get_extension_data(connection, &xcb_res_id);
    if (!extension || !extension->present)
        return std::nullopt;
    const xcb_res_client_id_spec_t asked{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    return ClientIds(connection, xcb_res_query_client_ids(connection, 1, &asked));
}

quint32 WindowQuestion::processId()
{
    if (m_knownProcessId)
        return *m_knownProcessId;
    // By EWMH _NET_WM_PID counts only together with WM_CLIENT_MACHINE: a number of another machine
    // names a stranger here.
    const QByteArray machine = m_machine.value();
    const bool isHere = machine.isEmpty() || machine == QSysInfo::machineHostName().toLocal8Bit();
    const quint32 netWmPid = m_processId.first();
    m_knownProcessId = isHere && netWmPid != 0 ? netWmPid : clientProcessId();
    return *m_knownProcessId;
}

std::optional<WindowIdentity> WindowQuestion::identity()
{
    if (!m_exists.take(xcb_get_window_attributes_reply))
        return std::nullopt;
    WindowIdentity identity;
    // ICCCM 4.1.2.5: the instance and the class, in Latin-1, each ended by a zero.
    const QList<QByteArray> names = m_class.value().split('\0');
    identity.resourceName = QString::fromLatin1(names.value(0));
    identity.resourceClass = QString::fromLatin1(names.value(1));
    identity.gtkApplicationId = QString::fromUtf8(m_gtkApplicationId.value());
    identity.processName = ClientProcess::nameOf(processId());
    identity.programPath = ClientProcess::programOf(processId());
    return identity;
}

quint32 WindowQuestion::clientProcessId()
{
    if (!m_clientIds)
        return 0;
    const auto reply = m_clientIds->take(xcb_res_query_client_ids_reply);
    if (!reply)
        return 0;
    // Empty for a client of another machine.
    const auto ids = xcb_res_query_client_ids_ids_iterator(reply.get());
    return ids.rem > 0 && xcb_res_client_id_value_value_length(ids.data) > 0
               ? *xcb_res_client_id_value_value(ids.data)
               : 0;
}
