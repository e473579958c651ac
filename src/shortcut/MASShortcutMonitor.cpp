#include "shortcut/MASShortcutMonitor.h"

#include <utility>

namespace {

// Never destroyed: its actions may hold what must not outlive the application object.
MASShortcutMonitor *g_sharedMonitor = nullptr;

} // namespace

MASShortcutMonitor::MASShortcutMonitor(HotKeys &hotKeys, QObject *parent)
    : QObject(parent), m_service(&hotKeys)
{
    connect(&hotKeys, &HotKeys::pressed, this, &MASShortcutMonitor::handleEvent);
    connect(&hotKeys, &HotKeys::availabilityChanged, this,
            &MASShortcutMonitor::availabilityChanged);
    connect(&hotKeys, &HotKeys::controlChanged, this, &MASShortcutMonitor::availabilityChanged);
    connect(&hotKeys, &HotKeys::chosenElsewhere, this, &MASShortcutMonitor::handleChoice);
}

MASShortcutMonitor::~MASShortcutMonitor() = default;

void MASShortcutMonitor::connectShared(HotKeys &hotKeys)
{
    delete std::exchange(g_sharedMonitor, new MASShortcutMonitor(hotKeys));
}

MASShortcutMonitor *MASShortcutMonitor::sharedMonitor()
{
    return g_sharedMonitor;
}

bool MASShortcutMonitor::registerShortcut(const MASShortcut &shortcut, std::function<void()> action,
                                          const std::optional<HotKeyAction> &named)
{
    HotKeys *const service = m_service;
    if (!service)
        return false;
    auto hotKey = MASHotKey::registeredHotKeyWithShortcut(*service, shortcut, named);
    if (!hotKey)
        return false;
    hotKey->setAction(std::move(action));
    m_hotKeys.insert_or_assign(shortcut, std::move(hotKey));
    return true;
}

void MASShortcutMonitor::unregisterShortcut(const std::optional<MASShortcut> &shortcut)
{
    if (shortcut)
        m_hotKeys.erase(*shortcut);
}

bool MASShortcutMonitor::isShortcutRegistered(const MASShortcut &shortcut) const
{
    return m_hotKeys.contains(shortcut);
}

bool MASShortcutMonitor::isShortcutGranted(const MASShortcut &shortcut) const
{
    const auto registered = m_hotKeys.find(shortcut);
    return registered != m_hotKeys.end() && registered->second->isGranted();
}

bool MASShortcutMonitor::canRegister() const
{
    const HotKeys *const service = m_service;
    return service && service->control() != HotKeys::Control::Nobody;
}

void MASShortcutMonitor::setSuspended(bool isSuspended)
{
    if (HotKeys *const service = m_service)
        service->setSuspended(isSuspended);
}

void MASShortcutMonitor::handleChoice(HotKeyId id, const HotKeyChoice &choice)
{
    if (id.signature != MASHotKey::kSignature)
        return;
    for (const auto &[shortcut, hotKey] : m_hotKeys) {
        if (hotKey->carbonID() != id.id)
            continue;
        // A copy, because whoever follows the choice drops the registration.
        Q_EMIT chosenElsewhere(MASShortcut(shortcut), choice);
        return;
    }
}

void MASShortcutMonitor::handleEvent(const HotKeyEvent &event)
{
    if (event.id.signature != MASHotKey::kSignature)
        return;
    for (const auto &[shortcut, hotKey] : m_hotKeys) {
        if (hotKey->carbonID() != event.id.id)
            continue;
        if (hotKey->action())
            QMetaObject::invokeMethod(this, hotKey->action(), Qt::QueuedConnection);
        return;
    }
}
