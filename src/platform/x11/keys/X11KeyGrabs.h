#pragma once

#include "platform/x11/X11Connection.h"
#include "platform/x11/keys/X11Modifiers.h"

#include <compare>
#include <map>
#include <vector>

/// A key with modifiers, before lock states come into it.
struct X11Combination
{
    xcb_keycode_t keycode = 0;
    quint32 carbonModifiers = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): it errs
    auto operator<=>(const X11Combination &) const = default;
};

/// The key grabs that one connection holds on the root window. Each combination is grabbed in all
/// its lock variants or not at all. A grab holds every key event back until it is answered
/// (X11KeyboardHandOver). Owned by the hot keys and used on their thread; the
/// combinations wanted here and what the server granted are kept apart, so that everything wanted
/// is asked for again whenever the keyboard or the suspension changes.
class X11KeyGrabs
{
public:
    /// `connection` must outlive this object.
    explicit X11KeyGrabs(const X11Connection &connection);

    /// Wants the combination from now on. False, and nothing is wanted, when another client holds
    /// it in any variant.
    [[nodiscard]] bool add(const X11Combination &combination);
    void remove(const X11Combination &combination);

    /// Whether another client leaves the combination free.
    bool isAvailable(const X11Combination &combination);

    /// Whether a wanted combination is ours, or only waits for the suspension's end.
    bool isGranted(const X11Combination &combination) const;

    /// Gives every grab back, or asks for all of them again.
    void setSuspended(bool isSuspended);

    /// Reads the modifier map anew. Grabs are touched only when their masks differ by it, except
    /// that those refused before are tried again.
    void refresh();

    /// The granted combinations that a key press in `state` stands for.
    std::vector<X11Combination> matching(xcb_keycode_t keycode, quint16 state) const;

    const X11Modifiers &modifiers() const { return m_modifiers; }

private:
    std::vector<quint16> masksOf(const X11Combination &combination) const;
    std::vector<std::vector<quint16>> masksOfWanted() const;
    bool isUsedByAnother(const X11Combination &combination, quint16 mask) const;
    bool grab(const X11Combination &combination);
    void ungrab(const X11Combination &combination);
    void grabWanted();
    void ungrabAll();

    const X11Connection &m_connection;
    X11Modifiers m_modifiers;
    std::map<X11Combination, bool> m_wanted; ///< Whether it is granted.
    bool m_isSuspended = false;
};
