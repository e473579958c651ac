#pragma once

#include "shortcut/BindingOptions.h"
#include "shortcut/MASShortcut.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <optional>

class SettingsStore;

/// The control with which a user sets a global shortcut: click it, press the keys, done. Shows the
/// shortcut, keeps it in step with a key of the settings in both directions.
class MASShortcutView : public QWidget
{
    Q_OBJECT

public:
    using ShortcutValueChange = std::function<void(MASShortcutView &)>;

    /// `settings` is where associated keys live; not owned, and missed only by a binding.
    explicit MASShortcutView(SettingsStore *settings, QWidget *parent = nullptr);
    ~MASShortcutView() override;

    /// Shows the shortcut stored under `key`, now and whenever it changes, and stores what the
    /// user records there, in place of an earlier association. Without a key only the earlier
    /// association ends. Shortcuts are stored as keyed archives, else by `transformer` or the
    /// transformer with the name; with none of them as they stand.
    void setAssociatedUserDefaultsKey(const std::optional<QString> &key);
    void setAssociatedUserDefaultsKey(const std::optional<QString> &key,
                                      const ValueTransformer *transformer);
    void setAssociatedUserDefaultsKey(const std::optional<QString> &key,
                                      const QString &transformerName);
    /// Absent when no key is associated.
    std::optional<QString> associatedUserDefaultsKey() const;

    const std::optional<MASShortcut> &shortcutValue() const { return m_shortcutValue; }
    /// Shows the shortcut, or none, stores it under the associated key and tells the receiver of
    /// changes.
    void setShortcutValue(const std::optional<MASShortcut> &shortcut);
    /// Called after every change of the value, whoever made it.
    void setShortcutValueChange(ShortcutValueChange change);

private:
    struct BindingInfo
    {
        QPointer<SettingsStore> observedObject;
        QString observedKey; ///< Empty: the key path is missing.
        BindingOptions options;
    };

    void bind(const std::optional<QString> &key, const BindingOptions &options);
    void takeStoredValue();
    void showValue(const std::optional<MASShortcut> &shortcut);
    void propagateValue(const std::optional<MASShortcut> &value, const char *binding);

    QPointer<SettingsStore> m_settings;
    std::optional<BindingInfo> m_binding;
    std::optional<MASShortcut> m_shortcutValue;
    ShortcutValueChange m_shortcutValueChange;
};
