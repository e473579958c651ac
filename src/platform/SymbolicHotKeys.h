#pragma once

#include <QList>
#include <QObject>

/// One keyboard shortcut of the desktop's own.
struct SymbolicHotKey
{
    quint32 keyCode = 0;         ///< Virtual key code (VirtualKeys.h).
    quint32 carbonModifiers = 0; ///< Bits of CarbonModifiers.
    bool isEnabled = true;

    bool operator==(const SymbolicHotKey &) const = default;
};

/// The shortcuts that the desktop in use keeps for itself, as its settings list them. Owned by
/// Platform; used from the main thread. A desktop that keeps no list contributes none.
class SymbolicHotKeys : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// As they were when they were last read; never waits for another program. Empty until the
    /// first reading has ended.
    virtual QList<SymbolicHotKey> hotKeys() const = 0;

    /// Begins to read them again.
    virtual void refresh() = 0;

Q_SIGNALS:
    /// A reading has ended, whether or not it found anything new.
    void refreshed();
};
