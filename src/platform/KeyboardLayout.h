#pragma once

#include <QObject>
#include <QString>

/// The current keyboard layout: what is printed on a key. Owned by Platform; used from the main
/// thread.
class KeyboardLayout : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// What a key gives without modifiers in the current layout, or, when that layout cannot type
    /// ASCII, in the first one that can. A dead key gives its spacing accent. Empty when the key
    /// gives no character. `keyCode` is a virtual key code.
    virtual QString asciiCapableName(quint32 keyCode) const = 0;

    /// What a key gives in the current layout while `carbonModifiers` (CarbonModifiers) are held.
    /// A dead key by itself gives nothing.
    virtual QString characters(quint32 keyCode, quint32 carbonModifiers) const = 0;

Q_SIGNALS:
    /// The layout or its group changed; names told before may be out of date.
    void changed();
};
