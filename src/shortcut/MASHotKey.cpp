#include "shortcut/MASHotKey.h"

#include "platform/HotKeys.h"
#include "shortcut/MASShortcut.h"

namespace {

quint32 nextCarbonID()
{
    static quint32 lastID = 0;
    return ++lastID;
}

} // namespace

std::unique_ptr<MASHotKey> MASHotKey::registeredHotKeyWithShortcut(HotKeys &hotKeys,
                                                                   const MASShortcut &shortcut)
{
    std::unique_ptr<MASHotKey> hotKey(new MASHotKey);
    hotKey->m_carbonID = nextCarbonID();
    if (!hotKeys.registerHotKey({kSignature, hotKey->m_carbonID}, shortcut.carbonKeyCode(),
                                shortcut.carbonFlags()))
        return nullptr;
    hotKey->m_hotKeys = &hotKeys;
    return hotKey;
}

bool MASHotKey::isGranted() const
{
    HotKeys *const hotKeys = m_hotKeys;
    return hotKeys && hotKeys->isGranted({kSignature, m_carbonID});
}

MASHotKey::~MASHotKey()
{
    if (HotKeys *const hotKeys = m_hotKeys)
        hotKeys->unregisterHotKey({kSignature, m_carbonID});
}
