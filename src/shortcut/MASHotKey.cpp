#include "shortcut/MASHotKey.h"

#include "shortcut/MASShortcut.h"

namespace {

quint32 nextCarbonID()
{
    static quint32 lastID = 0;
    return ++lastID;
}

} // namespace

std::unique_ptr<MASHotKey>
MASHotKey::registeredHotKeyWithShortcut(HotKeys &hotKeys, const MASShortcut &shortcut,
                                        const std::optional<HotKeyAction> &named)
{
    std::unique_ptr<MASHotKey> hotKey(new MASHotKey);
    hotKey->m_carbonID = nextCarbonID();
    const HotKeyId id{kSignature, hotKey->m_carbonID};
    const bool isRegistered =
        named ? hotKeys.registerAction(id, shortcut.carbonKeyCode(), shortcut.carbonFlags(), *named)
              : hotKeys.registerHotKey(id, shortcut.carbonKeyCode(), shortcut.carbonFlags());
    if (!isRegistered)
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
