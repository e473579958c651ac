#include "history/HotKeyManager.h"

#include "history/HistoryLog.h"
#include "platform/VirtualKeys.h"

#include <utility>

HotKeyManager::HotKeyManager(KeySender &keySender) : m_keySender(keySender) {}

KeySender::Outcome HotKeyManager::paste()
{
    return logged(m_keySender.sendCommand(VirtualKey::kV));
}

KeySender::Outcome HotKeyManager::pasteOverCopied()
{
    return logged(m_keySender.sendPasteOverCopied());
}

KeySender::Outcome HotKeyManager::copy()
{
    return logged(m_keySender.sendCommand(VirtualKey::kC));
}

KeySender::Outcome HotKeyManager::logged(KeySender::Outcome outcome)
{
    if (outcome == KeySender::Outcome::Failed)
        qCWarning(lcHistory, "No event source");
    return outcome;
}
