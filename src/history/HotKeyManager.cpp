#include "history/HotKeyManager.h"

#include "history/HistoryLog.h"
#include "platform/KeySender.h"
#include "platform/VirtualKeys.h"

HotKeyManager::HotKeyManager(KeySender &keySender) : m_keySender(keySender) {}

void HotKeyManager::paste()
{
    send(VirtualKey::kV);
}

void HotKeyManager::copy()
{
    send(VirtualKey::kC);
}

void HotKeyManager::send(unsigned keyCode)
{
    if (!m_keySender.isAvailable() || !m_keySender.sendCommand(keyCode))
        qCWarning(lcHistory, "No event source");
}
