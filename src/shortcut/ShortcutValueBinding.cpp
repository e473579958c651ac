#include "shortcut/ShortcutValueBinding.h"

#include "platform/SettingsStore.h"
#include "shortcut/ShortcutLog.h"

#include <QScopedValueRollback>

namespace {

constexpr const char *kBinding = "shortcutValue";
constexpr const char *kMethod = "-[MASShortcutView propagateValue:forBinding:]";

} // namespace

ShortcutValueBinding::ShortcutValueBinding(SettingsStore *settings, QObject *parent)
    : QObject(parent), m_settings(settings)
{
    if (!settings)
        return;
    connect(settings, &SettingsStore::valueChanged, this, [this](const QString &key) {
        if (key == m_key && !m_isBusy)
            deliver();
    });
}

void ShortcutValueBinding::bind(const std::optional<QString> &key, const BindingOptions &options)
{
    m_key = key;
    m_options = options;
    deliver();
}

void ShortcutValueBinding::deliver()
{
    const SettingsStore *const settings = m_settings;
    if (!settings || !m_key)
        return;
    const QScopedValueRollback busy(m_isBusy, true);
    Q_EMIT delivered(m_options.shortcutOf(settings->value(*m_key)));
}

void ShortcutValueBinding::propagateValue(const std::optional<MASShortcut> &value)
{
    if (!m_key || m_isBusy)
        return;
    const ValueTransformer *transformer = m_options.transformer();
    if (transformer && !transformer->allowsReverseTransformation()) {
        qCWarning(lcShortcut,
                  "WARNING: binding \"%s\" has value transformer, but it doesn't allow reverse "
                  "transformations in %s",
                  kBinding, kMethod);
    }
    SettingsStore *const settings = m_settings;
    if (!settings) {
        qCWarning(lcShortcut, "ERROR: NSObservedObjectKey was nil for binding \"%s\" in %s",
                  kBinding, kMethod);
        return;
    }
    if (m_key->isEmpty()) {
        qCWarning(lcShortcut, "ERROR: NSObservedKeyPathKey was nil for binding \"%s\" in %s",
                  kBinding, kMethod);
        return;
    }
    const QScopedValueRollback busy(m_isBusy, true);
    settings->setValue(*m_key, m_options.storedFormOf(value));
}
