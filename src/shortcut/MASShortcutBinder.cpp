#include "shortcut/MASShortcutBinder.h"

#include "platform/ModifierFlags.h"
#include "platform/SettingsStore.h"
#include "shortcut/KeyNames.h"
#include "shortcut/KeyedUnarchiveTransformer.h"
#include "shortcut/MASShortcutMonitor.h"
#include "shortcut/MASShortcutValidator.h"
#include "shortcut/ShortcutLog.h"

#include <algorithm>
#include <utility>

namespace {

// A program that has no windows ends without anybody's notice.
constexpr std::chrono::seconds kRetryInterval{5};

// Never destroyed: its actions may hold what must not outlive the application object.
MASShortcutBinder *g_sharedBinder = nullptr;

} // namespace

MASShortcutBinder::MASShortcutBinder(SettingsStore &settings, MASShortcutMonitor *monitor,
                                     QObject *parent)
    : QObject(parent), m_settings(&settings), m_shortcutMonitor(monitor),
      m_validator(&MASShortcutValidator::sharedValidator()),
      m_bindingOptions{nullptr, NSKeyedUnarchiveFromDataTransformerName}
{
    // Not only when the value differs: whoever records a shortcut anew wants it to work from now
    // on, whatever kept it from doing so before.
    connect(&settings, &SettingsStore::valueStored, this, &MASShortcutBinder::deliver);
    if (monitor) {
        connect(monitor, &MASShortcutMonitor::availabilityChanged, this, &MASShortcutBinder::retry);
        connect(monitor, &MASShortcutMonitor::chosenElsewhere, this, &MASShortcutBinder::follow);
    }
    connect(&KeyNames::current(), &KeyNames::changed, this, &MASShortcutBinder::retry);
    m_retryTimer.setInterval(kRetryInterval);
    m_retryTimer.callOnTimeout(this, &MASShortcutBinder::retry);
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
                                                    std::function<void()> action,
                                                    const std::optional<HotKeyAction> &named)
{
    release(key);
    m_actions.insert(key, {std::move(action), m_bindingOptions, named});
    deliver(key);
}

void MASShortcutBinder::breakBindingWithDefaultsKey(const QString &key)
{
    release(key);
    m_shortcuts.remove(key);
    m_actions.remove(key);
}

bool MASShortcutBinder::isBoundElsewhere(const MASShortcut &shortcut, const QString &key) const
{
    return !othersWith(shortcut, key).isEmpty();
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
    if (!m_actions.contains(key))
        qFatal("MASShortcutBinder takes no value for the key %s", qUtf8Printable(key));

    release(key);
    boundTo(key).keysChosenElsewhere.clear();
    // Deliberately, a cleared shortcut stays readable under its key until another is stored.
    if (!value)
        return;
    m_shortcuts.insert(key, *value);
    boundTo(key).wanted = value;
    tryToRegister(key);
}

MASShortcutBinder::Bound &MASShortcutBinder::boundTo(const QString &key)
{
    const auto bound = m_actions.find(key);
    if (bound == m_actions.end())
        qFatal("MASShortcutBinder has bound nothing to the key %s", qUtf8Printable(key));
    return *bound;
}

void MASShortcutBinder::release(const QString &key)
{
    const auto bound = m_actions.find(key);
    if (bound == m_actions.end() || !bound->wanted)
        return;
    const MASShortcut old = *std::exchange(bound->wanted, std::nullopt);
    const bool wasItsOwn = hotKeyState(key) != HotKeyState::DoublyBound;
    setState(key, HotKeyState::None);
    // The monitor knows a shortcut but not for whom it is: one that has become another key's must
    // not be taken from that one.
    if (!wasItsOwn)
        return;
    if (m_shortcutMonitor)
        m_shortcutMonitor->unregisterShortcut(old);
    for (const QString &heir : othersWith(old, key).mid(0, 1))
        tryToRegister(heir);
}

void MASShortcutBinder::tryToRegister(const QString &key)
{
    setState(key, registered(key));
    if (hotKeyState(key) != HotKeyState::Works)
        return;
    for (const QString &other : othersWith(*m_actions.value(key).wanted, key))
        setState(other, HotKeyState::DoublyBound);
}

MASShortcutBinder::HotKeyState MASShortcutBinder::registered(const QString &key) const
{
    const Bound bound = m_actions.value(key);
    if (!m_shortcutMonitor || !bound.wanted || !m_shortcutMonitor->canRegister())
        return HotKeyState::None;
    if (!m_validator->isShortcutRecordable(*bound.wanted))
        return HotKeyState::Unusable;
    return m_shortcutMonitor->registerShortcut(*bound.wanted, bound.action, bound.named)
               ? HotKeyState::Works
               : HotKeyState::HeldElsewhere;
}

/// What the user has chosen in the desktop's settings is stored like what a recorder records.
void MASShortcutBinder::follow(const MASShortcut &shortcut, const HotKeyChoice &choice)
{
    const auto bound = std::find_if(m_actions.begin(), m_actions.end(), [&](const Bound &other) {
        return other.state == HotKeyState::Works && other.wanted == shortcut;
    });
    SettingsStore *const settings = m_settings;
    if (bound == m_actions.end() || !settings)
        return;
    std::optional<MASShortcut> chosen;
    if (choice.combination)
        chosen = MASShortcut(choice.combination->keyCode,
                             ModifierFlags::ofCarbon(choice.combination->carbonModifiers));
    const bool isRecordable = chosen && m_validator->isShortcutRecordable(*chosen);
    if (isRecordable || choice.description.isEmpty()) {
        settings->setValue(bound.key(), bound->options.storedFormOf(chosen));
        return;
    }
    bound->keysChosenElsewhere = choice.description;
    Q_EMIT hotKeyStateChanged(bound.key());
}

void MASShortcutBinder::retry()
{
    if (!m_shortcutMonitor || !m_settings)
        return;
    for (const QString &key : m_actions.keys()) {
        const Bound bound = m_actions.value(key);
        const bool isLost = bound.state == HotKeyState::Works &&
                            !m_shortcutMonitor->isShortcutGranted(*bound.wanted);
        if (isLost || bound.state == HotKeyState::HeldElsewhere ||
            bound.state == HotKeyState::Unusable)
            tryToRegister(key);
    }
}

void MASShortcutBinder::setState(const QString &key, HotKeyState state)
{
    Bound &bound = boundTo(key);
    const HotKeyState before = std::exchange(bound.state, state);
    if (state == before)
        return;
    const QString name = bound.wanted ? bound.wanted->description() : QString();
    if (state == HotKeyState::HeldElsewhere)
        qCInfo(lcShortcut).noquote() << "Another program holds" << name << "which is the" << key
                                     << "and works as soon as that program lets go of it";
    else if (state == HotKeyState::Unusable)
        qCWarning(lcShortcut).noquote()
            << "The shortcut stored under" << key << "in"
            << (m_settings ? m_settings->location() : QString())
            << "is none that can be recorded; it is kept and does nothing";
    else if (state == HotKeyState::Works && before != HotKeyState::None)
        qCInfo(lcShortcut).noquote() << name << "works now as the" << key;

    const bool isAnyWaiting = std::ranges::any_of(std::as_const(m_actions), [](const Bound &other) {
        return other.state == HotKeyState::HeldElsewhere || other.state == HotKeyState::Unusable;
    });
    if (!isAnyWaiting)
        m_retryTimer.stop();
    else if (!m_retryTimer.isActive())
        m_retryTimer.start();
    Q_EMIT hotKeyStateChanged(key);
}

QStringList MASShortcutBinder::othersWith(const MASShortcut &shortcut, const QString &key) const
{
    QStringList others;
    for (auto bound = m_actions.begin(); bound != m_actions.end(); ++bound) {
        if (bound.key() != key && bound->wanted == shortcut)
            others.append(bound.key());
    }
    return others;
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
        qCWarning(lcShortcut).noquote()
            << "The shortcut stored under" << key << "in" << settings->location()
            << "cannot be read; it counts as none and is kept";
    }
    setValueForUndefinedKey(shortcut, key);
}
