#include "hotkey/HotKeyCenter.h"

#include "hotkey/HotKeyLog.h"
#include "platform/ModifierFlags.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

// Never destroyed: its actions may hold what must not outlive the application object.
HotKeyCenter *g_sharedCenter = nullptr;

KeyUpEvent keyUpOf(const HotKey &hotKey, const HotKeyEvent &event)
{
    KeyUpEvent keyUp;
    keyUp.location = {event.x, event.y};
    keyUp.modifierFlags = ModifierFlags::ofCarbon(event.carbonModifiers);
    keyUp.timestamp = event.timestamp;
    keyUp.keyCode = hotKey.keyCode();
    return keyUp;
}

} // namespace

HotKeyCenter::HotKeyCenter(HotKeys &hotKeys, QObject *parent) : QObject(parent), m_service(&hotKeys)
{
    connect(&hotKeys, &HotKeys::released, this, &HotKeyCenter::handleEvent);
}

void HotKeyCenter::connectShared(HotKeys &hotKeys)
{
    delete std::exchange(g_sharedCenter, new HotKeyCenter(hotKeys));
}

HotKeyCenter *HotKeyCenter::sharedHotKeyCenter()
{
    return g_sharedCenter;
}

std::shared_ptr<HotKey>
HotKeyCenter::registerHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags, HotKey::Task task)
{
    return registerHotKey(std::make_shared<HotKey>(keyCode, modifierFlags, std::move(task)));
}

std::shared_ptr<HotKey>
HotKeyCenter::registerHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags, QObject *target,
                                        const QByteArray &action, const QVariant &object)
{
    return registerHotKey(std::make_shared<HotKey>(keyCode, modifierFlags, target, action, object));
}

std::shared_ptr<HotKey> HotKeyCenter::registerHotKey(const std::shared_ptr<HotKey> &hotKey)
{
    HotKeys *const service = m_service;
    if (!service || !hotKey || hotKey->hotKeyRef() || m_registeredHotKeys.contains(hotKey) ||
        !hotKey->registerWith(*service, m_nextHotKeyID))
        return nullptr;
    ++m_nextHotKeyID;
    m_registeredHotKeys.insert(hotKey);
    return hotKey;
}

void HotKeyCenter::unregisterHotKey(const std::shared_ptr<HotKey> &hotKey)
{
    const auto place = hotKey ? m_registeredHotKeys.find(hotKey) : m_registeredHotKeys.end();
    if (place == m_registeredHotKeys.end() || *place != hotKey)
        return;
    hotKey->unregister();
    m_registeredHotKeys.erase(place);
}

void HotKeyCenter::unregisterHotKeysWithTarget(const QObject *target)
{
    unregisterMatching(
        [target](const HotKey &hotKey) { return target && hotKey.target() == target; });
}

void HotKeyCenter::unregisterHotKeysWithTarget(const QObject *target, const QByteArray &action)
{
    unregisterMatching([target, &action](const HotKey &hotKey) {
        return target && hotKey.target() == target && hotKey.action() == action;
    });
}

void HotKeyCenter::unregisterHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags)
{
    const HotKey wanted(keyCode, modifierFlags, HotKey::Task());
    unregisterMatching([&wanted](const HotKey &hotKey) { return hotKey == wanted; });
}

bool HotKeyCenter::hasRegisteredHotKeyWithKeyCode(quint16 keyCode, quint64 modifierFlags) const
{
    return m_registeredHotKeys.contains(
        std::make_shared<HotKey>(keyCode, modifierFlags, HotKey::Task()));
}

void HotKeyCenter::handleEvent(const HotKeyEvent &event)
{
    if (event.id.signature != HotKey::kSignature)
        return;
    // Held, because the action may unregister its own hot key.
    std::vector<std::shared_ptr<HotKey>> matches;
    std::ranges::copy_if(
        m_registeredHotKeys, std::back_inserter(matches),
        [&event](const auto &hotKey) { return hotKey->hotKeyID() == event.id.id; });
    if (matches.empty())
        return;
    if (matches.size() > 1)
        qCCritical(lcHotKey, "ERROR!");
    const HotKey &hotKey = *matches.front();
    hotKey.invokeWithEvent(keyUpOf(hotKey, event));
}

void HotKeyCenter::unregisterMatching(const std::function<bool(const HotKey &)> &isMatch)
{
    for (const std::shared_ptr<HotKey> &hotKey : registeredHotKeys()) {
        if (isMatch(*hotKey))
            unregisterHotKey(hotKey);
    }
}
