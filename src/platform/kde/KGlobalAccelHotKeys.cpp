#include "platform/kde/KGlobalAccelHotKeys.h"

#include "platform/Info.h"
#include "platform/KeyboardLayout.h"
#include "platform/VirtualKeys.h"
#include "platform/kde/QtKeyCodes.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QKeySequence>
#include <QLoggingCategory>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcHotKeys, "quillmarsh.platform.kde.hotkeys", QtInfoMsg)

const auto kService = QStringLiteral("org.kde.kglobalaccel");
const auto kPath = QStringLiteral("/kglobalaccel");
const auto kInterface = QStringLiteral("org.kde.KGlobalAccel");
const auto kComponentInterface = QStringLiteral("org.kde.kglobalaccel.Component");
/// What the service says instead of keys that somebody else has.
constexpr int kRefusal = 0;
/// Bits of setShortcut: presses are wanted from now on; what the service remembers is to be
/// replaced by what it is told.
constexpr uint kPresent = 2;
constexpr uint kReplacing = 4;
constexpr int kStartLimitMs = 5000;
/// Held keys repeat by further presses. Somebody who lets go and presses anew is told by the
/// release in between; where that is lost, by the time.
constexpr std::chrono::milliseconds kLongestRepetition{1000};

/// Who holds a key for longer has forgotten it, or its release was lost.
constexpr std::chrono::seconds kLongestHold{2};

QString component()
{
    return Info::main().bundleIdentifier;
}

/// The path of a component's object: its name with everything but letters and digits replaced.
QString pathOf(QString name)
{
    for (QChar &sign : name) {
        const bool isKept = sign.unicode() < 0x80 && sign.isLetterOrNumber();
        sign = isKept ? sign : QChar(u'_');
    }
    return QStringLiteral("/component/") + name;
}

QList<int> nonZero(QList<int> keys)
{
    keys.removeAll(0);
    return keys;
}

/// The keys of all shortcuts in a component's list: structures of six texts, the keys in force and
/// the keys by default.
QList<int> keysIn(const QDBusArgument &list)
{
    QList<int> all;
    list.beginArray();
    while (!list.atEnd()) {
        list.beginStructure();
        QString text;
        for (int i = 0; i < 6; ++i)
            list >> text;
        QList<int> inForce;
        QList<int> byDefault;
        list >> inForce >> byDefault;
        list.endStructure();
        all += nonZero(inForce);
    }
    list.endArray();
    return all;
}

/// The first keys of each sequence: structures of an array of four.
QList<int> keysOfSequences(const QDBusArgument &list)
{
    QList<int> all;
    list.beginArray();
    while (!list.atEnd()) {
        QList<int> sequence;
        list.beginStructure();
        list >> sequence;
        list.endStructure();
        all += sequence.value(0);
    }
    list.endArray();
    return nonZero(all);
}

} // namespace

KGlobalAccelHotKeys::KGlobalAccelHotKeys(const QDBusConnection &bus, const KeyboardLayout &layout,
                                         Keys keys, std::unique_ptr<HotKeys> otherwise,
                                         QObject *parent)
    : HotKeys(parent), m_bus(bus), m_layout(layout), m_onlyLists(keys == Keys::Otherwise),
      m_otherwise(std::move(otherwise))
{
    if (m_onlyLists)
        passOn();
    qDBusRegisterMetaType<QList<int>>();
    m_bus.connect(kService, pathOf(component()), kComponentInterface,
                  QStringLiteral("globalShortcutPressed"), this,
                  SLOT(handlePressed(QString, QString, qlonglong)));
    m_bus.connect(kService, pathOf(component()), kComponentInterface,
                  QStringLiteral("globalShortcutReleased"), this,
                  SLOT(handleReleased(QString, QString, qlonglong)));
    m_bus.connect(kService, kPath, kInterface, QStringLiteral("yourShortcutsChanged"), this,
                  SLOT(handleShortcutsChanged(QDBusMessage)));
    auto *watcher =
        new QDBusServiceWatcher(kService, m_bus, QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this,
            &KGlobalAccelHotKeys::serviceAppeared);
    // What a key prints is its name there.
    connect(&m_layout, &KeyboardLayout::changed, this, &KGlobalAccelHotKeys::flushLater);

    if (!m_bus.isConnected()) {
        // Later, as an answer would come, so that everybody listens.
        QMetaObject::invokeMethod(this, &KGlobalAccelHotKeys::goOtherwise, Qt::QueuedConnection);
        return;
    }
    auto start = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("StartServiceByName"));
    start << kService << 0U;
    auto *started = new QDBusPendingCallWatcher(m_bus.asyncCall(start, kStartLimitMs), this);
    connect(started, &QDBusPendingCallWatcher::finished, this, [this, started] {
        started->deleteLater();
        if (started->isError())
            lookWhetherItRuns();
        else if (m_service == Service::Asked)
            serviceAppeared();
    });
}

KGlobalAccelHotKeys::~KGlobalAccelHotKeys()
{
    for (auto action = m_actions.cbegin(); action != m_actions.cend(); ++action) {
        if (action->isActive)
            m_bus.send(call(QStringLiteral("setInactive"), {actionId(action.key(), *action)}));
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

/// At the start, and when it was started anew and knows nothing of us.
void KGlobalAccelHotKeys::serviceAppeared()
{
    if (m_service == Service::Absent)
        return;
    m_service = Service::There;
    for (Action &action : m_actions)
        action.isActive = false;
    flush();
}

/// A service that nothing can start may run all the same: the newer KWin is it itself.
void KGlobalAccelHotKeys::lookWhetherItRuns()
{
    auto question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("NameHasOwner"));
    question << kService;
    auto *asked = new QDBusPendingCallWatcher(m_bus.asyncCall(question, kStartLimitMs), this);
    connect(asked, &QDBusPendingCallWatcher::finished, this, [this, asked] {
        asked->deleteLater();
        const QDBusPendingReply<bool> answer = *asked;
        if (answer.isError() || !answer.value())
            goOtherwise();
        else if (m_service == Service::Asked)
            serviceAppeared();
    });
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
            if (!action.wanted && !action.isListed)
                m_actions.remove(name);
        }
    }
}

/// Brings the service to where we are.
void KGlobalAccelHotKeys::push(const QString &name, Action &action)
{
    const QStringList id = actionId(name, action);
    if (!action.wanted && !action.isListed) {
        m_bus.send(call(QStringLiteral("unregister"), {id.at(0), id.at(1)}));
        return;
    }
    if (m_isSuspended) {
        if (std::exchange(action.isActive, false))
            m_bus.send(call(QStringLiteral("setInactive"), {id}));
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
    m_bus.send(call(QStringLiteral("doRegister"), {id}));
    const uint flags = (m_onlyLists ? 0U : kPresent) | (isFirst ? 0U : kReplacing);
    const QVariantList arguments{id, QVariant::fromValue(keys), flags};
    action.isActive = isTaken;
    action.told = code;
    ask(call(QStringLiteral("setShortcut"), arguments),
        [this, name, code, isFirst](const QDBusMessage &answer) {
            const QVariantList told = answer.arguments();
            takeAnswer(name, *code, isFirst, qdbus_cast<QList<int>>(told.value(0)));
        });
    if (!action.wanted && !m_onlyLists)
        m_bus.send(call(QStringLiteral("setInactive"), {id}));
}

void KGlobalAccelHotKeys::takeAnswer(const QString &name, int asked, bool wasFirst,
                                     const QList<int> &keys)
{
    const auto action = m_actions.find(name);
    // Another wish may have gone out since.
    if (action == m_actions.end() || !action->wanted || action->told != asked ||
        keys.contains(asked))
        return;
    const QList<int> others = nonZero(keys);
    if (wasFirst && !others.isEmpty()) {
        takeChoice(name, others);
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
    Action &action = m_actions[name];
    const std::vector<HotKeyId> ids = idsOf(name);
    if (ids.empty())
        return;
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
    ask(call(QStringLiteral("isGlobalShortcutAvailable"), {code, component()}),
        [this, code](const QDBusMessage &answer) {
            m_asked.remove(code);
            if (!answer.arguments().value(0).toBool() || !m_refused.remove(code))
                return;
            Q_EMIT availabilityChanged();
        });
}

void KGlobalAccelHotKeys::askWhatIsTaken()
{
    m_taken.clear();
    ask(call(QStringLiteral("allComponents"), {}), [this](const QDBusMessage &answer) {
        const auto paths = qdbus_cast<QList<QDBusObjectPath>>(answer.arguments().value(0));
        for (const QDBusObjectPath &path : paths) {
            if (path.path() == pathOf(component()))
                continue;
            ask(QDBusMessage::createMethodCall(kService, path.path(), kComponentInterface,
                                               QStringLiteral("allShortcutInfos")),
                [this](const QDBusMessage &list) {
                    const auto shortcuts = list.arguments().value(0).value<QDBusArgument>();
                    for (const int key : keysIn(shortcuts))
                        m_taken.insert(key);
                });
        }
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

/// The names of the component and of the action, for programs and for people.
QStringList KGlobalAccelHotKeys::actionId(const QString &name, const Action &action) const
{
    return {component(), name, QStringLiteral("Quillmarsh"), action.title};
}

QDBusMessage KGlobalAccelHotKeys::call(const QString &method, const QVariantList &arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(kService, kPath, kInterface, method);
    message.setArguments(arguments);
    return message;
}

/// `receive` gets the answer, and nothing when there is none.
template <typename Receiver>
void KGlobalAccelHotKeys::ask(const QDBusMessage &message, Receiver receive)
{
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, receive] {
        watcher->deleteLater();
        const QDBusMessage answer = watcher->reply();
        if (answer.type() == QDBusMessage::ReplyMessage)
            receive(answer);
        else
            qCWarning(lcHotKeys).noquote()
                << "Plasma's service of shortcuts answers with an error:" << answer.errorMessage();
    });
}

void KGlobalAccelHotKeys::handlePressed(const QString &, const QString &name, qlonglong timestamp)
{
    const auto action = m_actions.find(name);
    if (action == m_actions.end() || m_isSuspended || m_onlyLists)
        return;
    const TimePoint now = std::chrono::steady_clock::now();
    const auto before = std::exchange(action->heldSince, now);
    if (before && now - *before < kLongestRepetition)
        return;
    if (!action->types) {
        tellPress(name, timestamp);
        return;
    }
    // The service has the keyboard until the key is let go, and would get what is typed.
    const int press = ++m_lastPress;
    action->waitingPress = press;
    QTimer::singleShot(kLongestHold, this, [this, name, timestamp, press] {
        if (m_actions.value(name).waitingPress == press)
            tellPress(name, timestamp);
    });
}

void KGlobalAccelHotKeys::tellPress(const QString &name, qlonglong timestamp)
{
    m_actions[name].waitingPress = 0;
    for (const HotKeyId id : idsOf(name))
        Q_EMIT pressed(eventOf(id, timestamp));
}

HotKeyEvent KGlobalAccelHotKeys::eventOf(HotKeyId id, qlonglong timestamp) const
{
    HotKeyEvent event;
    event.id = id;
    event.timestamp = static_cast<quint32>(timestamp);
    event.carbonModifiers = m_registrations.at(id).combination.carbonModifiers;
    return event;
}

void KGlobalAccelHotKeys::handleReleased(const QString &, const QString &name, qlonglong timestamp)
{
    const auto action = m_actions.find(name);
    if (action == m_actions.end() || !std::exchange(action->heldSince, std::nullopt))
        return;
    if (action->waitingPress != 0)
        tellPress(name, timestamp);
    for (const HotKeyId id : idsOf(name))
        Q_EMIT released(eventOf(id, timestamp));
}

void KGlobalAccelHotKeys::handleShortcutsChanged(const QDBusMessage &message)
{
    const QVariantList arguments = message.arguments();
    const QStringList id = arguments.value(0).toStringList();
    if (id.value(0) != component() || !m_actions.contains(id.value(1)))
        return;
    takeChoice(id.at(1), keysOfSequences(arguments.value(1).value<QDBusArgument>()));
}
