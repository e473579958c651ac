#pragma once

#include "platform/x11/X11Connection.h"

#include <QtGlobal>

#include <array>
#include <vector>

/// Which of the server's eight modifiers stand for which keys, read from the modifier map: layouts
/// and users move them about. A value, read anew after each mapping change.
struct X11Modifiers
{
    /// As most keyboards have them, until the map was read and for what the map does not hold.
    quint16 option = XCB_MOD_MASK_1;
    quint16 command = XCB_MOD_MASK_4;
    /// 0 when no modifier stands for the key.
    quint16 numLock = 0;
    quint16 scrollLock = 0;
    /// A key of each modifier, in the order of their bits; 0 when it has none.
    std::array<xcb_keycode_t, 8> keys{};
    /// Every key that is a modifier while it is held; the locking keys are not among them.
    std::vector<xcb_keycode_t> heldKeys;

    bool operator==(const X11Modifiers &) const = default;

    static X11Modifiers read(const X11Connection &connection);

    /// The modifier mask of Carbon bits, Caps Lock left aside.
    quint16 maskOf(quint32 carbonModifiers) const;

    /// The Carbon bits that an event's state stands for, Caps Lock among them while it is on.
    quint32 carbonOf(quint16 state) const;

    /// Every combination of the locks, that of none included. Those with Caps Lock only, when the
    /// combination asks for Caps Lock.
    std::vector<quint16> lockVariants(quint32 carbonModifiers) const;

    /// The bits of an event's state that tell combinations apart, locks left aside.
    quint16 withoutLocks(quint16 state) const;
};
