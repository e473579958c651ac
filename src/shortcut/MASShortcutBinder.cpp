#include "shortcut/MASShortcutBinder.h"

#include "platform/SettingsStore.h"
#include "shortcut/KeyedUnarchiveTransformer.h"
#include "shortcut/MASShortcutMonitor.h"
#include "shortcut/ShortcutLog.h"

#include <tuple>
#include <utility>

namespace {

// Never destroyed: its actions may hold what must not outlive the application object.
MASShortcutBinder *g_sharedBinder = nullptr;

} // namespace

MASShortcutBinder::MASShortcutBinder(SettingsStore &settings, MASShortcutMonitor *monitor,
                                     QObject *parent)
    : QObject(parent), m_settings(&settings),
      m_shortcutMonitor(monitor), m_bindingOptions{nullptr, NSKeyedUnarchiveFromDataTransformerName}
{
    connect(&settings, &SettingsStore::valueChanged, this, &MASShortcutBinder::deliver);
}

void MASShortcutBinder::connectShared(SettingsStore &settings)
{
    delete std::exchange(g_sharedBinder,
                         new MASShortcutBinder(settings, MASShortcutMonitor::sharedMonitor()));
}

MASShortcutBinder *MASShortcutBinder::sharedBinder()
{
    return g_sharedBinder;
}

void MASShortcutBinder::bindShortcutWithDefaultsKey(const QString &key,
                                                    std::function<void()> action)
{
    m_actions.insert(key, {std::move(action), m_bindingOptions});
    deliver(key);
}

void MASShortcutBinder::breakBindingWithDefaultsKey(const QString &key)
{
    const auto bound = m_shortcuts.constFind(key);
    if (bound != m_shortcuts.constEnd()) {
        if (m_shortcutMonitor)
            m_shortcutMonitor->unregisterShortcut(*bound);
        m_shortcuts.erase(bound);
    }
    m_actions.remove(key);
}

void MASShortcutBinder::registerDefaultShortcuts(const QMap<QString, MASShortcut> &shortcuts)
{
    SettingsStore *const settings = m_settings;
    if (!settings)
        return;
    for (auto entry = shortcuts.begin(); entry != shortcuts.end(); ++entry)
        settings->registerDefault(entry.key(), m_bindingOptions.storedFormOf(entry.value()));
}

std::optional<MASShortcut> MASShortcutBinder::valueForUndefinedKey(const QString &key) const
{
    if (!m_actions.contains(key))
        qFatal("MASShortcutBinder has no value for the key %s", qUtf8Printable(key));
    const auto bound = m_shortcuts.constFind(key);
    return bound == m_shortcuts.constEnd() ? std::nullopt : std::optional(*bound);
}

void MASShortcutBinder::setValueForUndefinedKey(const std::optional<MASShortcut> &value,
                                                const QString &key)
{
    const auto action = m_actions.constFind(key);
    if (action == m_actions.constEnd())
        qFatal("MASShortcutBinder takes no value for the key %s", qUtf8Printable(key));

    const auto old = m_shortcuts.constFind(key);
    if (old != m_shortcuts.constEnd() && m_shortcutMonitor)
        m_shortcutMonitor->unregisterShortcut(*old);
    // Deliberately, a cleared shortcut stays readable under its key until another is stored.
    if (!value)
        return;
    m_shortcuts.insert(key, *value);
    // A refused shortcut stays bound without a hot key: the validator warned while it was typed.
    if (m_shortcutMonitor)
        std::ignore = m_shortcutMonitor->registerShortcut(*value, action->action);
}

void MASShortcutBinder::deliver(const QString &key)
{
    const SettingsStore *const settings = m_settings;
    const auto bound = m_actions.constFind(key);
    if (!settings || bound == m_actions.constEnd())
        return;
    const QVariant stored = settings->value(key);
    const std::optional<MASShortcut> shortcut = bound->options.shortcutOf(stored);
    if (!shortcut && stored.isValid() && stored != bound->options.storedFormOf(std::nullopt)) {
        qCWarning(shortcutLog).noquote()
            << "The shortcut stored under" << key << "in" << settings->location()
            << "cannot be read; it counts as none and is kept";
    }
    setValueForUndefinedKey(shortcut, key);
}
