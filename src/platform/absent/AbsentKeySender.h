#pragma once

#include "platform/KeySender.h"

/// Where no program may type into another one's window: clips are put on the clipboard, and the
/// user pastes them.
class AbsentKeySender : public KeySender
{
public:
    // ^KeySender
    bool isAvailable() const override { return false; }
    bool isKeyHeld() const override { return false; }
    [[nodiscard]] Outcome sendCommand(quint32) override { return Outcome::Failed; }
    [[nodiscard]] Outcome sendPasteOverCopied() override { return Outcome::Failed; }
    void setGivenUp(std::function<void()>) override {}
    void keepTypedAhead(QWindow *) override {}
};
