#pragma once

#include <QObject>

#include <compare>
#include <cstdint>
#include <optional>
#include <vector>

/// Names one registration: a four-character signature of the registry that made it, and that
/// registry's own number.
struct HotKeyId
{
    quint32 signature = 0;
    quint32 id = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): it errs
    auto operator<=>(const HotKeyId &) const = default;
};

/// What a hot-key press or release tells.
struct HotKeyEvent
{
    HotKeyId id;
    /// Milliseconds on the display server's clock.
    quint32 timestamp = 0;
    /// Pointer position in native pixels of the whole desktop, where the platform tells it.
    int x = 0;
    int y = 0;
    /// Bits of CarbonModifiers that were held at that moment, Caps Lock among them while it is on.
    quint32 carbonModifiers = 0;
};

/// System-wide hot keys: a virtual key with modifiers, reported wherever the keyboard focus is.
/// Owned by Platform; used from the main thread. Registrations are counted for each combination,
/// so an equal combination may be registered anew before the old registration is released, and
/// every id of the combination is reported.
class HotKeys : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Registers a combination under `id`. `keyCode` is a virtual key code (VirtualKeys.h),
    /// `carbonModifiers` bits of CarbonModifiers. With Caps Lock among the modifiers the
    /// combination fires only while Caps Lock is on; otherwise lock states do not matter. False
    /// when the key does not exist, another program holds the combination, or the id is taken.
    [[nodiscard]] virtual bool registerHotKey(HotKeyId id, quint32 keyCode,
                                              quint32 carbonModifiers) = 0;

    /// Releases a registration; an unknown id is ignored.
    virtual void unregisterHotKey(HotKeyId id) = 0;

    /// Whether the combination could be registered now by somebody who does not have it: false
    /// when another program holds it. Our own registrations do not count against it.
    virtual bool isAvailable(quint32 keyCode, quint32 carbonModifiers) = 0;

    /// Whether the presses of a registration reach us, or will when the suspension ends. False for
    /// an unknown id, and when another program took the combination while we had let go of it: for
    /// a suspension, or for a moment when the keyboard changed. Registering an equal combination
    /// tries again for all of its ids.
    virtual bool isGranted(HotKeyId id) = 0;

    /// Holds all registrations back, so that a recorder sees the keys itself, and puts them back.
    virtual void setSuspended(bool isSuspended) = 0;

Q_SIGNALS:
    /// Once for each hold of the combination, however long it is held.
    void pressed(const HotKeyEvent &event);
    /// When the key of a pressed combination is let go.
    void released(const HotKeyEvent &event);
    /// What other programs hold may have changed, because one of them ended, the keyboard changed
    /// or a suspension ended: what was refused is worth another try, and isGranted() another
    /// question.
    void availabilityChanged();
};
