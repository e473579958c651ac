#pragma once

#include "platform/KeySender.h"
#include "platform/x11/X11HotKeys.h"

#include <QObject>

#include <xcb/xcb.h>

#include <functional>

class X11FrontApplication;

/// Types with the server's test extension, over the connection and on the thread of the hot keys.
/// Nothing that it released for the user is ever pressed again: the user's own release follows,
/// and a key pressed twice but released once would stick.
class X11KeySender : public QObject, public KeySender
{
    Q_OBJECT

public:
    /// What is done with the selections for a keystroke.
    struct Selections
    {
        /// A paste is about to be typed into the window.
        std::function<void(xcb_window_t target)> expectPaste;
        // Copy and paste in a terminal, where Ctrl-C and Ctrl-V belong to the program inside.
        /// Makes the pasteboard's text the primary selection, which Shift-Insert pastes.
        std::function<void()> offerPrimary;
        /// Takes the primary selection of the target window as a copy.
        std::function<void(xcb_window_t target)> publishPrimary;
    };

    /// Both references must outlive this object.
    X11KeySender(X11HotKeys &hotKeys, const X11FrontApplication &frontApplication,
                 Selections selections);

    // ^KeySender
    bool isAvailable() const override;
    bool isKeyHeld() const override;
    [[nodiscard]] bool sendCommand(quint32 keyCode) override;
    void keepTypedAhead(QWindow *window) override;

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// A modifier with a key.
    struct Chord
    {
        quint32 carbonModifier;
        xkb_keysym_t symbol;
        quint32 keyCode; ///< Where the key is when no key gives the symbol.
    };

    bool send(const Chord &chord);
    static X11HotKeys::Keystroke plan(const X11HotKeys::Typing &typing, const Chord &chord);

    X11HotKeys &m_hotKeys;
    const X11FrontApplication &m_front;
    const Selections m_selections;
    bool m_isFiltering = false;
    int m_sent = 0;
};
