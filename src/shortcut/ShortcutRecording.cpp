#include "shortcut/ShortcutRecording.h"

#include "platform/ModifierFlags.h"
#include "shortcut/MASShortcutMonitor.h"
#include "shortcut/MASShortcutValidator.h"
#include "shortcut/MASShortcutView.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <chrono>
#include <utility>

namespace {

// A held key is reported as let go and pressed anew at the same moment, but the two do not always
// arrive together, and Qt then takes them for real.
constexpr std::chrono::milliseconds kRepetitionGap{25};

} // namespace

ShortcutRecording &ShortcutRecording::shared()
{
    static ShortcutRecording recording;
    return recording;
}

ShortcutRecording::ShortcutRecording()
{
    m_releaseTimer.setSingleShot(true);
    m_releaseTimer.setInterval(kRepetitionGap);
    m_releaseTimer.callOnTimeout(this, [this] { enter(Phase::Off); });
}

void ShortcutRecording::setRecorder(MASShortcutView &recorder)
{
    if (m_recorder && m_recorder != &recorder)
        m_recorder->setRecording(false);
    m_recorder = &recorder;
}

void ShortcutRecording::start(MASShortcutMonitor *hotKeyMonitor)
{
    enter(Phase::Off);
    if (hotKeyMonitor)
        hotKeyMonitor->setSuspended(true);
    m_suspended = hotKeyMonitor;
    enter(Phase::Recording);
}

void ShortcutRecording::enter(Phase phase)
{
    m_phase = phase;
    m_releaseTimer.stop();
    if (phase == Phase::Off) {
        m_key.reset();
        if (MASShortcutMonitor *const monitor = std::exchange(m_suspended, nullptr))
            monitor->setSuspended(false);
    }
    if (!qApp)
        return;
    if (phase == Phase::Recording || phase == Phase::AwaitingRelease)
        qApp->installEventFilter(this);
    else
        qApp->removeEventFilter(this);
}

bool ShortcutRecording::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        auto &keyEvent = static_cast<QKeyEvent &>(*event);
        const bool isSwallowed =
            m_phase == Phase::Recording ? monitorKey(keyEvent) : awaitRelease(keyEvent);
        if (event->type() == QEvent::KeyRelease)
            m_lastRelease = {keyEvent.nativeScanCode(), keyEvent.timestamp()};
        if (isSwallowed)
            event->accept();
        return isSwallowed;
    }
    case QEvent::WindowDeactivate:
        if (m_phase == Phase::AwaitingRelease)
            enter(Phase::Off);
        else if (m_recorder && watched == m_recorder->window())
            m_recorder->setRecording(false);
        return false;
    default:
        return false;
    }
}

bool ShortcutRecording::monitorKey(QKeyEvent &event)
{
    const bool isPress = event.type() != QEvent::KeyRelease;
    if (!m_recorder || (!isPress && !ModifierFlags::isModifierKey(event)))
        return false;
    // A key that is merely held says nothing new. And a shortcut of the application may be about to
    // steal the key: claimed, it comes as a press.
    const bool isClaim =
        event.type() == QEvent::ShortcutOverride &&
        !MASShortcutValidator::closesOrQuits(MASShortcut::shortcutWithEvent(event));
    if (isClaim || isRepetition(event))
        return true;
    if (isPress)
        m_key = event.nativeScanCode();
    const bool isSwallowed = m_recorder->handleKeyEvent(event);
    if (m_phase != Phase::AwaitingRelease)
        m_key.reset();
    return isSwallowed;
}

bool ShortcutRecording::awaitRelease(const QKeyEvent &event)
{
    const bool isAwaited = event.nativeScanCode() == m_key;
    if (isAwaited && isRepetition(event)) {
        m_releaseTimer.stop();
        return true;
    }
    if (isAwaited && event.type() == QEvent::KeyRelease)
        m_releaseTimer.start();
    const bool isAnew = !isAwaited || m_releaseTimer.isActive();
    if (isAnew && event.type() == QEvent::KeyPress)
        enter(Phase::Off);
    return false;
}

bool ShortcutRecording::isRepetition(const QKeyEvent &event) const
{
    const bool isAtItsRelease =
        event.type() != QEvent::KeyRelease && event.nativeScanCode() == m_lastRelease.key &&
        event.timestamp() == m_lastRelease.timestamp && event.timestamp() != 0;
    return event.isAutoRepeat() || isAtItsRelease;
}
