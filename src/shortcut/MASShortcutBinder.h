#pragma once

#include "platform/HotKeys.h"
#include "shortcut/BindingOptions.h"
#include "shortcut/MASShortcut.h"

#include <QHash>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

class MASShortcutMonitor;
class MASShortcutValidator;
class SettingsStore;

/// Ties keys of the settings to actions: the shortcut stored under a bound key is registered with
/// the monitor, and whenever one is stored there the hot key moves at once. What cannot be
/// registered now is kept wanted and tried again: when another program ends, when the keyboard or
/// its layout changes, and every few seconds. The application uses the shared one; a test makes its
/// own. Used from the main thread.
class MASShortcutBinder : public QObject
{
    Q_OBJECT

public:
    /// What has become of the shortcut under a bound key.
    enum class HotKeyState {
        None,          ///< There is none, or no program of this desktop can have one.
        Works,         ///< It is a hot key.
        HeldElsewhere, ///< Another program has the combination.
        DoublyBound,   ///< An equal one, stored later under another key, is the hot key.
        Unusable,      ///< No recorder would have stored it.
    };

    /// Neither is owned; what goes early is missed quietly. `monitor` may be null: nothing is
    /// registered then. The shared validator judges what is stored.
    MASShortcutBinder(SettingsStore &settings, MASShortcutMonitor *monitor,
                      QObject *parent = nullptr);

    /// Makes the shared binder on the settings and the shared monitor: once, at the start of the
    /// program.
    static void connectShared(SettingsStore &settings);
    /// Null until it is connected.
    static MASShortcutBinder *sharedBinder();

    /// Options of the bindings made from now on and of the defaults registered; at first shortcuts
    /// are stored as keyed archives.
    const BindingOptions &bindingOptions() const { return m_bindingOptions; }
    void setBindingOptions(const BindingOptions &options) { m_bindingOptions = options; }

    /// Runs `action` at each press of the shortcut stored under the key, whichever that is at the
    /// time. A shortcut stored already is registered before this returns. With `named` the
    /// desktop's own settings may list it, and what the user chooses there is stored here.
    void bindShortcutWithDefaultsKey(const QString &key, std::function<void()> action,
                                     const std::optional<HotKeyAction> &named = std::nullopt);
    void breakBindingWithDefaultsKey(const QString &key);
    bool isRegisteredAction(const QString &key) const { return m_actions.contains(key); }

    /// For a key without a binding there is no hot key either.
    HotKeyState hotKeyState(const QString &key) const { return m_actions.value(key).state; }
    /// The keys that the user chose in the desktop's settings instead of the shortcut, and which
    /// are none that a recorder could record; empty when there are none.
    QString keysChosenElsewhere(const QString &key) const
    {
        return m_actions.value(key).keysChosenElsewhere;
    }
    /// Whether a key other than `key` has this very shortcut.
    bool isBoundElsewhere(const MASShortcut &shortcut, const QString &key) const;

    /// Not owned; the shared one at first.
    void setShortcutValidator(const MASShortcutValidator &validator) { m_validator = &validator; }
    /// How often what does not work is tried again without a reason.
    void setRetryInterval(std::chrono::milliseconds interval)
    {
        m_retryTimer.setInterval(interval);
    }

    /// Registers default values with the settings, one a key.
    void registerDefaultShortcuts(const QMap<QString, MASShortcut> &shortcuts);

    /// The shortcut last bound under a registered key, even when it was cleared since; absent when
    /// there never was one. Any other key is a programming error and ends the program.
    std::optional<MASShortcut> valueForUndefinedKey(const QString &key) const;

    /// Takes a newly stored shortcut, or none, for a registered key. Any other key is a
    /// programming error and ends the program.
    void setValueForUndefinedKey(const std::optional<MASShortcut> &value, const QString &key);

Q_SIGNALS:
    void hotKeyStateChanged(const QString &key);

private:
    struct Bound
    {
        std::function<void()> action;
        BindingOptions options;
        std::optional<HotKeyAction> named = {};
        /// Absent when it was cleared.
        std::optional<MASShortcut> wanted = {};
        HotKeyState state = HotKeyState::None;
        QString keysChosenElsewhere = {};
    };

    /// A key that is bound.
    Bound &boundTo(const QString &key);
    void deliver(const QString &key);
    /// Gives back the hot key of `key`, and hands it on to a key that waits for an equal one.
    void release(const QString &key);
    void tryToRegister(const QString &key);
    HotKeyState registered(const QString &key) const;
    void follow(const MASShortcut &shortcut, const HotKeyChoice &choice);
    void retry();
    void setState(const QString &key, HotKeyState state);
    /// The other keys that want this very shortcut.
    QStringList othersWith(const MASShortcut &shortcut, const QString &key) const;

    QPointer<SettingsStore> m_settings;
    QPointer<MASShortcutMonitor> m_shortcutMonitor;
    const MASShortcutValidator *m_validator;
    BindingOptions m_bindingOptions;
    QHash<QString, Bound> m_actions;
    QHash<QString, MASShortcut> m_shortcuts; ///< The last ones, cleared or not.
    QTimer m_retryTimer;
};
