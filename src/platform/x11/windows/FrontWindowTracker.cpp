#include "platform/x11/windows/FrontWindowTracker.h"

#include "platform/x11/QtX11Connection.h"

#include <unistd.h>

FrontWindowTracker::FrontWindowTracker(const X11Connection &connection,
                                       const ApplicationNames &names)
    : m_connection(connection), m_names(names), m_activeWindow(connection)
{
    const auto atoms = connection.atoms({"_NET_ACTIVE_WINDOW", "_NET_SUPPORTING_WM_CHECK"});
    m_activeWindowAtom = atoms[0];
    m_managerAtom = atoms[1];
}

void FrontWindowTracker::start()
{
    const quint32 events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK,
                                 &events);
    update();
}

void FrontWindowTracker::handle(const xcb_property_notify_event_t &event)
{
    // The second is written by a window manager that starts. What the one before it said of the
    // active window is void then.
    if (event.atom == m_activeWindowAtom || event.atom == m_managerAtom)
        update();
}

FrontWindowTracker::Question FrontWindowTracker::askAtCopy(xcb_window_t owner)
{
    // Without a window manager nobody announces who is in front.
    if (!m_isManaged)
        update();
    // Asked and not waited for: the copy itself has to be asked for at once, and the answers are
    // there by the time it has come.
    Question question;
    question.seen = m_seen;
    question.isOurs = m_seen.isThere && isQtWindow(m_seen.window);
    question.isShown =
        m_seen.isThere && (!question.isOurs || m_activeWindow.isShown(m_seen.window));
    question.last = m_last;
    if (m_seen.window != XCB_NONE) {
        question.leader =
            m_connection.ask(m_seen.window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW);
        question.windowClass =
            m_connection.ask(m_seen.namingWindow, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING);
    }
    if (!question.isShown || m_seen.name.isEmpty())
        question.owner = m_activeWindow.ask(owner);
    xcb_flush(m_connection.get());
    return question;
}

FrontWindowTracker::Front FrontWindowTracker::answer(Question question)
{
    if (hasChanged(question)) {
        const bool isStillInFront = question.seen.window == m_seen.window;
        question.seen = look(question.seen.window);
        question.isShown = question.isShown && question.seen.isThere;
        if (isStillInFront) {
            m_seen = question.seen;
            remember();
        }
    }
    if (question.isShown && !question.seen.name.isEmpty())
        return {question.seen.name, question.isOurs};
    const QString name = question.owner ? nameOf(*question.owner) : QString();
    return {name.isEmpty() && !question.isShown ? question.last.nameWhileItRuns() : name, false};
}

void FrontWindowTracker::update()
{
    m_isManaged = m_activeWindow.isManaged();
    m_seen = look(m_activeWindow.current());
    remember();
}

FrontWindowTracker::Seen FrontWindowTracker::look(xcb_window_t window) const
{
    Seen seen;
    seen.window = window;
    seen.leader = m_connection.firstOf(window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW);
    seen.namingWindow = m_activeWindow.namingWindowOf(window);
    seen.windowClass = m_connection.property(seen.namingWindow, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING);
    const std::optional<WindowIdentity> identity = m_activeWindow.identityOf(seen.namingWindow);
    seen.isThere = identity.has_value();
    seen.name = identity ? m_names.identify(*identity).name : QString();
    return seen;
}

void FrontWindowTracker::remember()
{
    if (!m_seen.name.isEmpty())
        m_last.remember(m_seen.name, m_activeWindow.ask(m_seen.namingWindow).processId());
}

bool FrontWindowTracker::hasChanged(Question &question)
{
    if (!question.leader)
        return false;
    // Some applications tell their class only once they are in front. A dead window has none.
    const bool hasOtherLeader = question.leader->first() != question.seen.leader;
    const QByteArray windowClass = question.windowClass->value();
    return hasOtherLeader || windowClass.isEmpty() || windowClass != question.seen.windowClass;
}

QString FrontWindowTracker::nameOf(WindowQuestion &owner) const
{
    const std::optional<WindowIdentity> identity = owner.identity();
    const bool isOurs = identity && owner.processId() == static_cast<quint32>(getpid());
    return identity && !isOurs ? m_names.identify(*identity).name : QString();
}
