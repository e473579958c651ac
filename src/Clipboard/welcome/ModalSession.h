#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QEventLoop;
class QWindow;

/// Runs one window modally: everything of the application goes on, but no other window takes
/// input. Owned by whoever shows the window. Qt's own modality cannot be taken from a window that
/// is to stay on the screen, and this window stays after its session.
class ModalSession : public QObject
{
    Q_OBJECT

public:
    /// Returns when the session was stopped or the application quits. `window` is visible; it may
    /// be hidden meanwhile, but not destroyed. Not while a session runs already.
    void run(QWidget &window);
    /// Nothing when no session runs.
    void stop();
    bool isRunning() const { return m_loop != nullptr; }

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isBlocked(const QWindow &window) const;

    QPointer<QWidget> m_window;
    QEventLoop *m_loop = nullptr; ///< On the stack of run(); null once it is told to end.
};
