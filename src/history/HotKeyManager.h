#pragma once

class KeySender;

/// Types the desktop's copy and paste keystrokes into the application in front. Owned by the
/// application delegate.
class HotKeyManager
{
public:
    explicit HotKeyManager(KeySender &keySender);

    /// Each logs "No event source" and does nothing more where keystrokes cannot be sent.
    void paste();
    void copy();

private:
    void send(unsigned keyCode);

    KeySender &m_keySender;
};
