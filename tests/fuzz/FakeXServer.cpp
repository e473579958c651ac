#include "fuzz/FakeXServer.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

/// Replies that were made and not collected yet, by the number of their request.
std::map<unsigned, void *> replies;
unsigned requests = 0;

template <typename Reply>
Reply *makeReply(std::size_t more = 0)
{
    return static_cast<Reply *>(std::calloc(1, sizeof(Reply) + more));
}

template <typename Cookie>
Cookie promise(void *reply)
{
    replies[++requests] = reply;
    return {requests};
}

template <typename Reply>
Reply *taken(unsigned request)
{
    const auto reply = replies.extract(request);
    return reply ? static_cast<Reply *>(reply.mapped()) : nullptr;
}

xcb_connection_t *connection()
{
    return reinterpret_cast<xcb_connection_t *>(&replies);
}

} // namespace

FakeXServer &FakeXServer::only()
{
    static FakeXServer server;
    return server;
}

FakeXServer::FakeXServer()
{
    for (const auto &[name, number] :
         {std::pair("ATOM", XCB_ATOM_ATOM), std::pair("STRING", XCB_ATOM_STRING)}) {
        m_atoms[name] = number;
        m_names[number] = name;
    }
}

xcb_atom_t FakeXServer::atom(const QByteArray &name)
{
    constexpr xcb_atom_t kFirst = 100; // Behind the predefined ones.
    const auto known = m_atoms.constFind(name);
    if (known != m_atoms.constEnd())
        return *known;
    const xcb_atom_t made = kFirst + xcb_atom_t(m_atoms.size());
    m_names[made] = name;
    return m_atoms[name] = made;
}

void FakeXServer::write(xcb_atom_t property, const Property &value, bool isAppended)
{
    Property &there = m_properties[property];
    const bool isSameKind = there.type == value.type && there.format == value.format;
    if (isAppended && isSameKind)
        there.bytes += value.bytes;
    else
        there = value;
}

std::optional<FakeXServer::Property> FakeXServer::read(xcb_atom_t property) const
{
    const auto found = m_properties.find(property);
    return found == m_properties.end() ? std::nullopt : std::optional(found->second);
}

// What a program asks of the server goes to the one above.
extern "C" {

xcb_connection_t *xcb_connect(const char *, int *screen)
{
    *screen = 0;
    return connection();
}

void xcb_disconnect(xcb_connection_t *) {}

int xcb_connection_has_error(xcb_connection_t *)
{
    return 0;
}

const xcb_setup_t *xcb_get_setup(xcb_connection_t *)
{
    static xcb_setup_t setup = {};
    setup.resource_id_mask = 0x1FFFFF;
    return &setup;
}

xcb_screen_iterator_t xcb_setup_roots_iterator(const xcb_setup_t *)
{
    static xcb_screen_t screen = {};
    return {&screen, 1, 0};
}

uint32_t xcb_generate_id(xcb_connection_t *)
{
    return FakeXServer::kWindow;
}

xcb_void_cookie_t xcb_create_window(xcb_connection_t *, uint8_t, xcb_window_t, xcb_window_t,
                                    int16_t, int16_t, uint16_t, uint16_t, uint16_t, uint16_t,
                                    xcb_visualid_t, uint32_t, const void *)
{
    return {};
}

xcb_intern_atom_cookie_t xcb_intern_atom(xcb_connection_t *, uint8_t, uint16_t length,
                                         const char *name)
{
    auto *reply = makeReply<xcb_intern_atom_reply_t>();
    reply->atom = FakeXServer::only().atom(QByteArray(name, length));
    return promise<xcb_intern_atom_cookie_t>(reply);
}

xcb_intern_atom_reply_t *xcb_intern_atom_reply(xcb_connection_t *, xcb_intern_atom_cookie_t cookie,
                                               xcb_generic_error_t **)
{
    return taken<xcb_intern_atom_reply_t>(cookie.sequence);
}

xcb_get_atom_name_cookie_t xcb_get_atom_name(xcb_connection_t *, xcb_atom_t atom)
{
    const QByteArray name = FakeXServer::only().nameOf(atom);
    if (name.isEmpty()) // An error of the server, which nobody collects.
        return promise<xcb_get_atom_name_cookie_t>(nullptr);
    auto *reply = makeReply<xcb_get_atom_name_reply_t>(std::size_t(name.size()));
    reply->name_len = uint16_t(name.size());
    std::memcpy(reply + 1, name.constData(), std::size_t(name.size()));
    return promise<xcb_get_atom_name_cookie_t>(reply);
}

xcb_get_atom_name_reply_t *xcb_get_atom_name_reply(xcb_connection_t *,
                                                   xcb_get_atom_name_cookie_t cookie,
                                                   xcb_generic_error_t **)
{
    return taken<xcb_get_atom_name_reply_t>(cookie.sequence);
}

xcb_get_property_cookie_t xcb_get_property(xcb_connection_t *, uint8_t, xcb_window_t,
                                           xcb_atom_t property, xcb_atom_t, uint32_t offset,
                                           uint32_t most)
{
    const auto value = FakeXServer::only().read(property);
    if (!value)
        return promise<xcb_get_property_cookie_t>(makeReply<xcb_get_property_reply_t>());
    const qsizetype begin = qsizetype(offset) * 4;
    if (begin > value->bytes.size()) // An error, likewise.
        return promise<xcb_get_property_cookie_t>(nullptr);
    const QByteArray part = value->bytes.mid(begin, qsizetype(most) * 4);
    auto *reply = makeReply<xcb_get_property_reply_t>(std::size_t(part.size()));
    reply->type = value->type;
    reply->format = value->format;
    reply->value_len = uint32_t(part.size() / (value->format / 8));
    reply->bytes_after = uint32_t(value->bytes.size() - begin - part.size());
    std::copy(part.begin(), part.end(), reinterpret_cast<char *>(reply + 1));
    return promise<xcb_get_property_cookie_t>(reply);
}

xcb_get_property_reply_t *
xcb_get_property_reply(xcb_connection_t *, xcb_get_property_cookie_t cookie, xcb_generic_error_t **)
{
    return taken<xcb_get_property_reply_t>(cookie.sequence);
}

xcb_void_cookie_t xcb_change_property(xcb_connection_t *, uint8_t, xcb_window_t,
                                      xcb_atom_t property, xcb_atom_t type, uint8_t format,
                                      uint32_t count, const void *data)
{
    FakeXServer::only().write(
        property, {type, format,
                   QByteArray(static_cast<const char *>(data), qsizetype(count) * (format / 8))});
    return {};
}

xcb_void_cookie_t xcb_delete_property(xcb_connection_t *, xcb_window_t, xcb_atom_t property)
{
    FakeXServer::only().remove(property);
    return {};
}

xcb_void_cookie_t xcb_convert_selection(xcb_connection_t *, xcb_window_t, xcb_atom_t selection,
                                        xcb_atom_t target, xcb_atom_t property,
                                        xcb_timestamp_t time)
{
    FakeXServer::only().question = {selection, target, property, time};
    return {};
}

xcb_void_cookie_t xcb_send_event(xcb_connection_t *, uint8_t, xcb_window_t, uint32_t, const char *)
{
    return {};
}

void xcb_discard_reply(xcb_connection_t *, unsigned sequence)
{
    std::free(taken<void>(sequence));
}

} // extern "C"
