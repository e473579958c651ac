#include "platform/x11/windows/X11WindowSpace.h"

#include "platform/PointerScreen.h"
#include "platform/x11/QtX11Connection.h"
#include "platform/x11/windows/XSettings.h"

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <cstring>

namespace {

/// The edges that a panel keeps free, in pixels from the edges of the whole desktop, and the
/// range of each along its edge. In the order of _NET_WM_STRUT_PARTIAL.
struct Strut
{
    quint32 left, right, top, bottom;
    quint32 leftStart, leftEnd, rightStart, rightEnd, topStart, topEnd, bottomStart, bottomEnd;
};

/// Panels of old tell no ranges: theirs run along the whole edge.
constexpr Strut kWholeEdges = {0, 0, 0, 0, 0, 0xFFFF, 0, 0xFFFF, 0, 0xFFFF, 0, 0xFFFF};

Strut strutOf(const QByteArray &partial, const QByteArray &whole)
{
    Strut strut = kWholeEdges;
    const QByteArray &property = partial.size() == sizeof strut ? partial : whole;
    std::memcpy(&strut, property.constData(), std::min<std::size_t>(property.size(), sizeof strut));
    return strut;
}

bool overlaps(int begin, int end, quint32 from, quint32 to)
{
    return qint64(from) <= end && qint64(to) >= begin;
}

/// What `strut` leaves of `screen`; both in pixels of `desktop`.
QRect trimmed(QRect screen, const Strut &strut, const QSize &desktop)
{
    const QRect whole = screen;
    if (overlaps(whole.top(), whole.bottom(), strut.leftStart, strut.leftEnd))
        screen.setLeft(std::max(screen.left(), int(strut.left)));
    if (overlaps(whole.top(), whole.bottom(), strut.rightStart, strut.rightEnd))
        screen.setRight(std::min(screen.right(), desktop.width() - int(strut.right) - 1));
    if (overlaps(whole.left(), whole.right(), strut.topStart, strut.topEnd))
        screen.setTop(std::max(screen.top(), int(strut.top)));
    if (overlaps(whole.left(), whole.right(), strut.bottomStart, strut.bottomEnd))
        screen.setBottom(std::min(screen.bottom(), desktop.height() - int(strut.bottom) - 1));
    // A strut across a whole screen belongs to a panel on another one.
    return screen.isValid() ? screen : whole;
}

} // namespace

X11WindowSpace::X11WindowSpace(QObject *parent)
    : WindowSpace(parent), m_atoms(internAtoms(m_connection)),
      m_events(m_connection, [this](const xcb_generic_event_t &event) { takeIn(event); })
{
    // EWMH: a compositing manager owns _NET_WM_CM_Sn of its screen, so that its coming and going
    // are changes of an owner.
    if (!m_connection.isBroken())
        m_selectionEvent =
            watchSelectionOwner(m_connection.get(), m_connection.root(), m_atoms.compositor);
    m_isCompositing = hasCompositor();
    m_events.handleArrived();
}

std::optional<QPoint> X11WindowSpace::pointerPosition() const
{
    // Qt knows how it scales each screen, the server does not.
    if (!QGuiApplication::primaryScreen())
        return std::nullopt;
    return QCursor::pos();
}

QRect X11WindowSpace::visibleFrame(const QScreen &screen) const
{
    // The window manager tells one work area for the whole desktop. Qt takes it for a single
    // screen; for several it cannot, and gives the whole screen.
    if (screen.virtualSiblings().size() == 1)
        return screen.availableGeometry();
    const QRect frame = screen.geometry();
    const qreal scale = screen.devicePixelRatio();
    // A screen stands at its native place and has its size scaled.
    const QRect native(frame.topLeft(), (QSizeF(frame.size()) * scale).toSize());
    const QRect left = withoutPanels(native);
    return {frame.topLeft() + ((QPointF(left.topLeft() - native.topLeft())) / scale).toPoint(),
            (QSizeF(left.size()) / scale).toSize()};
}

bool X11WindowSpace::areAnimationsEnabled() const
{
    // XSETTINGS: whoever owns this selection has the desktop's settings in a property of its
    // window.
    const xcb_window_t daemon = selectionOwner(m_connection.get(), m_atoms.settingsOwner);
    if (daemon == XCB_NONE)
        return true;
    const QByteArray settings = m_connection.property(daemon, m_atoms.settings, m_atoms.settings);
    return XSettings::integer(settings, QByteArrayLiteral("Gtk/EnableAnimations")).value_or(1) != 0;
}

void X11WindowSpace::prepareUtilityWindow(QWindow *window)
{
    window->installEventFilter(this);
}

QRect X11WindowSpace::placeUtilityWindow(QWindow *, const QSize &size, const QMargins &)
{
    return PointerScreen::utilityFrame(PointerScreen::visibleFrame(*this), size);
}

bool X11WindowSpace::prepareFixedWindow(QWindow *window)
{
    xcb_connection_t *qt = qtX11Connection();
    if (!qt || !window->handle())
        return true;
    // The property's fields: flags, functions, decorations, input mode, status. Qt has asked for
    // resizing; all else that it has asked for stays.
    constexpr quint32 kHasFunctions = 1;
    constexpr quint32 kMove = 4, kMinimize = 8, kClose = 32;
    const auto id = static_cast<xcb_window_t>(window->winId());
    xcb_flush(qt);
    quint32 hints[5] = {};
    const QByteArray property = m_connection.property(id, m_atoms.motifHints, m_atoms.motifHints);
    std::memcpy(hints, property.constData(), std::min<std::size_t>(property.size(), sizeof hints));
    hints[0] |= kHasFunctions;
    hints[1] = kMove | kMinimize | kClose;
    xcb_change_property(qt, XCB_PROP_MODE_REPLACE, id, m_atoms.motifHints, m_atoms.motifHints, 32,
                        std::size(hints), hints);
    return true;
}

bool X11WindowSpace::eventFilter(QObject *watched, QEvent *event)
{
    // Sent before the window is shown. Window managers forget the state of a window that was
    // hidden, so it is told each time.
    if (event->type() == QEvent::Show) {
        if (auto *window = qobject_cast<QWindow *>(watched))
            keepOutOfTaskbar(*window);
    }
    return WindowSpace::eventFilter(watched, event);
}

X11WindowSpace::Atoms X11WindowSpace::internAtoms(const X11Connection &connection)
{
    const QByteArray screen = QByteArray::number(connection.screenNumber());
    const QByteArray compositor = QByteArrayLiteral("_NET_WM_CM_S") + screen;
    const QByteArray settingsOwner = QByteArrayLiteral("_XSETTINGS_S") + screen;
    const auto atoms =
        connection.atoms({compositor.constData(), "_NET_CLIENT_LIST", "_NET_WM_STRUT",
                          "_NET_WM_STRUT_PARTIAL", "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR",
                          "_NET_WM_STATE_SKIP_PAGER", "_KDE_NET_WM_STATE_SKIP_SWITCHER",
                          "_MOTIF_WM_HINTS", settingsOwner.constData(), "_XSETTINGS_SETTINGS"});
    return {atoms[0], atoms[1], atoms[2], atoms[3], atoms[4], atoms[5],
            atoms[6], atoms[7], atoms[8], atoms[9], atoms[10]};
}

bool X11WindowSpace::hasCompositor() const
{
    return selectionOwner(m_connection.get(), m_atoms.compositor) != XCB_NONE;
}

void X11WindowSpace::takeIn(const xcb_generic_event_t &event)
{
    if (m_selectionEvent == 0 || typeOf(event) != m_selectionEvent)
        return;
    const bool isCompositing = hasCompositor();
    if (isCompositing == m_isCompositing)
        return;
    m_isCompositing = isCompositing;
    Q_EMIT isCompositingChanged(isCompositing);
}

QRect X11WindowSpace::withoutPanels(const QRect &frame) const
{
    xcb_connection_t *xcb = m_connection.get();
    const XcbPointer<xcb_get_geometry_reply_t> desktop(
        xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, m_connection.root()), nullptr));
    if (!desktop)
        return frame;
    // EWMH counts struts from the edges of the whole desktop, not from those of a monitor.
    const std::vector<xcb_window_t> clients =
        m_connection.elements(m_connection.root(), m_atoms.clientList, XCB_ATOM_WINDOW);
    QRect rest = frame;
    for (const xcb_window_t client : clients) {
        const Strut strut =
            strutOf(m_connection.property(client, m_atoms.partialStrut, XCB_ATOM_CARDINAL),
                    m_connection.property(client, m_atoms.strut, XCB_ATOM_CARDINAL));
        rest &= trimmed(frame, strut, QSize(desktop->width, desktop->height));
    }
    return rest;
}

void X11WindowSpace::keepOutOfTaskbar(QWindow &window) const
{
    xcb_connection_t *qt = qtX11Connection();
    if (!qt || !window.handle())
        return;
    // Written and not asked for by a message: EWMH leaves the property to the client until its
    // window is shown. The switcher's state is one desktop's own.
    const xcb_atom_t states[] = {m_atoms.skipTaskbar, m_atoms.skipPager, m_atoms.skipSwitcher};
    xcb_change_property(qt, XCB_PROP_MODE_REPLACE, xcb_window_t(window.winId()),
                        m_atoms.windowState, XCB_ATOM_ATOM, 32, std::size(states), states);
}
