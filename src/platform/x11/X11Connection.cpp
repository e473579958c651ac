#include "platform/x11/X11Connection.h"

#include <xcb/xfixes.h>

#include <algorithm>
#include <cstring>

namespace {

constexpr uint32_t kWholeValue = 0x1FFFFFFF; // in units of four bytes

} // namespace

xcb_window_t selectionOwner(xcb_connection_t *connection, xcb_atom_t selection)
{
    const XcbPointer<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, selection), nullptr));
    return reply ? reply->owner : xcb_window_t(XCB_WINDOW_NONE);
}

uint8_t watchSelectionOwner(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t selection,
                            bool isWatched)
{
    const xcb_query_extension_reply_t *fixes = xcb_get_extension_data(connection, &xcb_xfixes_id);
    if (!fixes || !fixes->present)
        return 0;
    // The server refuses any other request of the extension before it was told a version.
    xcb_discard_reply(connection, xcb_xfixes_query_version(connection, 5, 0).sequence);
    // All three, because the core protocol tells only the former owner that the selection has
    // changed hands, and nobody that its owner has died.
    const uint32_t events = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                            XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                            XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;
    xcb_xfixes_select_selection_input(connection, window, selection, isWatched ? events : 0);
    return fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY;
}

PendingProperty::PendingProperty(xcb_connection_t *connection, xcb_window_t window,
                                 xcb_atom_t property, xcb_atom_t type)
    : m_reply(connection, xcb_get_property(connection, 0, window, property, type, 0, kWholeValue))
{
}

QByteArray PendingProperty::value()
{
    // None of a window that has gone meanwhile, which is nothing unusual.
    const auto reply = m_reply.take(xcb_get_property_reply);
    if (!reply)
        return {};
    return {static_cast<const char *>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

quint32 PendingProperty::first()
{
    const QByteArray all = value();
    quint32 element = 0;
    if (all.size() >= qsizetype(sizeof(element)))
        std::memcpy(&element, all.constData(), sizeof(element));
    return element;
}

X11Connection::X11Connection() : m_connection(xcb_connect(nullptr, &m_screenNumber))
{
    // Never null: a connection that failed is an object which says so.
    if (isBroken())
        return;
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (int i = 0; i < m_screenNumber && screens.rem > 1; ++i)
        xcb_screen_next(&screens);
    m_root = screens.data->root;
}

PendingProperty X11Connection::ask(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const
{
    return {m_connection, window, property, type};
}

QByteArray X11Connection::property(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const
{
    return ask(window, property, type).value();
}

std::vector<quint32> X11Connection::elements(xcb_window_t window, xcb_atom_t property,
                                             xcb_atom_t type) const
{
    const QByteArray value = this->property(window, property, type);
    std::vector<quint32> elements(std::size_t(value.size()) / sizeof(quint32));
    std::copy_n(value.constData(), elements.size() * sizeof(quint32),
                reinterpret_cast<char *>(elements.data()));
    return elements;
}

quint32 X11Connection::firstOf(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const
{
    return ask(window, property, type).first();
}

void X11Connection::roundTrip() const
{
    // Any question would do: the server answers in order, so by then it has done all that was asked
    // before, and sent the events of it.
    const XcbPointer<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

void X11Connection::internAtoms(const char *const *names, xcb_atom_t *atoms,
                                std::size_t count) const
{
    // Asked for together, they take the time of one.
    std::vector<xcb_intern_atom_cookie_t> cookies;
    cookies.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        cookies.push_back(
            xcb_intern_atom(m_connection, 0, uint16_t(std::strlen(names[i])), names[i]));
    for (std::size_t i = 0; i < count; ++i) {
        const XcbPointer<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(m_connection, cookies[i], nullptr));
        atoms[i] = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }
}

QHash<QString, xcb_atom_t> X11Connection::atoms(const QStringList &names) const
{
    QList<QByteArray> bytes;
    std::vector<const char *> pointers;
    for (const QString &name : names)
        pointers.push_back(bytes.emplaceBack(name.toUtf8()).constData());
    std::vector<xcb_atom_t> interned(pointers.size());
    internAtoms(pointers.data(), interned.data(), interned.size());
    QHash<QString, xcb_atom_t> atoms;
    for (qsizetype i = 0; i < names.size(); ++i)
        atoms[names[i]] = interned[std::size_t(i)];
    return atoms;
}
