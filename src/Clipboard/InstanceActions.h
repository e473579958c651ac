#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

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

private:
    /// Swops once no key is held, or after a while all the same.
    void swopWhenKeysAreUp();

    AppDelegate &m_appDelegate;
    const KeySender &m_keySender;
    QTimer m_heldKeyTimer;
    int m_heldKeyLooks = 0;
};
