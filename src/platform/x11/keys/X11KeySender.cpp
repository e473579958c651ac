#include "platform/x11/keys/X11KeySender.h"

#include "platform/ApplicationNames.h"
#include "platform/VirtualKeys.h"
#include "platform/x11/keys/X11ChordPlan.h"
#include "platform/x11/windows/X11FrontApplication.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWindow>

#include <utility>

X11KeySender::X11KeySender(X11HotKeys &hotKeys, const X11FrontApplication &frontApplication,
                           const ApplicationNames &names, Selections selections,
                           KnownKeys::UsersTable usersTable)
    : m_hotKeys(hotKeys), m_front(frontApplication), m_names(names),
      m_selections(std::move(selections)), m_knownKeys(std::move(usersTable)),
      m_takeOver(frontApplication, m_selections.askers)
{
}

KeySender::Outcome X11KeySender::sendCommand(quint32 keyCode)
{
    if (!isAvailable() || (keyCode != VirtualKey::kC && keyCode != VirtualKey::kV))
        return Outcome::Failed;
    m_takeOver.cancel();
    const xcb_window_t target = m_front.windowInFront();
    if (keyCode == VirtualKey::kC)
        return copy(target);
    const ApplicationKeys keys = keysOf(target);
    return paste(target, keys, keys.paste);
}

KeySender::Outcome X11KeySender::sendPasteOverCopied()
{
    if (!isAvailable())
        return Outcome::Failed;
    m_takeOver.cancel();
    const xcb_window_t target = m_front.windowInFront();
    const ApplicationKeys keys = keysOf(target);
    return paste(target, keys, keys.replace);
}

ApplicationKeys X11KeySender::keysOf(xcb_window_t target)
{
    const WindowIdentity identity = m_front.identityOf(target).value_or(WindowIdentity());
    return m_knownKeys.keysOf(identity, m_names.identify(identity).isTerminal);
}

KeySender::Outcome X11KeySender::copy(xcb_window_t target)
{
    const ApplicationKeys keys = keysOf(target);
    // In a terminal: Ctrl-C would end the program inside, and what is marked is PRIMARY already.
    if (keys.copiesMarked) {
        m_selections.publishPrimary(target);
        return Outcome::Sent;
    }
    return keys.copy.empty() ? Outcome::NoKnownKeys : send(keys.copy);
}

KeySender::Outcome X11KeySender::paste(xcb_window_t target, const ApplicationKeys &keys,
                                       const KeySequence &sequence)
{
    if (sequence.empty())
        return Outcome::NoKnownKeys;
    m_selections.expectPaste(target);
    // As Shift-Insert does in terminals, where Ctrl-V types a control character and Ctrl-Shift-V is
    // not every one's.
    if (keys.pastesPrimary)
        m_selections.offerPrimary();
    if (keys.remote == ApplicationKeys::Remote::No)
        return send(sequence);
    ++m_sent;
    m_takeOver.await(target, keys.remote, [this, target, sequence](bool isTakenOver) {
        pasteTakenOver(target, sequence, isTakenOver);
    });
    return Outcome::Sent;
}

void X11KeySender::pasteTakenOver(xcb_window_t target, const KeySequence &sequence,
                                  bool isTakenOver)
{
    const bool isSent =
        isTakenOver && m_front.windowInFront() == target && send(sequence) == Outcome::Sent;
    if (!isSent && m_givenUp)
        m_givenUp();
}

void X11KeySender::keepTypedAhead(QWindow *window)
{
    m_hotKeys.keepTypedAhead(xcb_window_t(window->winId()));
    if (!std::exchange(m_isFiltering, true))
        QCoreApplication::instance()->installEventFilter(this);
}

bool X11KeySender::eventFilter(QObject *watched, QEvent *event)
{
    const auto isReturn = [event] {
        const int key = static_cast<QKeyEvent *>(event)->key();
        return key == Qt::Key_Return || key == Qt::Key_Enter;
    };
    const bool isReturnOfWindow =
        event->type() == QEvent::KeyPress && watched->isWindowType() && isReturn();
    // An input method may have taken the Return for itself.
    if (isReturnOfWindow || event->type() == QEvent::InputMethod)
        QMetaObject::invokeMethod(
            this,
            [this, sent = m_sent] {
                if (sent == m_sent)
                    m_hotKeys.letTypedAheadGo();
            },
            Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

KeySender::Outcome X11KeySender::send(const KeySequence &sequence)
{
    ++m_sent;
    bool canBeTyped = true;
    const bool isSent = m_hotKeys.typeFreely([&](const X11HotKeys::Typing &typing) {
        const std::optional<X11HotKeys::Keystroke> keystroke = X11ChordPlan(typing).of(sequence);
        canBeTyped = keystroke.has_value();
        return keystroke.value_or(X11HotKeys::Keystroke());
    });
    if (!isSent)
        return Outcome::Failed;
    return canBeTyped ? Outcome::Sent : Outcome::NoKnownKeys;
}
