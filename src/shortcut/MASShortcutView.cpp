#include "shortcut/MASShortcutView.h"

#include "platform/SettingsStore.h"
#include "shortcut/KeyedUnarchiveTransformer.h"
#include "shortcut/ShortcutLog.h"

#include <utility>

namespace {

constexpr const char *kValueBinding = "shortcutValue";
constexpr const char *kPropagateMethod = "-[MASShortcutView propagateValue:forBinding:]";

} // namespace

MASShortcutView::MASShortcutView(SettingsStore *settings, QWidget *parent)
    : QWidget(parent), m_settings(settings)
{
}

MASShortcutView::~MASShortcutView() = default;

void MASShortcutView::setAssociatedUserDefaultsKey(const std::optional<QString> &key)
{
    setAssociatedUserDefaultsKey(key, NSKeyedUnarchiveFromDataTransformerName);
}

void MASShortcutView::setAssociatedUserDefaultsKey(const std::optional<QString> &key,
                                                   const ValueTransformer *transformer)
{
    bind(key, {transformer, std::nullopt});
}

void MASShortcutView::setAssociatedUserDefaultsKey(const std::optional<QString> &key,
                                                   const QString &transformerName)
{
    bind(key, {nullptr, transformerName});
}

std::optional<QString> MASShortcutView::associatedUserDefaultsKey() const
{
    return m_binding ? std::optional(m_binding->observedKey) : std::nullopt;
}

void MASShortcutView::setShortcutValueChange(ShortcutValueChange change)
{
    m_shortcutValueChange = std::move(change);
}

void MASShortcutView::setShortcutValue(const std::optional<MASShortcut> &shortcut)
{
    m_shortcutValue = shortcut;
    update();
    propagateValue(shortcut, kValueBinding);
    if (m_shortcutValueChange)
        m_shortcutValueChange(*this);
}

void MASShortcutView::bind(const std::optional<QString> &key, const BindingOptions &options)
{
    SettingsStore *const settings = m_settings;
    if (settings)
        settings->disconnect(this);
    m_binding.reset();
    if (!key)
        return;
    m_binding = {settings, *key, options};
    if (!settings)
        return;
    connect(settings, &SettingsStore::valueChanged, this, [this](const QString &changedKey) {
        if (m_binding && m_binding->observedKey == changedKey)
            takeStoredValue();
    });
    takeStoredValue();
}

void MASShortcutView::takeStoredValue()
{
    const SettingsStore *const settings = m_binding->observedObject;
    if (!settings)
        return;
    const std::optional<MASShortcut> shortcut =
        m_binding->options.shortcutOf(settings->value(m_binding->observedKey));
    // Our own push comes back as it went, and is no change.
    if (shortcut != m_shortcutValue)
        showValue(shortcut);
}

void MASShortcutView::showValue(const std::optional<MASShortcut> &shortcut)
{
    // What the settings hold is not written back: an unreadable value must stay as it is.
    const std::optional<BindingInfo> binding = std::exchange(m_binding, std::nullopt);
    setShortcutValue(shortcut);
    m_binding = binding;
}

void MASShortcutView::propagateValue(const std::optional<MASShortcut> &value, const char *binding)
{
    if (!m_binding)
        return;
    const ValueTransformer *transformer = m_binding->options.transformer();
    if (transformer && !transformer->allowsReverseTransformation()) {
        qCWarning(shortcutLog,
                  "WARNING: binding \"%s\" has value transformer, but it doesn't allow reverse "
                  "transformations in %s",
                  binding, kPropagateMethod);
    }
    SettingsStore *const settings = m_binding->observedObject;
    if (!settings) {
        qCWarning(shortcutLog, "ERROR: NSObservedObjectKey was nil for binding \"%s\" in %s",
                  binding, kPropagateMethod);
        return;
    }
    if (m_binding->observedKey.isEmpty()) {
        qCWarning(shortcutLog, "ERROR: NSObservedKeyPathKey was nil for binding \"%s\" in %s",
                  binding, kPropagateMethod);
        return;
    }
    settings->setValue(m_binding->observedKey, m_binding->options.storedFormOf(value));
}
