#include "platform/x11/windows/X11ActiveWindow.h"

#include <utility>

namespace {

/// Dialogs of dialogs; no more, because two windows may say that each is for the other.
constexpr int kMaxTransients = 8;

} // namespace

X11ActiveWindow::X11ActiveWindow(const X11Connection &connection)
    : m_connection(connection), m_questionAtoms(WindowQuestion::atoms(connection))
{
    const auto atoms = connection.atoms({"_NET_ACTIVE_WINDOW", "_NET_SUPPORTING_WM_CHECK"});
    m_atoms = {atoms[0], atoms[1]};
}

xcb_window_t X11ActiveWindow::current() const
{
    // Nobody takes it away when the window manager dies, so it counts only with a living one.
    PendingProperty active =
        m_connection.ask(m_connection.root(), m_atoms.activeWindow, XCB_ATOM_WINDOW);
    if (isManaged())
        return active.first();
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
    // EWMH: the window that is named has the same property, which names itself. The root window
    // alone may tell of a window manager that is dead, and another window may have got its number
    // since.
    const auto ask = [this](xcb_window_t window) {
        return m_connection.ask(window, m_atoms.supportingCheck, XCB_ATOM_WINDOW);
    };
    PendingProperty onRoot = ask(m_connection.root());
    PendingProperty onLast = ask(m_lastManager);
    const xcb_window_t manager = onRoot.first();
    const bool isLast = manager == std::exchange(m_lastManager, manager);
    return manager != XCB_NONE && (isLast ? onLast : onLast = ask(manager)).first() == manager;
}

bool X11ActiveWindow::isInFrontWithFocus(xcb_window_t window, xcb_window_t keyboardPlace) const
{
    // All on their way before the first answer: a paste waits for them.
    PendingProperty active =
        m_connection.ask(m_connection.root(), m_atoms.activeWindow, XCB_ATOM_WINDOW);
    PendingFocus focus = askFocus();
    return (!isManaged() || active.first() == window) && leadsTo(keyboardPlace, focusOf(focus));
}

bool X11ActiveWindow::isOfSameProgram(xcb_window_t one, xcb_window_t other) const
{
    WindowQuestion ofOne = ask(one);
    WindowQuestion ofOther = ask(other);
    const quint32 processId = ofOne.processId();
    return processId != 0 && processId == ofOther.processId();
}

WindowQuestion X11ActiveWindow::ask(xcb_window_t window) const
{
    return {m_connection, m_questionAtoms, window};
}

std::optional<WindowIdentity> X11ActiveWindow::identityOf(xcb_window_t window) const
{
    return window == XCB_NONE ? std::nullopt : ask(window).identity();
}

xcb_window_t X11ActiveWindow::namingWindowOf(xcb_window_t window) const
{
    for (int i = 0; i < kMaxTransients; ++i) {
        const xcb_window_t leader =
            m_connection.firstOf(window, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW);
        // A dialog of the whole group says that it is for the root window.
        if (leader == XCB_NONE || leader == m_connection.root() || !exists(leader))
            break;
        window = leader;
    }
    return window;
}

xcb_window_t X11ActiveWindow::inputFocus() const
{
    PendingFocus pending = askFocus();
    return focusOf(pending);
}

X11ActiveWindow::PendingFocus X11ActiveWindow::askFocus() const
{
    return {m_connection.get(), xcb_get_input_focus(m_connection.get())};
}

xcb_window_t X11ActiveWindow::focusOf(PendingFocus &pending)
{
    const auto reply = pending.take(xcb_get_input_focus_reply);
    // "The root that the pointer is on" means that no window has the keyboard for good.
    return reply && reply->focus != XCB_INPUT_FOCUS_POINTER_ROOT ? reply->focus
                                                                 : xcb_window_t(XCB_NONE);
}

/// Whether `part` is `window` or inside it.
bool X11ActiveWindow::leadsTo(xcb_window_t window, xcb_window_t part) const
{
    while (part != XCB_NONE && part != m_connection.root() && part != window)
        part = parentOf(part);
    return part == window && part != XCB_NONE;
}

xcb_window_t X11ActiveWindow::parentOf(xcb_window_t window) const
{
    const XcbPointer<xcb_query_tree_reply_t> reply(xcb_query_tree_reply(
        m_connection.get(), xcb_query_tree(m_connection.get(), window), nullptr));
    return reply ? reply->parent : xcb_window_t(XCB_NONE);
}

std::optional<quint8> X11ActiveWindow::mapStateOf(xcb_window_t window) const
{
    const XcbPointer<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        m_connection.get(), xcb_get_window_attributes(m_connection.get(), window), nullptr));
    return reply ? std::optional(reply->map_state) : std::nullopt;
}
