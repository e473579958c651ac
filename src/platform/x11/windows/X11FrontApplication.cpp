#include "platform/x11/windows/X11FrontApplication.h"

#include "platform/HotKeys.h"
#include "platform/x11/QtX11Connection.h"
#include "platform/x11/windows/StartupNotice.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

#include <poll.h>

#include <algorithm>
#include <cstdint>

namespace {

using Steady = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// Most window managers go back to the target by themselves within this.
constexpr milliseconds kPatience{60};
/// An activation this long after the hot key has another cause.
constexpr int32_t kHotKeyValidity = 2000;

constexpr uint32_t kSourceIsPager = 2; // in the name of the user, not of an application

void sendActivation(xcb_connection_t *xcb, xcb_window_t root, xcb_atom_t atom, xcb_window_t window,
                    xcb_timestamp_t time)
{
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom;
    // EWMH: as an ordinary application (source 1) we could be refused, by window managers that keep
    // windows from stealing the keyboard, however recent the time.
    message.data.data32[0] = kSourceIsPager;
    message.data.data32[1] = time;
    // To the root window with both masks, as EWMH has it: only the window manager gets those.
    xcb_send_event(xcb, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&message));
    xcb_flush(xcb);
}

} // namespace

X11FrontApplication::X11FrontApplication(const ApplicationNames &names, const HotKeys &hotKeys,
                                         QObject *parent)
    : FrontApplication(parent), m_names(names), m_active(m_connection),
      m_activeWindowAtom(m_connection.atoms({"_NET_ACTIVE_WINDOW"})[0]),
      m_timeWindow(xcb_generate_id(m_connection.get()))
{
    constexpr uint32_t kPropertyChanges = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection.get(), 0, m_timeWindow, m_connection.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &kPropertyChanges);
    connect(&hotKeys, &HotKeys::pressed, this,
            [this](const HotKeyEvent &event) { m_lastPress = event.timestamp; });
}

QString X11FrontApplication::applicationName() const
{
    const xcb_window_t active = m_active.current();
    const xcb_window_t window = m_active.namingWindowOf(active);
    const auto identity = m_active.identityOf(window);
    if (!identity || (isQtWindow(active) && !m_active.isShown(active)))
        return m_last.nameWhileItRuns();
    const QString name = m_names.identify(*identity).name;
    m_last.remember(name, m_active.ask(window).processId());
    return name;
}

bool X11FrontApplication::returnToTarget(milliseconds limit)
{
    aim();
    if (m_target == XCB_NONE)
        return false;
    if (xcb_connection_t *qt = qtX11Connection())
        xcb_flush(qt);
    // Asked before the events are awaited, because the answer is one itself.
    const xcb_timestamp_t time = serverTime();
    selectTargetEvents(true);
    const bool isBack = m_active.exists(m_target) && waitForTarget(limit, time);
    selectTargetEvents(false);
    return isBack;
}

void X11FrontApplication::activate(QWindow *window)
{
    xcb_connection_t *qt = qtX11Connection();
    if (!qt || !window)
        return;
    // Qt takes 400 ms to believe that a window which was hidden lost the keyboard, and tells nobody
    // when it gets it back meanwhile.
    QWidget *widget = QWidget::find(window->winId());
    if (widget && QGuiApplication::focusWindow() == window) {
        // activateWindow(), which newer versions of Qt name instead, only asks the window manager.
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        QApplication::setActiveWindow(widget);
        QT_WARNING_POP
    }
    m_pasteTarget.refresh();
    const xcb_timestamp_t time = userTime();
    const auto id = xcb_window_t(window->winId());
    // On Qt's connection, so that the server shows the window before it is asked for.
    if (m_active.isManaged()) {
        sendActivation(qt, m_connection.root(), m_activeWindowAtom, id, time);
        return;
    }
    xcb_set_input_focus(qt, XCB_INPUT_FOCUS_PARENT, id, time);
    xcb_flush(qt);
}

bool X11FrontApplication::isInFront(const QWindow &window) const
{
    return window.handle() && m_active.current() == window.winId();
}

void X11FrontApplication::endStartup(const QString &activationToken)
{
    if (!activationToken.isEmpty())
        sendStartupEnd(m_connection, m_timeWindow, activationToken.toUtf8());
}

/// Once for each return: what takes the front while it lasts is a stranger.
void X11FrontApplication::aim()
{
    if (m_ownTarget && m_ownTarget->isVisible()) {
        m_target = m_targetFocus = xcb_window_t(m_ownTarget->winId());
        return;
    }
    m_target = m_pasteTarget.window();
    m_targetFocus = m_pasteTarget.keyboardPlace();
}

bool X11FrontApplication::waitForTarget(milliseconds limit, xcb_timestamp_t time)
{
    const Steady::time_point start = Steady::now();
    const Steady::time_point deadline = start + limit;
    // Without a window manager nobody else gives the keyboard back.
    Steady::time_point askAt = start + (m_active.isManaged() ? kPatience : milliseconds(0));
    for (;;) {
        if (readEvents(xcb_poll_for_event) == Events::TargetDestroyed)
            return false;
        if (m_active.isInFrontWithFocus(m_target, m_targetFocus))
            return true;
        // A field of its own window that closed when it lost the keyboard.
        if (m_targetFocus != m_target && !m_active.isShown(m_targetFocus))
            return false;
        // What arrived along with the answers is off the socket, which stays silent about it.
        const Events meanwhile = readEvents(xcb_poll_for_queued_event);
        if (meanwhile == Events::TargetDestroyed)
            return false;
        if (meanwhile == Events::Other)
            continue;
        const Steady::time_point now = Steady::now();
        if (now >= deadline || m_connection.isBroken())
            return false;
        if (now >= askAt) {
            askForTarget(time);
            // Giving the window back does not give it to a field of its own.
            askAt = m_targetFocus == m_target ? Steady::time_point::max() : now + kPatience;
            continue;
        }
        const auto rest = std::chrono::ceil<milliseconds>(std::min(askAt, deadline) - now);
        xcb_flush(m_connection.get());
        pollfd readable = {xcb_get_file_descriptor(m_connection.get()), POLLIN, 0};
        poll(&readable, 1, int(rest.count()));
    }
}

X11FrontApplication::Events
X11FrontApplication::readEvents(xcb_generic_event_t *(*nextEvent)(xcb_connection_t *))
{
    Events events = Events::None;
    while (const XcbPointer<xcb_generic_event_t> event{nextEvent(m_connection.get())}) {
        const bool isDestroyed =
            typeOf(*event) == XCB_DESTROY_NOTIFY &&
            reinterpret_cast<const xcb_destroy_notify_event_t &>(*event).window == m_target;
        if (isDestroyed || events == Events::None)
            events = isDestroyed ? Events::TargetDestroyed : Events::Other;
    }
    return events;
}

void X11FrontApplication::askForTarget(xcb_timestamp_t time)
{
    if (m_active.isManaged() && (m_targetFocus == m_target || m_active.current() != m_target)) {
        sendActivation(m_connection.get(), m_connection.root(), m_activeWindowAtom, m_target, time);
        return;
    }
    xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_PARENT, m_targetFocus,
                        XCB_CURRENT_TIME);
}

void X11FrontApplication::selectTargetEvents(bool isSelected)
{
    const uint32_t onRoot = isSelected ? XCB_EVENT_MASK_PROPERTY_CHANGE : 0;
    const uint32_t onTarget =
        isSelected ? XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_FOCUS_CHANGE : 0;
    xcb_connection_t *xcb = m_connection.get();
    xcb_change_window_attributes(xcb, m_connection.root(), XCB_CW_EVENT_MASK, &onRoot);
    xcb_change_window_attributes(xcb, m_target, XCB_CW_EVENT_MASK, &onTarget);
    xcb_flush(xcb);
}

xcb_timestamp_t X11FrontApplication::serverTime()
{
    // Appending nothing changes nothing, and tells when it did not.
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_APPEND, m_timeWindow, XCB_ATOM_WM_NAME,
                        XCB_ATOM_STRING, 8, 0, nullptr);
    m_connection.roundTrip();
    xcb_timestamp_t time = XCB_CURRENT_TIME;
    while (const XcbPointer<xcb_generic_event_t> event{
        xcb_poll_for_queued_event(m_connection.get())}) {
        if (typeOf(*event) == XCB_PROPERTY_NOTIFY)
            time = reinterpret_cast<const xcb_property_notify_event_t &>(*event).time;
    }
    return time;
}

xcb_timestamp_t X11FrontApplication::userTime()
{
    // EWMH: the time of what the user did. An earlier one than the _NET_WM_USER_TIME of the active
    // window loses. The clock goes round every 49 days, so times are compared by difference.
    const xcb_timestamp_t now = serverTime();
    const bool isByHotKey = m_lastPress && int32_t(now - *m_lastPress) >= 0 &&
                            int32_t(now - *m_lastPress) < kHotKeyValidity;
    return isByHotKey ? *m_lastPress : now;
}
