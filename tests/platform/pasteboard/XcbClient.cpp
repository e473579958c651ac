#include "platform/pasteboard/XcbClient.h"

#include "platform/x11/X11Connection.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <algorithm>
#include <cstring>

#include <poll.h>

XcbClient::XcbClient() : m_connection(xcb_connect(nullptr, nullptr))
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    m_window = xcb_generate_id(m_connection);
    const quint32 events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection, 0, m_window, root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
}

XcbClient::~XcbClient()
{
    die();
}

void XcbClient::die()
{
    if (!m_connection)
        return;
    // What was sent must have reached the server: a socket that is closed over unread events may
    // take it along.
    owner("CLIPBOARD");
    xcb_disconnect(m_connection);
    m_connection = nullptr;
}

xcb_atom_t XcbClient::atom(const QByteArray &name)
{
    xcb_atom_t &atom = m_atoms[name];
    if (atom == XCB_ATOM_NONE) {
        const XcbPointer<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            m_connection, xcb_intern_atom(m_connection, 0, quint16(name.size()), name.constData()),
            nullptr));
        atom = reply->atom;
    }
    return atom;
}

void XcbClient::own(const QByteArray &selection, const Formats &formats)
{
    m_owned[atom(selection)] = formats;
    xcb_set_selection_owner(m_connection, m_window, atom(selection), XCB_CURRENT_TIME);
    owner(selection);
}

void XcbClient::disown(const QByteArray &selection)
{
    m_owned.remove(atom(selection));
    xcb_set_selection_owner(m_connection, XCB_WINDOW_NONE, atom(selection), XCB_CURRENT_TIME);
    owner(selection);
}

xcb_window_t XcbClient::owner(const QByteArray &selection)
{
    const XcbPointer<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, atom(selection)), nullptr));
    return reply->owner;
}

void XcbClient::ask(const QByteArray &selection, const QByteArray &target,
                    const QByteArray &property)
{
    m_asked = atom(property);
    m_isAnswered = m_isGranted = m_isGrowing = false;
    m_takenPieces = 0;
    m_grown.clear();
    m_answer.reset();
    xcb_convert_selection(m_connection, m_window, atom(selection), atom(target), m_asked,
                          XCB_CURRENT_TIME);
    xcb_flush(m_connection);
}

void XcbClient::setProperty(const QByteArray &property, const QList<quint32> &atoms)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, atom(property),
                        atom("ATOM_PAIR"), 32, quint32(atoms.size()), atoms.constData());
}

void XcbClient::askMultiple(const QList<QByteArray> &targetsAndProperties)
{
    QList<quint32> atoms;
    for (const QByteArray &name : targetsAndProperties)
        atoms.append(atom(name));
    setProperty("PAIRS", atoms);
    ask("CLIPBOARD", "MULTIPLE", "PAIRS");
}

QByteArray XcbClient::property(const QByteArray &name)
{
    return read(atom(name), false);
}

QList<QByteArray> XcbClient::atomNames(const QByteArray &atoms)
{
    QList<QByteArray> names;
    for (qsizetype i = 0; i + 4 <= atoms.size(); i += 4) {
        xcb_atom_t atom = 0;
        std::memcpy(&atom, atoms.constData() + i, sizeof atom);
        const XcbPointer<xcb_get_atom_name_reply_t> reply(
            xcb_get_atom_name_reply(m_connection, xcb_get_atom_name(m_connection, atom), nullptr));
        names.append(reply ? QByteArray(xcb_get_atom_name_name(reply.get()),
                                        xcb_get_atom_name_name_length(reply.get()))
                           : QByteArray());
    }
    return names;
}

bool XcbClient::isWatchedByOthers()
{
    const XcbPointer<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        m_connection, xcb_get_window_attributes(m_connection, m_window), nullptr));
    return (reply->all_event_masks & XCB_EVENT_MASK_STRUCTURE_NOTIFY) != 0;
}

void XcbClient::pump()
{
    while (m_connection) {
        const XcbPointer<xcb_generic_event_t> event(xcb_poll_for_event(m_connection));
        if (!event)
            break;
        const int type = event->response_type & 0x7F;
        if (type == XCB_SELECTION_REQUEST)
            serve(reinterpret_cast<const xcb_selection_request_event_t &>(*event));
        else if (type == XCB_SELECTION_NOTIFY)
            takeAnswer(reinterpret_cast<const xcb_selection_notify_event_t &>(*event));
        else if (type == XCB_PROPERTY_NOTIFY)
            sendPiece(reinterpret_cast<const xcb_property_notify_event_t &>(*event));
    }
    if (m_connection)
        xcb_flush(m_connection);
}

void XcbClient::serve(const xcb_selection_request_event_t &request)
{
    m_requests.append(m_atoms.key(request.target));
    if (!manners.hangsOn.isEmpty() && request.target == atom(manners.hangsOn))
        return;
    if (request.target == atom("SAVE_TARGETS") && save && !save())
        return;
    union {
        xcb_selection_notify_event_t notify;
        char bytes[32];
    } event = {};
    event.notify.response_type = XCB_SELECTION_NOTIFY;
    event.notify.time = request.time;
    event.notify.requestor = request.requestor;
    event.notify.selection = request.selection;
    event.notify.target = request.target;
    event.notify.property = put(request) ? request.property : xcb_atom_t(XCB_ATOM_NONE);
    xcb_send_event(m_connection, 0, request.requestor, 0, event.bytes);
}

bool XcbClient::put(const xcb_selection_request_event_t &request)
{
    const Formats formats = m_owned.value(request.selection);
    if (request.target == atom("TARGETS")) {
        QList<quint32> targets{atom("TARGETS")};
        for (const QByteArray &name : formats.keys())
            targets.append(atom(name));
        if (manners.listsTargets)
            xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor,
                                request.property, XCB_ATOM_ATOM, 32, quint32(targets.size()),
                                targets.constData());
        return manners.listsTargets;
    }
    const auto names = formats.keys();
    const auto name = std::find_if(names.begin(), names.end(), [&](const QByteArray &candidate) {
        return atom(candidate) == request.target;
    });
    if (name == names.end())
        return false;
    if (manners.refusals > 0) {
        --manners.refusals;
        return false;
    }
    const QByteArray data = formats[*name];
    if (data.size() <= manners.pieceBytes) {
        m_sentBytes += data.size();
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor,
                            request.property, request.target, 8, quint32(data.size()),
                            data.constData());
        return true;
    }
    const quint32 events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection, request.requestor, XCB_CW_EVENT_MASK, &events);
    const quint32 claimed = manners.claimedBytes.value_or(quint32(data.size()));
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor, request.property,
                        atom("INCR"), 32, 1, &claimed);
    m_sending.push_back({request.requestor, request.property, request.target, data});
    return true;
}

void XcbClient::sendPiece(const xcb_property_notify_event_t &event)
{
    if (event.window == m_window && event.atom == m_asked && m_isGrowing &&
        event.state == XCB_PROPERTY_NEW_VALUE)
        takePiece();
    if (event.window == m_window || event.state != XCB_PROPERTY_DELETE)
        return;
    const auto sending = std::find_if(m_sending.begin(), m_sending.end(), [&](const Sending &one) {
        return one.requestor == event.window && one.property == event.atom;
    });
    if (sending == m_sending.end() || sending->pieces == manners.stallsAfterPieces)
        return;
    if (sending->pieces == manners.diesAfterPieces) {
        die();
        return;
    }
    const QByteArray piece = sending->data.mid(sending->sent, manners.pieceBytes);
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, event.window, event.atom,
                        sending->type, 8, quint32(piece.size()), piece.constData());
    sending->sent += piece.size();
    ++sending->pieces;
    m_sentBytes += piece.size();
    if (piece.isEmpty())
        m_sending.erase(sending);
}

void XcbClient::takeAnswer(const xcb_selection_notify_event_t &event)
{
    m_isAnswered = true;
    m_isGranted = event.property != XCB_ATOM_NONE;
    if (!m_isGranted)
        return;
    const QByteArray data = read(m_asked, event.target != atom("MULTIPLE"));
    m_isGrowing = m_readType == atom("INCR");
    if (m_isGrowing)
        return;
    m_answer = data;
}

void XcbClient::takePiece()
{
    if (m_takenPieces == manners.takesPieces)
        return;
    const QByteArray piece = read(m_asked, true);
    if (m_readType == XCB_ATOM_NONE)
        return;
    ++m_takenPieces;
    m_grown += piece;
    if (piece.isEmpty()) {
        m_isGrowing = false;
        m_answer = m_grown;
    }
}

QByteArray XcbClient::read(xcb_atom_t property, bool isRemoved)
{
    const XcbPointer<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(m_connection,
                               xcb_get_property(m_connection, isRemoved, m_window, property,
                                                XCB_GET_PROPERTY_TYPE_ANY, 0, 0x1000000),
                               nullptr));
    m_readType = reply->type;
    m_answerType.clear();
    if (m_readType != XCB_ATOM_NONE) {
        const quint32 type = m_readType;
        m_answerType =
            atomNames(QByteArray(reinterpret_cast<const char *>(&type), sizeof type)).value(0);
    }
    return QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                      xcb_get_property_value_length(reply.get()));
}

bool pumpUntil(const QList<XcbClient *> &clients, const std::function<bool()> &isReached,
               double seconds)
{
    const QDeadlineTimer limit(qint64(seconds * 1000));
    for (;;) {
        QCoreApplication::processEvents();
        std::vector<pollfd> waits;
        for (XcbClient *client : clients) {
            client->pump();
            if (client->xcb())
                waits.push_back({xcb_get_file_descriptor(client->xcb()), POLLIN, 0});
        }
        if (isReached())
            return true;
        if (limit.hasExpired())
            return false;
        // Woken by a client's event; the main thread's own events are looked at each millisecond.
        poll(waits.data(), waits.size(), 1);
    }
}
