#include "platform/memory/MemoryHotKeys.h"

#include "platform/VirtualKeys.h"

#include <utility>

bool MemoryHotKeys::registerHotKey(HotKeyId id, quint32 keyCode, quint32 carbonModifiers)
{
    if (m_control == Control::Nobody || !VirtualKey::toEvdev(keyCode) ||
        !isAvailable(keyCode, carbonModifiers))
        return false;
    if (!m_registrations.insert({id, {keyCode, carbonModifiers}}).second)
        return false;
    m_lost.erase({keyCode, carbonModifiers});
    return true;
}

QString MemoryHotKeys::configurationFor(const HotKeyCombination &combination,
                                        const QString &word) const
{
    return m_control == Control::Nobody
               ? QStringLiteral("bind %1 quillmarsh %2").arg(combination.keyCode).arg(word)
               : QString();
}

bool MemoryHotKeys::isAvailable(quint32 keyCode, quint32 carbonModifiers)
{
    return !m_heldElsewhere.contains({keyCode, carbonModifiers});
}

bool MemoryHotKeys::isGranted(HotKeyId id)
{
    const auto known = m_registrations.find(id);
    return known != m_registrations.end() && !m_lost.contains(known->second);
}

void MemoryHotKeys::setSuspended(bool isSuspended)
{
    if (std::exchange(m_isSuspended, isSuspended) == isSuspended || isSuspended)
        return;
    // What we let go of, another program may have taken.
    m_lost = m_heldElsewhere;
    Q_EMIT availabilityChanged();
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
    if (m_isSuspended || m_lost.contains({keyCode, carbonModifiers}))
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
