#pragma once

#include <QObject>

#include <functional>

/// Quits when Super-Q is pressed in a window of ours, whichever it is: one ear for all of them, so
/// that none can be forgotten. Owned by AppDelegate. A recorder of shortcuts listens before it.
class QuitKeys : public QObject
{
    Q_OBJECT

public:
    QuitKeys(std::function<void()> quit, QObject *parent);

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const std::function<void()> m_quit;
};
