#pragma once

#include <QtGlobal>

class QWindow;

/// Types into the application in front. Owned by Platform; used from the main thread.
///
/// What the user still holds (the hot key's own modifiers, Shift of Shift-Return) is released
/// before the keystroke and never pressed again: the user's own release follows. In a terminal,
/// where the usual keystrokes mean something else, the adapter does what copies and pastes there.
class KeySender
{
public:
    KeySender() = default;
    KeySender(const KeySender &) = delete;
    KeySender &operator=(const KeySender &) = delete;
    virtual ~KeySender() = default;

    /// Whether keystrokes can be sent at all on this display.
    virtual bool isAvailable() const = 0;

    /// Whether somebody has a key down that is no modifier. Another program's shortcut may keep the
    /// keyboard until its key is let go, and what is typed meanwhile goes to that program.
    virtual bool isKeyHeld() const = 0;

    /// Sends the desktop's copy or paste keystroke: `keyCode` is the virtual key C or V, combined
    /// with the modifier that the desktop uses for commands. Returns once the display server has
    /// taken the events. False when they could not be sent.
    [[nodiscard]] virtual bool sendCommand(quint32 keyCode) = 0;

    /// Says that Return in `window`, one of our own, may lead to a command: what the user types
    /// behind it is kept back until the command's paste has been read, and then goes, in order, to
    /// whoever has the keyboard: without a command as soon as the window has handled its Return,
    /// and half a second after it in any case. To be called whenever the window is shown.
    virtual void keepTypedAhead(QWindow *window) = 0;
};
