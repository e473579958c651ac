#pragma once

#include <Qt>

class QKeyEvent;

/// Modifier keys as bits of a stored or recorded shortcut. The values are those of Cocoa's
/// device-independent modifier flags (NSEvent.h), which the stored shortcut archives use.
/// Command is the Super key of a Linux keyboard, Option is Alt.
namespace ModifierFlags {

inline constexpr quint64 kCapsLock = 0x10000;
inline constexpr quint64 kShift = 0x20000;
inline constexpr quint64 kControl = 0x40000;
inline constexpr quint64 kOption = 0x80000;
inline constexpr quint64 kCommand = 0x100000;
inline constexpr quint64 kFunction = 0x800000;

/// The four that a shortcut may carry.
inline constexpr quint64 kShortcutMask = kShift | kControl | kOption | kCommand;

quint64 ofQt(Qt::KeyboardModifiers modifiers);

/// The modifiers held after `event`, in the bits above: a modifier key's own press counts as
/// held, its release as not held.
quint64 ofEvent(const QKeyEvent &event);

/// The same and Caps Lock while it is on.
quint64 ofEventWithCapsLock(const QKeyEvent &event);

/// The flags of CarbonModifiers bits.
quint64 ofCarbon(quint32 carbonModifiers);

/// Whether the event is about a modifier key itself, Caps Lock among them.
bool isModifierKey(const QKeyEvent &event);

} // namespace ModifierFlags

/// Modifier keys as the hot-key service takes them: the bits of Carbon's Events.h.
namespace CarbonModifiers {

inline constexpr quint32 kCommand = 0x0100;
inline constexpr quint32 kShift = 0x0200;
inline constexpr quint32 kCapsLock = 0x0400;
inline constexpr quint32 kOption = 0x0800;
inline constexpr quint32 kControl = 0x1000;

/// Shift, Control, Option and Command of `modifierFlags` as Carbon bits; nothing else is carried.
quint32 ofFlags(quint64 modifierFlags);

} // namespace CarbonModifiers
