#include "platform/memory/MemoryHotKeys.h"

#include "platform/VirtualKeys.h"

bool MemoryHotKeys::registerHotKey(HotKeyId id, quint32 keyCode, quint32 carbonModifiers)
{
    if (!VirtualKey::toEvdev(keyCode) || !isAvailable(keyCode, carbonModifiers))
        return false;
    return m_registrations.insert({id, {keyCode, carbonModifiers}}).second;
}

bool MemoryHotKeys::isAvailable(quint32 keyCode, quint32 carbonModifiers)
{
    return !m_heldElsewhere.contains({keyCode, carbonModifiers});
}

std::vector<HotKeyId> MemoryHotKeys::idsOf(quint32 keyCode, quint32 carbonModifiers) const
{
    std::vector<HotKeyId> ids;
    for (const auto &[id, combination] : m_registrations) {
        if (combination == Combination(keyCode, carbonModifiers))
            ids.push_back(id);
    }
    return ids;
}

void MemoryHotKeys::report(quint32 keyCode, quint32 carbonModifiers, bool isPress)
{
    if (m_isSuspended)
        return;
    for (const HotKeyId id : idsOf(keyCode, carbonModifiers)) {
        HotKeyEvent event;
        event.id = id;
        event.carbonModifiers = carbonModifiers;
        if (isPress)
            Q_EMIT pressed(event);
        else
            Q_EMIT released(event);
    }
}
