#include "shortcut/ShortcutRecording.h"

#include "shortcut/MASShortcutMonitor.h"
#include "shortcut/MASShortcutView.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <utility>

namespace {

bool isModifierKey(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_CapsLock:
        return true;
    default:
        return false;
    }
}

} // namespace

ShortcutRecording &ShortcutRecording::shared()
{
    static ShortcutRecording recording;
    return recording;
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

void ShortcutRecording::stop()
{
    enter(m_key ? Phase::AwaitingRelease : Phase::Off);
}

void ShortcutRecording::pause()
{
    enter(Phase::Paused);
}

void ShortcutRecording::resume()
{
    enter(Phase::Recording);
}

void ShortcutRecording::enter(Phase phase)
{
    m_phase = phase;
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
        return m_phase == Phase::Recording ? monitorKey(keyEvent) : awaitRelease(keyEvent);
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
    if (!m_recorder || (!isPress && !isModifierKey(event)))
        return false;
    // A key that is merely held says nothing new. And a shortcut of the application may be about to
    // steal the key: claimed, it comes as a press.
    const bool isClaim = event.type() == QEvent::ShortcutOverride &&
                         !MASShortcutView::isLetThrough(MASShortcut::shortcutWithEvent(event));
    if (event.isAutoRepeat() || isClaim) {
        event.accept();
        return true;
    }
    if (isPress)
        m_key = event.nativeScanCode();
    const bool isSwallowed = m_recorder->handleKeyEvent(event);
    if (m_phase != Phase::AwaitingRelease)
        m_key.reset();
    if (isSwallowed)
        event.accept();
    return isSwallowed;
}

bool ShortcutRecording::awaitRelease(QKeyEvent &event)
{
    const bool isAwaited = event.nativeScanCode() == m_key;
    if (isAwaited && event.isAutoRepeat()) {
        event.accept();
        return true;
    }
    const bool isLetGo = isAwaited && event.type() == QEvent::KeyRelease;
    const bool isAnotherPress = !isAwaited && event.type() == QEvent::KeyPress;
    if (isLetGo || isAnotherPress)
        enter(Phase::Off);
    return false;
}
