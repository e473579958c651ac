#pragma once

#include <QPoint>
#include <QString>

/// What the action of a hot key gets: the key-up that ended the hold of its combination. It belongs
/// to no window, typed no text and repeats nothing, because the keyboard was another program's.
struct KeyUpEvent
{
    quint32 type = 11;         ///< Key up, in the numbers of NSEventType.
    QPoint location;           ///< Of the pointer, in native pixels of the whole desktop.
    quint64 modifierFlags = 0; ///< Bits of ModifierFlags that were held.
    quint32 timestamp = 0;     ///< Milliseconds on the display server's clock.
    qint64 windowNumber = -1;
    QString characters;
    bool isARepeat = false;
    quint16 keyCode = 0; ///< Virtual key code of the hot key.

    bool operator==(const KeyUpEvent &) const = default;
};
