#pragma once

#include "Clipboard/HistoryClips.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

class AppDelegate;
class FrontApplication;
class KeySender;
class SingleInstance;

/// Performs what other programs and further starts ask for, as the status menu
/// and the shortcuts would. Owned by main.
class InstanceActions : public QObject
{
    Q_OBJECT

public:
    /// All must outlive this object. Nothing arrives before `instance` is open.
    InstanceActions(AppDelegate &appDelegate, SingleInstance &instance, FrontApplication &front,
                    const KeySender &keySender);

    /// `action` is one of SingleInstance's.
    void perform(const QString &action);

    /// The clips as other programs may use them.
    SharedClips &clips() { return m_clips; }

private:
    /// Does it once no key is held, or after a while all the same.
    void whenKeysAreUp(const std::function<void()> &action);
    void lookForHeldKeys();
    HistoryClips::Application application();

    AppDelegate &m_appDelegate;
    const KeySender &m_keySender;
    HistoryClips m_clips;
    QList<std::function<void()>> m_waiting; ///< For the keys, in order.
    QTimer m_heldKeyTimer;
    int m_heldKeyLooks = 0;
};
