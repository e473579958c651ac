#include "platform/ModifierFlags.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

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

/// A modifier that a shortcut may carry, as each side calls it.
struct Modifier
{
    quint64 flag;
    quint32 carbon;
    Qt::KeyboardModifier qt;
};

constexpr Modifier kModifiers[] = {
    {ModifierFlags::kShift, CarbonModifiers::kShift, Qt::ShiftModifier},
    {ModifierFlags::kControl, CarbonModifiers::kControl, Qt::ControlModifier},
    {ModifierFlags::kOption, CarbonModifiers::kOption, Qt::AltModifier},
    {ModifierFlags::kCommand, CarbonModifiers::kCommand, Qt::MetaModifier},
};

} // namespace

quint64 ModifierFlags::ofQt(Qt::KeyboardModifiers modifiers)
{
    quint64 flags = 0;
    for (const Modifier &modifier : kModifiers)
        flags |= modifiers & modifier.qt ? modifier.flag : 0;
    return flags;
}

quint64 ModifierFlags::ofEvent(const QKeyEvent &event)
{
    Qt::KeyboardModifiers held = event.modifiers();
    if (isAltTakenForSuper(event))
        held ^= Qt::MetaModifier | Qt::AltModifier;
    // By this name, which it has under Wayland, Qt does not count the key itself.
    if (event.key() == Qt::Key_Super_L || event.key() == Qt::Key_Super_R)
        held.setFlag(Qt::MetaModifier, event.type() != QEvent::KeyRelease);
    return ofQt(held);
}

quint64 ModifierFlags::ofEventWithCapsLock(const QKeyEvent &event)
{
    return event.nativeModifiers() & kNativeLock ? ofEvent(event) | kCapsLock : ofEvent(event);
}

quint64 ModifierFlags::ofCarbon(quint32 carbonModifiers)
{
    quint64 flags = carbonModifiers & CarbonModifiers::kCapsLock ? kCapsLock : 0;
    for (const Modifier &modifier : kModifiers)
        flags |= carbonModifiers & modifier.carbon ? modifier.flag : 0;
    return flags;
}

bool ModifierFlags::isModifierKey(const QKeyEvent &event)
{
    constexpr std::array kKeys{Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt,     Qt::Key_AltGr,
                               Qt::Key_Meta,  Qt::Key_Super_L, Qt::Key_Super_R, Qt::Key_CapsLock};
    return std::find(kKeys.begin(), kKeys.end(), event.key()) != kKeys.end();
}

quint32 CarbonModifiers::ofFlags(quint64 modifierFlags)
{
    quint32 carbon = 0;
    for (const Modifier &modifier : kModifiers)
        carbon |= modifierFlags & modifier.flag ? modifier.carbon : 0;
    return carbon;
}
