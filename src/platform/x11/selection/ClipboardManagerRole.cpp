#include "platform/x11/selection/ClipboardManagerRole.h"

#include "platform/x11/selection/SelectionConnection.h"

#include <utility>

ClipboardManagerRole::ClipboardManagerRole(SelectionConnection &connection,
                                           std::chrono::milliseconds patience,
                                           std::function<Safety(xcb_window_t)> safety)
    : m_connection(connection), m_patience(patience), m_safety(std::move(safety))
{
}

void ClipboardManagerRole::start()
{
    const xcb_atom_t selection = m_connection.atoms().clipboardManager;
    // Watched before it is asked for, so that no change falls between the two.
    m_connection.watchOwner(selection, true);
    // There is one manager a session. One that was here first stays it: it may keep copies of
    // applications that have ended on its word.
    if (m_connection.owner(selection) == XCB_WINDOW_NONE)
        claim();
}

void ClipboardManagerRole::handle(const xcb_xfixes_selection_notify_event_t &event)
{
    if (event.owner == XCB_WINDOW_NONE)
        claim();
    else if (event.owner == m_connection.window())
        announce(event.selection_timestamp);
}

void ClipboardManagerRole::handle(const xcb_selection_request_event_t &request)
{
    const SelectionAtoms &atoms = m_connection.atoms();
    if (request.target == atoms.saveTargets) {
        // The application that asks waits for the answer and ends with it. It may wait until its
        // copy is here, but not for ever.
        if (!save(request))
            m_waiting.append({request, m_connection.now() + m_patience});
        return;
    }
    // ICCCM 2.2: a client of old names no property and means the one called like the target.
    const xcb_atom_t property =
        request.property != XCB_ATOM_NONE ? request.property : request.target;
    // ICCCM 2.6.2 requires these answers of the owner of any selection.
    if (request.target == atoms.targets)
        m_connection.replace(request.requestor, property, XCB_ATOM_ATOM,
                             QList<quint32>{atoms.targets, atoms.timestamp, atoms.saveTargets});
    else if (request.target == atoms.timestamp)
        m_connection.replace(request.requestor, property, XCB_ATOM_INTEGER, QList<quint32>{m_time});
    else {
        m_connection.answer(request, XCB_ATOM_NONE);
        return;
    }
    m_connection.answer(request, property);
}

void ClipboardManagerRole::answerWaiting()
{
    m_waiting.removeIf([this](const Waiting &waiting) { return save(waiting.request); });
}

std::optional<std::chrono::steady_clock::time_point>
ClipboardManagerRole::keepDeadlines(std::chrono::steady_clock::time_point now)
{
    while (!m_waiting.isEmpty() && m_waiting.first().until <= now)
        finish(m_waiting.takeFirst().request, false);
    return m_waiting.isEmpty() ? std::nullopt : std::optional(m_waiting.first().until);
}

bool ClipboardManagerRole::requestSave(const QList<xcb_atom_t> &targets, xcb_timestamp_t time)
{
    const SelectionAtoms &atoms = m_connection.atoms();
    const xcb_window_t owner = m_connection.owner(atoms.clipboardManager);
    if (owner == XCB_WINDOW_NONE || owner == m_connection.window())
        return false;
    // The manager reads from here which formats it is to take over, and asks us for each of them:
    // we serve on until it has answered.
    m_connection.replace(m_connection.window(), atoms.saveTargets, XCB_ATOM_ATOM, targets);
    xcb_convert_selection(m_connection.xcb(), m_connection.window(), atoms.clipboardManager,
                          atoms.saveTargets, atoms.saveTargets, time);
    return true;
}

bool ClipboardManagerRole::isSaveAnswer(const xcb_selection_notify_event_t &event) const
{
    return event.selection == m_connection.atoms().clipboardManager &&
           event.target == m_connection.atoms().saveTargets;
}

void ClipboardManagerRole::claim()
{
    // ICCCM 2.1 wants the time of an event. None leads to this, and the time that the server took
    // comes with its own event.
    xcb_set_selection_owner(m_connection.xcb(), m_connection.window(),
                            m_connection.atoms().clipboardManager, XCB_CURRENT_TIME);
}

void ClipboardManagerRole::announce(xcb_timestamp_t time)
{
    // ICCCM 2.8: who waits for a manager listens on the root window for this message, which tells
    // the time, the selection and the window of its owner.
    m_time = time;
    xcb_client_message_event_t event = {};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = m_connection.server().root();
    event.type = m_connection.atoms().manager;
    event.data.data32[0] = time;
    event.data.data32[1] = m_connection.atoms().clipboardManager;
    event.data.data32[2] = m_connection.window();
    xcb_send_event(m_connection.xcb(), 0, event.window, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&event));
}

bool ClipboardManagerRole::save(const xcb_selection_request_event_t &request)
{
    // Which formats the application lists does not matter: all that can be kept are.
    const Safety safety = m_safety(request.requestor);
    if (safety == Safety::BeingRead)
        return false;
    finish(request, safety == Safety::Saved);
    return true;
}

void ClipboardManagerRole::finish(const xcb_selection_request_event_t &request, bool isDone)
{
    const xcb_atom_t property =
        request.property != XCB_ATOM_NONE ? request.property : request.target;
    // An order has no value to give: ICCCM 2.6.3 answers it with nothing, of type NULL. A refusal
    // has no property, and keeps the application from ending in the belief that its copy lives on.
    if (isDone)
        m_connection.replace(request.requestor, property, m_connection.atoms().null, QByteArray());
    m_connection.answer(request, isDone ? property : xcb_atom_t(XCB_ATOM_NONE));
}
