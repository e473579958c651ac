#pragma once

#include <QObject>

#include <functional>

class KeyboardLayout;
class QKeyEvent;

/// Super-W closes the window of ours that it is pressed in, and Super-Q quits: one ear for all
/// windows, so that none can be forgotten. Owned by each program's main object. A recorder of
/// shortcuts listens before it.
class WindowKeys : public QObject
{
    Q_OBJECT

public:
    /// `layout` must outlive this object.
    WindowKeys(const KeyboardLayout &layout, std::function<void()> quit, QObject *parent = nullptr);

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isLetter(const QKeyEvent &event, Qt::Key letter) const;

    const KeyboardLayout &m_layout;
    const std::function<void()> m_quit;
};
