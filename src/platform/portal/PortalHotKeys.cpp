#include "platform/portal/PortalHotKeys.h"

#include "platform/Info.h"
#include "platform/KeyboardLayout.h"
#include "platform/VirtualKeys.h"
#include "platform/portal/PortalBus.h"
#include "platform/portal/PortalTriggers.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QLoggingCategory>

#include <algorithm>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(lcHotKeys, "quillmarsh.platform.portal.hotkeys", QtInfoMsg)

/// Has the desktop's settings show the page of our application, which has our shortcuts.
QDBusMessage orderOfSettings()
{
    auto order = QDBusMessage::createMethodCall(
        QStringLiteral("org.gnome.Settings"), QStringLiteral("/org/gnome/Settings"),
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("ActivateAction"));
    QDBusArgument page;
    page.beginStructure();
    page << QStringLiteral("applications") << QVariantList{Info::main().bundleIdentifier};
    page.endStructure();
    order.setArguments({QStringLiteral("launch-panel"),
                        QVariant(QVariantList{QVariant::fromValue(page)}), QVariantMap()});
    return order;
}

} // namespace

PortalHotKeys::PortalHotKeys(std::shared_ptr<PortalBus> bus, const KeyboardLayout &layout,
                             std::unique_ptr<HotKeys> otherwise, QObject *parent)
    : HotKeys(parent), m_layout(layout), m_otherwise(std::move(otherwise)), m_portal(std::move(bus))
{
    connect(&m_portal, &GlobalShortcutsPortal::appeared, this, [this] {
        m_portalState = Portal::There;
        m_bound.clear();
        bindLater();
    });
    connect(&m_portal, &GlobalShortcutsPortal::missing, this, &PortalHotKeys::handleMissing);
    connect(&m_portal, &GlobalShortcutsPortal::bound, this, &PortalHotKeys::takeKeys);
    connect(&m_portal, &GlobalShortcutsPortal::keysChanged, this, &PortalHotKeys::takeKeys);
    connect(&m_portal, &GlobalShortcutsPortal::refused, this, &PortalHotKeys::handleRefusal);
    connect(&m_portal, &GlobalShortcutsPortal::pressed, this,
            [this](const QString &name, qulonglong time, const QString &token) {
                if (!token.isEmpty())
                    Q_EMIT activationTokenGiven(token);
                m_held.press(name, qlonglong(time), false);
            });
    connect(
        &m_portal, &GlobalShortcutsPortal::released, this,
        [this](const QString &name, qulonglong time) { m_held.release(name, qlonglong(time)); });
    connect(&m_held, &HeldShortcuts::pressed, this, [this](const QString &name, qlonglong time) {
        for (const HotKeyId id : idsOf(name))
            Q_EMIT pressed(eventOf(id, time));
    });
    connect(&m_held, &HeldShortcuts::released, this, [this](const QString &name, qlonglong time) {
        for (const HotKeyId id : idsOf(name))
            Q_EMIT released(eventOf(id, time));
    });
    // Before the layout is known no key has a name.
    connect(&m_layout, &KeyboardLayout::changed, this, &PortalHotKeys::bindLater);
    // A combination is often given back and registered anew in one go, which is nothing to ask.
    m_bindTimer.setSingleShot(true);
    m_bindTimer.callOnTimeout(this, &PortalHotKeys::bind);
}

PortalHotKeys::~PortalHotKeys() = default;

void PortalHotKeys::begin()
{
    if (m_portalState != Portal::NotAsked)
        return;
    m_portalState = Portal::Asked;
    m_portal.start();
}

HotKeys::Control PortalHotKeys::control() const
{
    return m_portalState == Portal::Absent ? m_otherwise->control() : Control::Desktop;
}

void PortalHotKeys::configure()
{
    if (m_portalState == Portal::NotAsked) {
        begin();
    } else if (std::exchange(m_isRefused, false)) {
        m_bound.clear();
        bindLater();
    } else if (m_portal.canConfigure()) {
        m_portal.configure();
    } else {
        QDBusConnection::sessionBus().send(orderOfSettings());
    }
}

QString PortalHotKeys::configurationFor(const HotKeyCombination &combination,
                                        const QString &word) const
{
    return m_portalState == Portal::Absent ? m_otherwise->configurationFor(combination, word)
                                           : QString();
}

bool PortalHotKeys::registerHotKey(HotKeyId id, quint32 keyCode, quint32 carbonModifiers)
{
    return m_portalState == Portal::Absent &&
           m_otherwise->registerHotKey(id, keyCode, carbonModifiers);
}

bool PortalHotKeys::registerAction(HotKeyId id, quint32 keyCode, quint32 carbonModifiers,
                                   const HotKeyAction &action)
{
    if (m_portalState == Portal::Absent)
        return m_otherwise->registerAction(id, keyCode, carbonModifiers, action);
    if (action.name.isEmpty() || m_registrations.contains(id))
        return false;
    m_registrations.insert({id, {action.name, {keyCode, carbonModifiers}}});
    m_titles[action.name] = action.title;
    bindLater();
    return true;
}

void PortalHotKeys::unregisterHotKey(HotKeyId id)
{
    m_otherwise->unregisterHotKey(id);
    m_registrations.erase(id);
}

bool PortalHotKeys::isAvailable(quint32 keyCode, quint32 carbonModifiers)
{
    return m_portalState != Portal::Absent || m_otherwise->isAvailable(keyCode, carbonModifiers);
}

/// Whatever keys it has, if any, the press of it reaches us.
bool PortalHotKeys::isGranted(HotKeyId id)
{
    return m_portalState == Portal::Absent ? m_otherwise->isGranted(id)
                                           : m_registrations.contains(id);
}

void PortalHotKeys::handleMissing()
{
    if (m_portalState != Portal::Asked)
        return;
    qCInfo(lcHotKeys, "the desktop has no portal of shortcuts");
    m_portalState = Portal::Absent;
    m_registrations.clear();
    Q_EMIT controlChanged();
    Q_EMIT availabilityChanged();
}

void PortalHotKeys::bindLater()
{
    m_bindTimer.start(0);
}

/// A session is asked once for all that it is to have.
void PortalHotKeys::bind()
{
    const bool isLayoutKnown = !m_layout.asciiCapableName(VirtualKey::kA).isEmpty();
    const bool isAnyNew = std::ranges::any_of(m_registrations, [this](const auto &registration) {
        return !m_bound.contains(registration.second.name);
    });
    if (m_portalState != Portal::There || !isLayoutKnown || !isAnyNew || m_isRefused)
        return;
    m_bound.clear();
    QList<GlobalShortcutsPortal::Shortcut> wanted;
    for (const auto &[id, registration] : m_registrations) {
        if (m_bound.contains(registration.name))
            continue;
        m_bound.append(registration.name);
        wanted.append({registration.name, m_titles.value(registration.name),
                       PortalTriggers::of(registration.combination, m_layout)});
    }
    m_portal.bind(wanted);
}

void PortalHotKeys::takeKeys(const GlobalShortcutsPortal::Keys &keys)
{
    for (const QString &name : std::as_const(m_bound))
        tell(name, keys.value(name));
}

/// Nothing is asked again before the user wants it.
void PortalHotKeys::handleRefusal()
{
    qCInfo(lcHotKeys, "the desktop gives us no shortcuts");
    m_isRefused = true;
    takeKeys({});
}

void PortalHotKeys::tell(const QString &name, const QString &description)
{
    const std::vector<HotKeyId> ids = idsOf(name);
    if (ids.empty())
        return;
    qCInfo(lcHotKeys).noquote() << "the desktop's keys for" << name << "are:" << description;
    HotKeyChoice choice;
    choice.combination = PortalTriggers::combinationIn(description, m_layout);
    // Without keys it stays ours, and the desktop tells when it gets some.
    choice.description = description.isEmpty() ? tr("No keys") : description;
    if (choice.combination) {
        for (const HotKeyId id : ids)
            m_registrations.at(id).combination = *choice.combination;
    }
    Q_EMIT chosenElsewhere(ids.back(), choice);
}

HotKeyEvent PortalHotKeys::eventOf(HotKeyId id, qlonglong timestamp) const
{
    HotKeyEvent event;
    event.id = id;
    event.timestamp = static_cast<quint32>(timestamp);
    event.carbonModifiers = m_registrations.at(id).combination.carbonModifiers;
    return event;
}

std::vector<HotKeyId> PortalHotKeys::idsOf(const QString &name) const
{
    std::vector<HotKeyId> ids;
    for (const auto &[id, registration] : m_registrations) {
        if (registration.name == name)
            ids.push_back(id);
    }
    return ids;
}
