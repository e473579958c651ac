#include "platform/ModifierFlags.h"

#include <QKeyEvent>

namespace {

/// The Lock modifier has this bit on every X server and in every xkb keymap.
constexpr quint32 kNativeLock = 0x2;

/// Alt gives the Meta symbols of X11 while Shift is held, and Qt takes those for the Super key.
bool isAltTakenForSuper(const QKeyEvent &event)
{
    constexpr quint32 kMetaL = 0xFFE7;
    constexpr quint32 kMetaR = 0xFFE8;
    const quint32 symbol = event.nativeVirtualKey();
    return event.key() == Qt::Key_Meta && (symbol == kMetaL || symbol == kMetaR);
}

} // namespace

quint64 ModifierFlags::ofEvent(const QKeyEvent &event)
{
    Qt::KeyboardModifiers held = event.modifiers();
    if (isAltTakenForSuper(event))
        held ^= Qt::MetaModifier | Qt::AltModifier;
    quint64 flags = 0;
    if (held & Qt::ShiftModifier)
        flags |= kShift;
    if (held & Qt::ControlModifier)
        flags |= kControl;
    if (held & Qt::AltModifier)
        flags |= kOption;
    if (held & Qt::MetaModifier)
        flags |= kCommand;
    return flags;
}

quint64 ModifierFlags::ofEventWithCapsLock(const QKeyEvent &event)
{
    return event.nativeModifiers() & kNativeLock ? ofEvent(event) | kCapsLock : ofEvent(event);
}

quint64 ModifierFlags::ofCarbon(quint32 carbonModifiers)
{
    quint64 flags = 0;
    if (carbonModifiers & CarbonModifiers::kCapsLock)
        flags |= kCapsLock;
    if (carbonModifiers & CarbonModifiers::kShift)
        flags |= kShift;
    if (carbonModifiers & CarbonModifiers::kControl)
        flags |= kControl;
    if (carbonModifiers & CarbonModifiers::kOption)
        flags |= kOption;
    if (carbonModifiers & CarbonModifiers::kCommand)
        flags |= kCommand;
    return flags;
}

bool ModifierFlags::isModifierKey(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_CapsLock:
        return true;
    default:
        return false;
    }
}

quint32 CarbonModifiers::ofFlags(quint64 modifierFlags)
{
    quint32 carbon = 0;
    if (modifierFlags & ModifierFlags::kShift)
        carbon |= kShift;
    if (modifierFlags & ModifierFlags::kControl)
        carbon |= kControl;
    if (modifierFlags & ModifierFlags::kOption)
        carbon |= kOption;
    if (modifierFlags & ModifierFlags::kCommand)
        carbon |= kCommand;
    return carbon;
}
