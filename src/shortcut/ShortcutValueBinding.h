#pragma once

#include "shortcut/BindingOptions.h"

#include <QObject>
#include <QPointer>

#include <optional>

class SettingsStore;

/// Keeps the "shortcutValue" of a recorder in step with a key of the settings. Owned by its
/// recorder. A value that came from the settings is never written back, so that one that cannot be
/// read stays there as it is.
class ShortcutValueBinding : public QObject
{
    Q_OBJECT

public:
    /// `settings` is not owned; a missing one is logged when there is something to store.
    explicit ShortcutValueBinding(SettingsStore *settings, QObject *parent = nullptr);

    /// Binds to a key, in place of an earlier one, and delivers its value at once; without a key
    /// only the earlier binding ends.
    void bind(const std::optional<QString> &key, const BindingOptions &options);

    /// Absent when unbound.
    const std::optional<QString> &key() const { return m_key; }

    /// Stores a shortcut or none under the key. Does nothing when unbound or while a value from
    /// the settings is being delivered.
    void propagateValue(const std::optional<MASShortcut> &value);

Q_SIGNALS:
    /// The settings hold this, now.
    void delivered(const std::optional<MASShortcut> &value);

private:
    void deliver();

    QPointer<SettingsStore> m_settings;
    std::optional<QString> m_key;
    BindingOptions m_options;
    /// A value is on its way in either direction; its echo is no news.
    bool m_isBusy = false;
};
