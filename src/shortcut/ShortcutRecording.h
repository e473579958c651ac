#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <optional>

class MASShortcutMonitor;
class MASShortcutView;
class QKeyEvent;

/// What all recorders of the process share, so that no two can record at once: which of them
/// started last, the application-wide key monitor and the observer of its window. Our own hot keys
/// are suspended from the start of a recording until its last key is let go: a key that is still
/// held would otherwise trigger the very shortcut it has just recorded. Used from the main thread.
class ShortcutRecording : public QObject
{
    Q_OBJECT

public:
    static ShortcutRecording &shared();

    /// Makes `recorder` the remembered one; another that is recording stops first.
    void setRecorder(MASShortcutView &recorder);

    /// Sends every key event of the application through the recorder and suspends the hot keys of
    /// `hotKeyMonitor`, which may be null.
    void start(MASShortcutMonitor *hotKeyMonitor);
    void stop() { enter(m_key ? Phase::AwaitingRelease : Phase::Off); }

    /// Leaves the keys alone for a while, as long as an alert is up.
    void pause() { enter(Phase::Paused); }
    void resume() { enter(Phase::Recording); }

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class Phase { Off, Recording, Paused, AwaitingRelease };

    /// One release, as far as a repetition can be told by it.
    struct Release
    {
        quint32 key = 0; ///< Scan code.
        quint64 timestamp = 0;
    };

    ShortcutRecording();

    void enter(Phase phase);
    bool monitorKey(QKeyEvent &event);
    bool awaitRelease(const QKeyEvent &event);
    bool isRepetition(const QKeyEvent &event) const;

    Phase m_phase = Phase::Off;
    QPointer<MASShortcutView> m_recorder;
    QPointer<MASShortcutMonitor> m_suspended;
    /// Scan code of the press under examination or, after the recording, of the key awaited.
    std::optional<quint32> m_key;
    Release m_lastRelease;
    QTimer m_releaseTimer;
};
