#pragma once

#include <QObject>
#include <QString>

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

/// A key with modifiers: a virtual key code (VirtualKeys.h), and bits of CarbonModifiers.
struct HotKeyCombination
{
    quint32 keyCode = 0;
    quint32 carbonModifiers = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): it errs
    auto operator<=>(const HotKeyCombination &) const = default;
};

/// What a hot key is for, as far as the desktop's own settings list it.
struct HotKeyAction
{
    QString name;  ///< For the desktop to know it again; the same in every language and for ever.
    QString title; ///< For the user.
    /// Whether it types into the application in front at once. Where the desktop has the keyboard
    /// as long as the key is down, its press is told when the key is let go.
    bool types = false;
};

/// What the user has chosen for a hot key of ours in the desktop's own settings.
struct HotKeyChoice
{
    /// Absent when there is none, or none that is a combination of ours.
    std::optional<HotKeyCombination> combination;
    /// The keys as the desktop writes them; empty when there are none.
    QString description;
};

/// What a hot-key press or release tells.
struct HotKeyEvent
{
    HotKeyId id;
    /// Milliseconds on the display server's clock; 0 where nobody tells.
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
    /// Who decides which keys are a hot key of ours.
    enum class Control {
        Ours,    ///< We do; where the desktop's settings list them too, the user may choose there.
        Desktop, ///< Its settings alone, after what we wish at first; see chosenElsewhere().
        Nobody   ///< No program of this desktop has hot keys; it runs commands for keys instead.
    };

    using QObject::QObject;

    /// May change once, soon after the start: see controlChanged().
    virtual Control control() const { return Control::Ours; }

    /// Where the desktop has control, shows the user where to choose keys, or has the desktop ask
    /// for them again if that was refused.
    virtual void configure() {}

    /// What the user puts into the desktop's configuration, so that it runs "quillmarsh WORD" for
    /// the combination. Empty unless nobody has control, or when nothing is known of this desktop.
    virtual QString configurationFor(const HotKeyCombination &, const QString & /*word*/) const
    {
        return {};
    }

    /// Registers a combination under `id`. `keyCode` is a virtual key code (VirtualKeys.h),
    /// `carbonModifiers` bits of CarbonModifiers. With Caps Lock among the modifiers the
    /// combination fires only while Caps Lock is on; otherwise lock states do not matter. False
    /// when the key does not exist, another program holds the combination, or the id is taken.
    /// Where somebody else has to be asked first it is true, and availabilityChanged() follows when
    /// the answer is no.
    [[nodiscard]] virtual bool registerHotKey(HotKeyId id, quint32 keyCode,
                                              quint32 carbonModifiers) = 0;

    /// The same for an action that the desktop's settings may list.
    [[nodiscard]] virtual bool registerAction(HotKeyId id, quint32 keyCode, quint32 carbonModifiers,
                                              const HotKeyAction &)
    {
        return registerHotKey(id, keyCode, carbonModifiers);
    }

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
    /// The registration follows the user's choice, and has another combination with it or none. It
    /// is for whoever registered it to do the same.
    void chosenElsewhere(HotKeyId id, const HotKeyChoice &choice);
    void controlChanged();
};
