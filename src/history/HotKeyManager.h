#pragma once

#include "platform/KeySender.h"

#include <functional>
#include <utility>

/// Types the desktop's copy and paste keystrokes into the application in front. Owned by the
/// application delegate.
class HotKeyManager
{
public:
    explicit HotKeyManager(KeySender &keySender);

    /// Each logs "No event source" and does nothing more where keystrokes cannot be sent.
    KeySender::Outcome paste();
    /// In the place of what copy() has copied.
    KeySender::Outcome pasteOverCopied();
    KeySender::Outcome copy();

    /// As KeySender::isAvailable().
    bool canType() const { return m_keySender.isAvailable(); }

    /// As KeySender::setGivenUp().
    void setGivenUp(std::function<void()> givenUp) { m_keySender.setGivenUp(std::move(givenUp)); }

private:
    static KeySender::Outcome logged(KeySender::Outcome outcome);

    KeySender &m_keySender;
};
