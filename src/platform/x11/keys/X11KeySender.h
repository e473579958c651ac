#pragma once

#include "platform/KeySender.h"
#include "platform/typing/KnownKeys.h"
#include "platform/x11/keys/X11HotKeys.h"
#include "platform/x11/keys/X11TakeOver.h"

#include <QObject>

#include <xcb/xcb.h>

#include <functional>
#include <utility>
#include <vector>

class ApplicationNames;
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
        /// Makes the pasteboard's text the primary selection.
        std::function<void()> offerPrimary;
        /// Takes the primary selection of the target window as a copy.
        std::function<void(xcb_window_t target)> publishPrimary;
        /// Who has asked for the pasteboard's contents, if only for their formats.
        std::function<std::vector<xcb_window_t>()> askers;
    };

    /// The references must outlive this object.
    X11KeySender(X11HotKeys &hotKeys, const X11FrontApplication &frontApplication,
                 const ApplicationNames &names, Selections selections,
                 KnownKeys::UsersTable usersTable = {});

    // ^KeySender
    bool isAvailable() const override { return m_hotKeys.canType(); }
    bool isKeyHeld() const override { return m_hotKeys.isKeyHeld(); }
    [[nodiscard]] Outcome sendCommand(quint32 keyCode) override;
    [[nodiscard]] Outcome sendPasteOverCopied() override;
    void setGivenUp(std::function<void()> givenUp) override { m_givenUp = std::move(givenUp); }
    void keepTypedAhead(QWindow *window) override;

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ApplicationKeys keysOf(xcb_window_t target);
    Outcome copy(xcb_window_t target);
    Outcome paste(xcb_window_t target, const ApplicationKeys &keys, const KeySequence &sequence);
    void pasteTakenOver(xcb_window_t target, const KeySequence &sequence, bool isTakenOver);
    Outcome send(const KeySequence &sequence);

    X11HotKeys &m_hotKeys;
    const X11FrontApplication &m_front;
    const ApplicationNames &m_names;
    const Selections m_selections;
    KnownKeys m_knownKeys;
    X11TakeOver m_takeOver;
    std::function<void()> m_givenUp;
    bool m_isFiltering = false;
    int m_sent = 0;
};
