#pragma once

#include <xcb/xcb.h>

#include <QByteArray>
#include <QHash>
#include <QStringList>

#include <array>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <utility>
#include <vector>

struct FreeReply
{
    void operator()(void *reply) const { std::free(reply); }
};

/// What xcb hands out to be freed: replies, errors and events.
template <typename Reply>
using XcbPointer = std::unique_ptr<Reply, FreeReply>;

/// Of an event, without the bit that marks what another client sent.
inline uint8_t typeOf(const xcb_generic_event_t &event)
{
    return event.response_type & 0x7F;
}

/// None when nobody owns the selection.
xcb_window_t selectionOwner(xcb_connection_t *connection, xcb_atom_t selection);

/// Has every change of a selection's owner told to `window` from now on, or no longer. The number
/// of the event; 0 when the server has no XFixes, and nothing is told.
uint8_t watchSelectionOwner(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t selection,
                            bool isWatched = true);

/// A question to the server whose answer is collected later, so that several travel together. An
/// answer that nobody collected is dropped.
template <typename Cookie, typename Reply>
class PendingReply
{
public:
    /// Must not outlive `connection`.
    PendingReply(xcb_connection_t *connection, Cookie cookie)
        : m_connection(connection), m_cookie(cookie)
    {
    }
    PendingReply(PendingReply &&other) noexcept
        : m_connection(std::exchange(other.m_connection, nullptr)), m_cookie(other.m_cookie)
    {
    }
    PendingReply &operator=(PendingReply &&other) noexcept
    {
        std::swap(m_connection, other.m_connection);
        std::swap(m_cookie, other.m_cookie);
        return *this;
    }
    ~PendingReply()
    {
        if (m_connection)
            xcb_discard_reply(m_connection, m_cookie.sequence);
    }

    /// Waits for it where it has not come yet; null where the server refused. Once.
    template <typename Collect>
    XcbPointer<Reply> take(Collect collect)
    {
        return XcbPointer<Reply>(collect(std::exchange(m_connection, nullptr), m_cookie, nullptr));
    }

private:
    xcb_connection_t *m_connection;
    Cookie m_cookie;
};

/// A window's property, asked for and not yet collected.
class PendingProperty
{
public:
    /// Must not outlive `connection`. `type` may be XCB_ATOM_ANY.
    PendingProperty(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t property,
                    xcb_atom_t type);

    /// Its whole value; empty when the window or the property does not exist or the property has
    /// another type. Once.
    QByteArray value();

    /// The first 32-bit element of such a value, else 0 (no window, no atom). Instead of `value`.
    quint32 first();

private:
    PendingReply<xcb_get_property_cookie_t, xcb_get_property_reply_t> m_reply;
};

/// A connection of our own to the display server that DISPLAY names, with its first screen. Each
/// adapter owns the one it uses, because events and replies of different adapters must not wait
/// for one another. A connection that could not be made, or was lost, stays usable: every request
/// on it is dropped and every reply is absent.
class X11Connection
{
public:
    X11Connection();
    X11Connection(const X11Connection &) = delete;
    X11Connection &operator=(const X11Connection &) = delete;
    ~X11Connection() { xcb_disconnect(m_connection); }

    /// Never null; xcb itself accepts a broken connection everywhere.
    xcb_connection_t *get() const { return m_connection; }
    bool isBroken() const { return xcb_connection_has_error(m_connection) != 0; }
    xcb_window_t root() const { return m_root; }
    int screenNumber() const { return m_screenNumber; }

    /// The atoms of these names, made where they do not exist; one wait for all of them.
    template <std::size_t count>
    std::array<xcb_atom_t, count> atoms(const char *const (&names)[count]) const
    {
        std::array<xcb_atom_t, count> result{};
        internAtoms(names, result.data(), count);
        return result;
    }

    QHash<QString, xcb_atom_t> atoms(const QStringList &names) const;

    /// A property's value as `PendingProperty` tells it; `property` and `firstOf` wait for it.
    PendingProperty ask(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;
    QByteArray property(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;
    quint32 firstOf(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;

    /// The 32-bit elements of such a property.
    std::vector<quint32> elements(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;

    /// Sends what is pending and waits until the server has processed it.
    void roundTrip() const;

private:
    void internAtoms(const char *const *names, xcb_atom_t *atoms, std::size_t count) const;

    int m_screenNumber = 0;
    xcb_connection_t *m_connection;
    xcb_window_t m_root = XCB_NONE;
};
