#pragma once

#include <xcb/xcb.h>

#include <QByteArray>

#include <array>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <vector>

struct FreeReply
{
    void operator()(void *reply) const { std::free(reply); }
};

/// What xcb hands out to be freed: replies, errors and events.
template <typename Reply>
using XcbPointer = std::unique_ptr<Reply, FreeReply>;

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
    ~X11Connection();

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

    /// A property's whole value; empty when the window or the property does not exist or the
    /// property has another type. `type` may be XCB_ATOM_ANY.
    QByteArray property(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;

    /// The 32-bit elements of such a property.
    std::vector<quint32> elements(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;

    /// The first 32-bit element of such a property, else 0 (no window, no atom).
    quint32 firstOf(xcb_window_t window, xcb_atom_t property, xcb_atom_t type) const;

    /// Sends what is pending and waits until the server has processed it.
    void roundTrip() const;

private:
    void internAtoms(const char *const *names, xcb_atom_t *atoms, std::size_t count) const;

    int m_screenNumber = 0;
    xcb_connection_t *m_connection;
    xcb_window_t m_root = XCB_NONE;
};
