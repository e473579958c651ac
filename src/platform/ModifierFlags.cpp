#include "platform/ModifierFlags.h"

#include <QKeyEvent>

quint64 ModifierFlags::ofEvent(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers held = event.modifiers();
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
