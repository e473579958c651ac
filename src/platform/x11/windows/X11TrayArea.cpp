#include "platform/x11/windows/X11TrayArea.h"

#include "platform/x11/QtX11Connection.h"
#include "platform/x11/X11Connection.h"

#include <QCoreApplication>

#include <xcb/xfixes.h>

#include <cstdlib>

namespace {

/// The number in DISPLAY after the dot.
int defaultScreen()
{
    char *host = nullptr;
    int display = 0;
    int screen = 0;
    xcb_parse_display(nullptr, &host, &display, &screen);
    std::free(host);
    return screen;
}

xcb_atom_t internAtom(xcb_connection_t *connection, const QByteArray &name)
{
    const XcbPointer<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData()),
        nullptr));
    return atom ? atom->atom : xcb_atom_t(XCB_ATOM_NONE);
}

xcb_window_t rootOf(xcb_connection_t *connection, int screen)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screen > 0 && screens.rem > 1; --screen)
        xcb_screen_next(&screens);
    return screens.data->root;
}

} // namespace

X11TrayArea::X11TrayArea(QObject *parent) : TrayArea(parent)
{
    xcb_connection_t *connection = qtX11Connection();
    if (!connection)
        return;
    const int screen = defaultScreen();
    // The system tray protocol: who owns this selection is the tray of that screen (a manager
    // selection, ICCCM 2.8).
    m_selection = internAtom(connection, "_NET_SYSTEM_TRAY_S" + QByteArray::number(screen));
    m_colors = internAtom(connection, "_NET_SYSTEM_TRAY_COLORS");
    if (m_selection == XCB_ATOM_NONE)
        return;
    // The events are asked for before the present owner is, so that none slips between.
    m_ownerChange = watchSelectionOwner(connection, rootOf(connection, screen), m_selection);
    if (m_ownerChange == 0)
        return;
    qApp->installNativeEventFilter(this);
    m_isPresent = tray() != XCB_WINDOW_NONE;
}

X11TrayArea::~X11TrayArea()
{
    if (qApp)
        qApp->removeNativeEventFilter(this);
}

xcb_window_t X11TrayArea::tray() const
{
    return selectionOwner(qtX11Connection(), m_selection);
}

std::optional<QColor> X11TrayArea::foreground()
{
    constexpr uint32_t kComponents = 3; // Of the first of the tray's four colours.
    if (!m_isPresent)
        return std::nullopt;
    xcb_connection_t *connection = qtX11Connection();
    const xcb_window_t window = tray();
    // Qt listens to the same window for its end, and one connection has one mask.
    const uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_discard_reply(connection, xcb_change_window_attributes_checked(connection, window,
                                                                       XCB_CW_EVENT_MASK, &events)
                                      .sequence);
    const XcbPointer<xcb_get_property_reply_t> colors(xcb_get_property_reply(
        connection,
        xcb_get_property(connection, 0, window, m_colors, XCB_ATOM_CARDINAL, 0, kComponents),
        nullptr));
    if (!colors || colors->format != 32 || colors->value_len < kComponents)
        return std::nullopt;
    const auto *values = static_cast<const uint32_t *>(xcb_get_property_value(colors.get()));
    // Of 16 bits each. The first colour is that of plain icons, then come error, warning and
    // success.
    const auto component = [values](int i) { return static_cast<quint16>(values[i] & 0xFFFF); };
    return QColor::fromRgba64(component(0), component(1), component(2));
}

bool X11TrayArea::nativeEventFilter(const QByteArray &eventType, void *message, qintptr *)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    const int type = typeOf(*event);
    if (type == XCB_PROPERTY_NOTIFY &&
        reinterpret_cast<const xcb_property_notify_event_t *>(event)->atom == m_colors)
        Q_EMIT foregroundChanged();
    if (type != m_ownerChange)
        return false;
    const auto *change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t *>(event);
    if (change->selection == m_selection)
        setPresent(change->subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER &&
                   change->owner != XCB_WINDOW_NONE);
    return false;
}

void X11TrayArea::setPresent(bool isPresent)
{
    if (isPresent == m_isPresent)
        return;
    m_isPresent = isPresent;
    // Later, because Qt looks at this event only after we did.
    QMetaObject::invokeMethod(
        this, [this] { Q_EMIT isPresentChanged(m_isPresent); }, Qt::QueuedConnection);
}
