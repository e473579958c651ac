#include "platform/kde/KGlobalAccelHotKeys.h"

#include "platform/Info.h"
#include "platform/KeyboardLayout.h"
#include "platform/VirtualKeys.h"
#include "platform/kde/QtKeyCodes.h"

#include <QKeySequence>
#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcHotKeys, "quillmarsh.platform.kde.hotkeys", QtInfoMsg)

/// What an action is told to have when the service gives it no keys.
constexpr int kRefusal = 0;

} // namespace

KGlobalAccelHotKeys::KGlobalAccelHotKeys(const QDBusConnection &bus, const KeyboardLayout &layout,
                                         Keys keys, std::unique_ptr<HotKeys> otherwise,
                                         QObject *parent)
    : HotKeys(parent), m_layout(layout), m_onlyLists(keys == Keys::Otherwise),
      m_otherwise(std::move(otherwise)), m_plasma(bus)
{
    if (m_onlyLists)
        passOn();
    connect(&m_plasma, &KGlobalAccelService::appeared, this, &KGlobalAccelHotKeys::serviceAppeared);
    connect(&m_plasma, &KGlobalAccelService::missing, this, &KGlobalAccelHotKeys::goOtherwise);
    connect(&m_plasma, &KGlobalAccelService::keysChosen, this, &KGlobalAccelHotKeys::takeChoice);
    connect(&m_plasma, &KGlobalAccelService::pressed, this, &KGlobalAccelHotKeys::hearPress);
    connect(&m_plasma, &KGlobalAccelService::released, &m_held, &HeldShortcuts::release);
    connect(&m_held, &HeldShortcuts::pressed, this, [this](const QString &name, qlonglong time) {
        for (const HotKeyId id : idsOf(name))
            Q_EMIT pressed(eventOf(id, time));
    });
    connect(&m_held, &HeldShortcuts::released, this, [this](const QString &name, qlonglong time) {
        for (const HotKeyId id : idsOf(name))
            Q_EMIT released(eventOf(id, time));
    });
    // What a key prints is its name there.
    connect(&m_layout, &KeyboardLayout::changed, this, &KGlobalAccelHotKeys::flushLater);
    m_plasma.start();
}

KGlobalAccelHotKeys::~KGlobalAccelHotKeys()
{
    for (auto action = m_actions.cbegin(); action != m_actions.cend(); ++action) {
        if (action->isActive)
            m_plasma.setInactive({action.key(), action->title});
    }
}

HotKeys::Control KGlobalAccelHotKeys::control() const
{
    return m_service == Service::Absent ? m_otherwise->control() : Control::Ours;
}

QString KGlobalAccelHotKeys::configurationFor(const HotKeyCombination &combination,
                                              const QString &word) const
{
    return m_service == Service::Absent ? m_otherwise->configurationFor(combination, word)
                                        : QString();
}

bool KGlobalAccelHotKeys::registerHotKey(HotKeyId id, quint32 keyCode, quint32 carbonModifiers)
{
    const QString name = QStringLiteral("key-%1-%2").arg(keyCode).arg(carbonModifiers);
    return registerAction(id, keyCode, carbonModifiers, {name, QString()});
}

bool KGlobalAccelHotKeys::registerAction(HotKeyId id, quint32 keyCode, quint32 carbonModifiers,
                                         const HotKeyAction &action)
{
    if (asksOtherwise()) {
        const bool isRegistered = m_otherwise->registerAction(id, keyCode, carbonModifiers, action);
        if (!isRegistered || m_service == Service::Absent || action.title.isEmpty())
            return isRegistered;
    }
    const HotKeyCombination combination{keyCode, carbonModifiers};
    const std::optional<int> code = QtKeyCodes::of(combination, m_layout);
    // Before the layout is known no key has a name; once it is, all is told.
    const bool isLayoutKnown = !m_layout.asciiCapableName(VirtualKey::kA).isEmpty();
    if ((!code && isLayoutKnown) || m_registrations.contains(id))
        return m_onlyLists;
    if (!m_onlyLists && code && m_refused.contains(*code)) {
        askWhetherFree(*code);
        return false;
    }
    m_registrations.insert({id, {action.name, combination}});
    Action &known = m_actions[action.name];
    known.isListed = !action.title.isEmpty();
    known.title = known.isListed ? action.title : QKeySequence(code.value_or(0)).toString();
    known.wanted = combination;
    known.types = action.types;
    known.isRefused = false;
    flushLater();
    return true;
}

void KGlobalAccelHotKeys::unregisterHotKey(HotKeyId id)
{
    m_otherwise->unregisterHotKey(id);
    const auto known = m_registrations.find(id);
    if (known == m_registrations.end())
        return;
    const QString name = known->second.name;
    m_registrations.erase(known);
    if (!idsOf(name).empty())
        return;
    m_actions[name].wanted.reset();
    flushLater();
}

bool KGlobalAccelHotKeys::isAvailable(quint32 keyCode, quint32 carbonModifiers)
{
    if (asksOtherwise())
        return m_otherwise->isAvailable(keyCode, carbonModifiers);
    const std::optional<int> code = QtKeyCodes::of({keyCode, carbonModifiers}, m_layout);
    return code && !m_taken.contains(*code) && !m_refused.contains(*code);
}

bool KGlobalAccelHotKeys::isGranted(HotKeyId id)
{
    if (asksOtherwise())
        return m_otherwise->isGranted(id);
    const auto known = m_registrations.find(id);
    return known != m_registrations.end() && !m_actions.value(known->second.name).isRefused;
}

void KGlobalAccelHotKeys::setSuspended(bool isSuspended)
{
    m_otherwise->setSuspended(isSuspended);
    if (asksOtherwise() || std::exchange(m_isSuspended, isSuspended) == isSuspended)
        return;
    // At once, so that the service hears of it before the keyboard's next key.
    flush();
    if (isSuspended)
        askWhatIsTaken();
    else
        QMetaObject::invokeMethod(this, &HotKeys::availabilityChanged, Qt::QueuedConnection);
}

void KGlobalAccelHotKeys::serviceAppeared()
{
    if (m_service == Service::Absent)
        return;
    m_service = Service::There;
    for (Action &action : m_actions)
        action.isActive = false;
    flush();
}

void KGlobalAccelHotKeys::goOtherwise()
{
    if (m_service != Service::Asked)
        return;
    qCInfo(lcHotKeys, "Plasma's service of shortcuts is not there");
    m_service = Service::Absent;
    if (m_onlyLists) {
        m_registrations.clear();
        m_actions.clear();
        return;
    }
    passOn();
    for (const auto &[id, registration] : std::exchange(m_registrations, {})) {
        const HotKeyCombination &wanted = registration.combination;
        // What is refused is told below, and asked for again then.
        std::ignore = m_otherwise->registerAction(
            id, wanted.keyCode, wanted.carbonModifiers,
            {registration.name, m_actions.value(registration.name).title});
    }
    m_actions.clear();
    if (control() != Control::Ours)
        Q_EMIT controlChanged();
    Q_EMIT availabilityChanged();
}

/// From now on the other hot keys speak for us.
void KGlobalAccelHotKeys::passOn()
{
    connect(m_otherwise.get(), &HotKeys::pressed, this, &HotKeys::pressed);
    connect(m_otherwise.get(), &HotKeys::released, this, &HotKeys::released);
    connect(m_otherwise.get(), &HotKeys::availabilityChanged, this, &HotKeys::availabilityChanged);
}

// A combination is often given back and registered anew in one go, which is nothing to tell.
void KGlobalAccelHotKeys::flushLater()
{
    if (!std::exchange(m_isFlushPending, true))
        QMetaObject::invokeMethod(this, &KGlobalAccelHotKeys::flush, Qt::QueuedConnection);
}

void KGlobalAccelHotKeys::flush()
{
    m_isFlushPending = false;
    if (m_service != Service::There)
        return;
    // What is given back goes first, so that another action of ours may have it.
    for (const bool isWanted : {false, true}) {
        for (const QString &name : m_actions.keys()) {
            Action &action = m_actions[name];
            if (action.wanted.has_value() == isWanted)
                push(name, action);
            if (!action.wanted && !action.isListed) {
                m_actions.remove(name);
                m_held.forget(name);
            }
        }
    }
}

/// Brings the service to where we are.
void KGlobalAccelHotKeys::push(const QString &name, Action &action)
{
    if (!action.wanted && !action.isListed) {
        m_plasma.forget(name);
        return;
    }
    if (m_isSuspended) {
        if (std::exchange(action.isActive, false))
            m_plasma.setInactive({name, action.title});
        return;
    }
    const std::optional<int> code =
        action.wanted ? QtKeyCodes::of(*action.wanted, m_layout) : std::optional(0);
    const bool isTaken = action.wanted && !m_onlyLists;
    const bool isInPlace = action.told == code && action.isActive == isTaken;
    // Nothing is told before there is something to tell.
    const bool isNew = !action.wanted && !action.told;
    if (!code || isInPlace || isNew || action.isRefused)
        return;
    const bool isFirst = !action.told;
    const QList<int> keys = *code == 0 ? QList<int>() : QList<int>{*code};
    const uint wish = (m_onlyLists ? 0U : KGlobalAccelService::Present) |
                      (isFirst ? 0U : KGlobalAccelService::Replacing);
    action.isActive = isTaken;
    action.told = code;
    m_plasma.setShortcut({name, action.title}, keys, wish,
                         [this, name, code, isFirst](const QList<int> &inForce) {
                             takeAnswer(name, *code, isFirst, inForce);
                         });
    if (!action.wanted && !m_onlyLists)
        m_plasma.setInactive({name, action.title});
}

void KGlobalAccelHotKeys::takeAnswer(const QString &name, int asked, bool wasFirst,
                                     const QList<int> &keys)
{
    const auto action = m_actions.find(name);
    // Another wish may have gone out since.
    if (action == m_actions.end() || !action->wanted || action->told != asked ||
        keys.contains(asked))
        return;
    if (wasFirst && !keys.isEmpty()) {
        takeChoice(name, keys);
        return;
    }
    // Whether somebody else has them is seen by the grab.
    if (m_onlyLists)
        return;
    // An empty list says the same, of a refusal that the service remembers.
    action->isRefused = true;
    action->told = kRefusal;
    m_refused.insert(asked);
    if (wasFirst)
        askWhetherFree(asked);
    Q_EMIT availabilityChanged();
}

void KGlobalAccelHotKeys::takeChoice(const QString &name, const QList<int> &keys)
{
    const std::vector<HotKeyId> ids = idsOf(name);
    if (ids.empty())
        return;
    Action &action = m_actions[name];
    HotKeyChoice choice;
    for (const int key : keys) {
        choice.combination = QtKeyCodes::combinationOf(key, m_layout);
        if (choice.combination)
            break;
    }
    if (!keys.isEmpty())
        choice.description = QKeySequence(keys.first()).toString(QKeySequence::NativeText);
    action.isRefused = false;
    action.told = choice.combination ? QtKeyCodes::of(*choice.combination, m_layout)
                                     : QtKeyCodes::of(*action.wanted, m_layout);
    if (keys.isEmpty())
        action.told = 0;
    if (choice.combination) {
        action.wanted = choice.combination;
        for (auto &[id, registration] : m_registrations) {
            if (registration.name == name)
                registration.combination = *choice.combination;
        }
    }
    Q_EMIT chosenElsewhere(ids.back(), choice);
}

void KGlobalAccelHotKeys::askWhetherFree(int code)
{
    if (m_asked.contains(code))
        return;
    m_asked.insert(code);
    m_plasma.askWhetherFree(code, [this, code](bool isFree) {
        m_asked.remove(code);
        if (isFree && m_refused.remove(code))
            Q_EMIT availabilityChanged();
    });
}

void KGlobalAccelHotKeys::askWhatIsTaken()
{
    m_taken.clear();
    m_plasma.askForeignKeys([this](const QList<int> &keys) {
        for (const int key : keys)
            m_taken.insert(key);
    });
}

std::vector<HotKeyId> KGlobalAccelHotKeys::idsOf(const QString &name) const
{
    std::vector<HotKeyId> ids;
    for (const auto &[id, registration] : m_registrations) {
        if (registration.name == name)
            ids.push_back(id);
    }
    return ids;
}

void KGlobalAccelHotKeys::hearPress(const QString &name, qlonglong timestamp)
{
    const auto action = m_actions.constFind(name);
    // The service has the keyboard until the key is let go, and would get what is typed.
    if (action != m_actions.cend() && !m_isSuspended && !m_onlyLists)
        m_held.press(name, timestamp, action->types);
}

HotKeyEvent KGlobalAccelHotKeys::eventOf(HotKeyId id, qlonglong timestamp) const
{
    HotKeyEvent event;
    event.id = id;
    event.timestamp = static_cast<quint32>(timestamp);
    event.carbonModifiers = m_registrations.at(id).combination.carbonModifiers;
    return event;
}
