#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

class AppDelegate;
class InstanceDoor;

/// Performs what other programs and further starts ask for through the door, as the status menu
/// and the shortcuts would. Owned by main.
class DoorActions : public QObject
{
    Q_OBJECT

public:
    /// Both must outlive this object. Nothing arrives before the door is opened.
    DoorActions(AppDelegate &appDelegate, InstanceDoor &door);

    /// `action` is one of the door's.
    void perform(const QString &action);

private:
    /// Swops once no key is held, or after a while all the same.
    void swopWhenKeysAreUp();

    AppDelegate &m_appDelegate;
    QTimer m_heldKeyTimer;
    int m_heldKeyLooks = 0;
};
