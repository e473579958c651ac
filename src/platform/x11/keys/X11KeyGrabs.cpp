#include "platform/x11/keys/X11KeyGrabs.h"

#include "platform/ModifierFlags.h"

#include <algorithm>
#include <utility>

X11KeyGrabs::X11KeyGrabs(const X11Connection &connection)
    : m_connection(connection), m_modifiers(X11Modifiers::read(connection))
{
}

bool X11KeyGrabs::add(const X11Combination &combination)
{
    const auto known = m_wanted.find(combination);
    if (known != m_wanted.end() && known->second)
        return true;
    // A suspended registration promises that it could be granted now.
    const bool isGranted = m_isSuspended ? isAvailable(combination) : grab(combination);
    if (isGranted)
        m_wanted[combination] = !m_isSuspended;
    return isGranted;
}

void X11KeyGrabs::remove(const X11Combination &combination)
{
    const auto known = m_wanted.find(combination);
    if (known == m_wanted.end())
        return;
    if (known->second)
        ungrab(combination);
    m_wanted.erase(known);
}

bool X11KeyGrabs::isAvailable(const X11Combination &combination)
{
    const auto known = m_wanted.find(combination);
    if (known != m_wanted.end() && known->second)
        return true;
    // There is no question for it: the server says so only to who tries.
    if (!grab(combination))
        return false;
    ungrab(combination);
    return true;
}

bool X11KeyGrabs::isGranted(const X11Combination &combination) const
{
    const auto known = m_wanted.find(combination);
    return known != m_wanted.end() && (known->second || m_isSuspended);
}

void X11KeyGrabs::setSuspended(bool isSuspended)
{
    if (isSuspended == m_isSuspended)
        return;
    m_isSuspended = isSuspended;
    if (isSuspended)
        ungrabAll();
    else
        grabWanted();
}

void X11KeyGrabs::refresh()
{
    X11Modifiers other = X11Modifiers::read(m_connection);
    const std::vector<std::vector<quint16>> before = masksOfWanted();
    std::swap(m_modifiers, other);
    if (masksOfWanted() != before) {
        // What was granted is given back by the masks it was granted for.
        std::swap(m_modifiers, other);
        ungrabAll();
        std::swap(m_modifiers, other);
    }
    if (!m_isSuspended)
        grabWanted();
}

std::vector<X11Combination> X11KeyGrabs::matching(xcb_keycode_t keycode, quint16 state) const
{
    const quint16 held = m_modifiers.withoutLocks(state);
    std::vector<X11Combination> found;
    for (const auto &[combination, isGranted] : m_wanted) {
        const bool needsCapsLock = combination.carbonModifiers & CarbonModifiers::kCapsLock;
        if (isGranted && combination.keycode == keycode &&
            m_modifiers.maskOf(combination.carbonModifiers) == held &&
            (!needsCapsLock || (state & XCB_MOD_MASK_LOCK)))
            found.push_back(combination);
    }
    return found;
}

std::vector<quint16> X11KeyGrabs::masksOf(const X11Combination &combination) const
{
    // A grab is for exactly these modifiers: with NumLock on, one without it stays silent. "Any
    // modifiers" instead would take the key from everybody.
    std::vector<quint16> masks = m_modifiers.lockVariants(combination.carbonModifiers);
    for (quint16 &mask : masks)
        mask |= m_modifiers.maskOf(combination.carbonModifiers);
    return masks;
}

std::vector<std::vector<quint16>> X11KeyGrabs::masksOfWanted() const
{
    std::vector<std::vector<quint16>> masks;
    for (const auto &[combination, isGranted] : m_wanted)
        masks.push_back(masksOf(combination));
    return masks;
}

/// Shift-V and Caps-Lock-Shift-V share the variants in which Caps Lock is on.
bool X11KeyGrabs::isUsedByAnother(const X11Combination &combination, quint16 mask) const
{
    return std::any_of(m_wanted.begin(), m_wanted.end(), [&](const auto &entry) {
        if (!entry.second || entry.first == combination ||
            entry.first.keycode != combination.keycode)
            return false;
        const std::vector<quint16> masks = masksOf(entry.first);
        return std::find(masks.begin(), masks.end(), mask) != masks.end();
    });
}

bool X11KeyGrabs::grab(const X11Combination &combination)
{
    // Synchronous for the keyboard: it stands still from the press on, and gives one event at a
    // time until the window that the hot key opens can have the others.
    xcb_connection_t *xcb = m_connection.get();
    std::vector<xcb_void_cookie_t> cookies;
    for (const quint16 mask : masksOf(combination))
        cookies.push_back(xcb_grab_key_checked(xcb, 0, m_connection.root(), mask,
                                               combination.keycode, XCB_GRAB_MODE_ASYNC,
                                               XCB_GRAB_MODE_SYNC));
    // An Access error: another client has that variant. With one missing the hot key would work
    // until somebody presses NumLock, so all go.
    bool isRefused = m_connection.isBroken();
    for (const xcb_void_cookie_t &cookie : cookies)
        isRefused |= XcbPointer<xcb_generic_error_t>(xcb_request_check(xcb, cookie)) != nullptr;
    if (isRefused)
        ungrab(combination);
    return !isRefused;
}

void X11KeyGrabs::ungrab(const X11Combination &combination)
{
    for (const quint16 mask : masksOf(combination)) {
        if (!isUsedByAnother(combination, mask))
            xcb_ungrab_key(m_connection.get(), combination.keycode, m_connection.root(), mask);
    }
    // Another program may take the combination as soon as we said that we let go of it.
    m_connection.roundTrip();
}

void X11KeyGrabs::grabWanted()
{
    for (auto &[combination, isGranted] : m_wanted) {
        if (!isGranted)
            isGranted = grab(combination);
    }
}

void X11KeyGrabs::ungrabAll()
{
    for (auto &[combination, isGranted] : m_wanted) {
        if (!isGranted)
            continue;
        isGranted = false;
        ungrab(combination);
    }
}
