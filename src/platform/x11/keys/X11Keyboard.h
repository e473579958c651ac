#pragma once

#include "platform/typing/Xkb.h"
#include "platform/x11/X11Connection.h"

#include <optional>

/// The server's keyboard as one connection sees it: what its keys give, and notice of changes.
/// Owned by the adapter that owns the connection and used from that connection's thread. The
/// keymap is read when it is first asked for, because it takes the server a few milliseconds.
class X11Keyboard
{
public:
    enum class Change { None, Mapping, Group };

    /// What it takes to type a symbol.
    struct Place
    {
        xcb_keycode_t keycode;
        quint16 modifiers; ///< The server's, to be held.
    };
    /// What stays in effect without a finger on a key.
    struct Locks
    {
        uint8_t group = 0;
        uint8_t modifiers = 0;
    };

    /// Asks the server for notices; without its keyboard extension there are none, and no keymap.
    explicit X11Keyboard(const X11Connection &connection);

    /// From now on a key that repeats while it is held is reported as pressed again without
    /// having been released.
    void setDetectableAutoRepeat();

    /// Takes in an event of the connection and says what it changed.
    Change takeIn(const xcb_generic_event_t &event);

    /// Null when the server has none to tell.
    xkb_keymap *keymap();

    /// The group in effect, as it was told last.
    xkb_layout_index_t group() const { return m_group; }

    /// Asks for the group in effect now.
    void readGroup();

    /// Groups of the key that has most of them.
    xkb_layout_index_t groupCount();

    /// A key that gives `symbol` by itself: in the group in effect, else in any.
    std::optional<xcb_keycode_t> keyFor(xkb_keysym_t symbol);

    /// How to type `symbol` in `group` while nothing is locked, with as few modifiers as it takes.
    std::optional<Place> placeOf(xkb_keysym_t symbol, xkb_layout_index_t group);

    /// The key that bears `symbol` on an American keyboard, by itself.
    static std::optional<xcb_keycode_t> usualKeyFor(xkb_keysym_t symbol);

    Locks locks() const;
    void lock(const Locks &locks) const;

private:
    void selectNotices() const;

    const X11Connection &m_connection;
    XkbPointer<xkb_context> m_context;
    XkbPointer<xkb_keymap> m_keymap;
    xkb_layout_index_t m_group = 0;
    bool m_hasExtension = false;
    uint8_t m_firstEvent = 0;
};
