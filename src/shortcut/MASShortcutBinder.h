#pragma once

#include "shortcut/BindingOptions.h"
#include "shortcut/MASShortcut.h"

#include <QHash>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <optional>

class MASShortcutMonitor;
class SettingsStore;

/// Ties keys of the settings to actions: the shortcut stored under a bound key is registered with
/// the monitor, and whenever another is stored there the hot key moves at once. The application
/// uses the shared one; a test makes its own. Used from the main thread.
class MASShortcutBinder : public QObject
{
    Q_OBJECT

public:
    /// Neither is owned; what goes early is missed quietly. `monitor` may be null: nothing is
    /// registered then.
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
    /// time. A shortcut stored already is registered before this returns.
    void bindShortcutWithDefaultsKey(const QString &key, std::function<void()> action);
    void breakBindingWithDefaultsKey(const QString &key);
    bool isRegisteredAction(const QString &key) const { return m_actions.contains(key); }

    /// Registers default values with the settings, one a key.
    void registerDefaultShortcuts(const QMap<QString, MASShortcut> &shortcuts);

    /// The shortcut last bound under a registered key, even when it was cleared since; absent when
    /// there never was one. Any other key is a programming error and ends the program.
    std::optional<MASShortcut> valueForUndefinedKey(const QString &key) const;

    /// Takes a newly stored shortcut, or none, for a registered key. Any other key is a
    /// programming error and ends the program.
    void setValueForUndefinedKey(const std::optional<MASShortcut> &value, const QString &key);

private:
    struct Bound
    {
        std::function<void()> action;
        BindingOptions options;
    };

    void deliver(const QString &key);

    QPointer<SettingsStore> m_settings;
    QPointer<MASShortcutMonitor> m_shortcutMonitor;
    BindingOptions m_bindingOptions;
    QHash<QString, Bound> m_actions;
    QHash<QString, MASShortcut> m_shortcuts;
};
