#pragma once

#include <QtGlobal>

#include <functional>

class QWindow;

/// Types into the application in front. Owned by Platform; used from the main thread.
///
/// What the user still holds (the hot key's own modifiers, Shift of Shift-Return) has no part in
/// the keystroke: it is released before and never pressed again, because the user's own release
/// follows, or it is on another keyboard, or it is waited for. Where the usual keystrokes mean
/// something else, as in a terminal, the adapter does what copies and pastes there.
class KeySender
{
public:
    /// What became of a command.
    enum class Outcome {
        Sent,        ///< Or it will be, unless the receiver of setGivenUp() is told otherwise.
        Failed,      ///< Keystrokes cannot be sent, or the display server is gone.
        NoKnownKeys, ///< Nothing was sent: nothing is known to do it in the application in front.
        KeysHeld     ///< Nothing was sent: the user kept a key down that would have a part in it.
    };

    KeySender() = default;
    KeySender(const KeySender &) = delete;
    KeySender &operator=(const KeySender &) = delete;
    virtual ~KeySender() = default;

    /// Whether keystrokes can be sent at all on this display.
    virtual bool isAvailable() const = 0;

    /// Whether somebody has a key down that is no modifier. Another program's shortcut may keep the
    /// keyboard until its key is let go, and what is typed meanwhile goes to that program. False
    /// where nobody can know; no shortcut keeps the keyboard there.
    virtual bool isKeyHeld() const = 0;

    /// Sends the desktop's copy or paste keystroke: `keyCode` is the virtual key C or V, combined
    /// with the modifier that the desktop uses for commands. Returns once the display server has
    /// taken the events.
    [[nodiscard]] virtual Outcome sendCommand(quint32 keyCode) = 0;

    /// Pastes in the place of the selection that the application in front has just copied by
    /// sendCommand(): not every one replaces it by pasting.
    [[nodiscard]] virtual Outcome sendPasteOverCopied() = 0;

    /// A window that shows another computer has to take the clip over to it before a paste there
    /// finds it. It is waited for, without anybody standing still, and `givenUp` called, later,
    /// when it does not come to that: then nothing was sent.
    virtual void setGivenUp(std::function<void()> givenUp) = 0;

    /// Says that Return in `window`, one of our own, may lead to a command: what the user types
    /// behind it is kept back until the command's paste has been read, and then goes, in order, to
    /// whoever has the keyboard: without a command as soon as the window has handled its Return,
    /// and half a second after it in any case. To be called whenever the window is shown. Nothing
    /// where no program may keep keys back.
    virtual void keepTypedAhead(QWindow *window) = 0;
};
