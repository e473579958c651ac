#include "platform/x11/keys/X11HotKeys.h"

#include "platform/VirtualKeys.h"

#include <QMetaObject>

#include <xcb/xtest.h>

#include <algorithm>
#include <utility>

namespace {

// X keycodes are the kernel's plus 8, because the protocol has none below 8.
constexpr int kEvdevOffset = 8;
/// Nothing tells when the keyboard comes to a window of ours while a key waits for it.
constexpr std::chrono::milliseconds kLookInterval{2};

bool hasTestExtension(const X11Connection &connection)
{
    if (connection.isBroken())
        return false;
    const xcb_query_extension_reply_t *extension =
        xcb_get_extension_data(connection.get(), &xcb_test_id);
    return extension && extension->present;
}

} // namespace

X11HotKeys::X11HotKeys(QObject *parent)
    : HotKeys(parent), m_canType(hasTestExtension(m_connection)), m_keyboard(m_connection),
      m_grabs(m_connection), m_heldKeys(m_connection), m_handOver(m_connection),
      m_typeAhead(m_connection, m_keyboard, m_grabs, m_heldKeys,
                  {[this] { takeArrived(); }, [this] { giveKeyboardBack(); }}),
      m_thread(m_connection, [this](const xcb_generic_event_t &event) { handle(event); },
               {[this](X11EventThread::TimePoint now) { return keepDeadlines(now); }, {}, {}})
{
    m_thread.post([this] { m_keyboard.setDetectableAutoRepeat(); });
}

bool X11HotKeys::registerHotKey(HotKeyId id, quint32 keyCode, quint32 carbonModifiers)
{
    const std::optional<X11Combination> combination = combinationOf(keyCode, carbonModifiers);
    if (!combination || m_registrations.contains(id))
        return false;
    bool isGranted = false;
    const bool hasRun = m_thread.run([&] {
        isGranted = m_grabs.add(*combination);
        if (isGranted)
            m_ids[*combination].push_back(id);
    });
    if (hasRun && !isGranted)
        watchOtherPrograms();
    if (!isGranted)
        return false;
    m_registrations.emplace(id, *combination);
    return true;
}

void X11HotKeys::unregisterHotKey(HotKeyId id)
{
    const auto known = m_registrations.find(id);
    if (known == m_registrations.end())
        return;
    const X11Combination combination = known->second;
    m_registrations.erase(known);
    std::ignore = m_thread.run([&] {
        std::vector<HotKeyId> &ids = m_ids.at(combination);
        std::erase(ids, id);
        if (!ids.empty())
            return;
        m_ids.erase(combination);
        m_grabs.remove(combination);
    });
}

bool X11HotKeys::isAvailable(quint32 keyCode, quint32 carbonModifiers)
{
    const std::optional<X11Combination> combination = combinationOf(keyCode, carbonModifiers);
    bool isFree = false;
    return combination && m_thread.run([&] { isFree = m_grabs.isAvailable(*combination); }) &&
           isFree;
}

bool X11HotKeys::isGranted(HotKeyId id)
{
    const auto known = m_registrations.find(id);
    if (known == m_registrations.end())
        return false;
    bool isGranted = false;
    const bool hasRun = m_thread.run([&] { isGranted = m_grabs.isGranted(known->second); });
    if (hasRun && !isGranted)
        watchOtherPrograms();
    return isGranted;
}

void X11HotKeys::setSuspended(bool isSuspended)
{
    if (isSuspended == m_isSuspended)
        return;
    m_isSuspended = isSuspended;
    // Waited for, so that a recorder gets the very next key.
    std::ignore = m_thread.run([&] {
        m_grabs.setSuspended(isSuspended);
        if (isSuspended)
            giveKeyboardBack();
        m_connection.roundTrip();
    });
    if (!isSuspended)
        tellAvailabilityLater();
}

bool X11HotKeys::typeFreely(const std::function<Keystroke(const Typing &)> &plan)
{
    return m_thread.run([&] {
        // Whatever asks the server comes first: from when the keyboard is let go until all is
        // typed the user's own keys would come in between.
        const bool isKeeping = m_typeAhead.isKeeping();
        if (isKeeping) {
            // A modifier must not go down or up between the look at the keyboard and the keystroke.
            xcb_grab_server(m_connection.get());
            takeArrived();
        }
        const Keystroke keystroke = plan({m_connection, m_keyboard, m_grabs});
        // Typed by XTEST it would fire like one that was pressed.
        if (keystroke.isHotKey)
            m_grabs.setSuspended(true);
        if (isKeeping)
            m_typeAhead.letGo();
        // A hot key that is still down has the keyboard for us: the keystroke would come here
        // instead of to the target.
        giveKeyboardBack();
        type(keystroke);
        if (isKeeping) {
            m_typeAhead.takeBack();
            xcb_ungrab_server(m_connection.get());
        }
        m_connection.roundTrip();
        if (keystroke.isHotKey)
            m_grabs.setSuspended(false);
        endHoldsThatAreUp();
    });
}

void X11HotKeys::type(const Keystroke &keystroke) const
{
    const auto before = keystroke.locks ? std::optional(m_keyboard.locks()) : std::nullopt;
    if (before)
        m_keyboard.lock(*keystroke.locks);
    for (const auto &[eventType, keycode] : keystroke.steps)
        xcb_test_fake_input(m_connection.get(), eventType, keycode, XCB_CURRENT_TIME, XCB_NONE, 0,
                            0, 0);
    if (before)
        m_keyboard.lock(*before);
}

void X11HotKeys::keepTypedAhead(xcb_window_t window)
{
    if (m_canType)
        m_thread.post([this, window] { m_typeAhead.watch(window); });
}

void X11HotKeys::letTypedAheadGo()
{
    m_thread.post([this] {
        if (m_typeAhead.isKeeping())
            giveTypedAheadBack();
    });
}

bool X11HotKeys::isKeyHeld()
{
    bool isHeld = false;
    return m_thread.run([&] {
        X11HeldKeys::Keys down = m_heldKeys.down();
        for (const xcb_keycode_t modifier : m_grabs.modifiers().heldKeys)
            down.reset(modifier);
        isHeld = down.any();
    }) && isHeld;
}

std::optional<X11Combination> X11HotKeys::combinationOf(quint32 keyCode,
                                                        quint32 carbonModifiers) const
{
    const std::optional<quint16> evdevCode = VirtualKey::toEvdev(keyCode);
    if (!evdevCode || m_connection.isBroken())
        return std::nullopt;
    const int keycode = *evdevCode + kEvdevOffset;
    const xcb_setup_t *setup = xcb_get_setup(m_connection.get());
    if (keycode < setup->min_keycode || keycode > setup->max_keycode)
        return std::nullopt;
    return X11Combination{xcb_keycode_t(keycode), carbonModifiers};
}

void X11HotKeys::deliver(const HotKeyEvent &event, bool isPress)
{
    if (!m_registrations.contains(event.id) || (isPress && m_isSuspended))
        return;
    if (isPress)
        Q_EMIT pressed(event);
    else
        Q_EMIT released(event);
}

void X11HotKeys::tellAvailabilityLater()
{
    QMetaObject::invokeMethod(this, &HotKeys::availabilityChanged, Qt::QueuedConnection);
}

void X11HotKeys::watchOtherPrograms()
{
    if (m_clientEnds)
        return;
    m_clientEnds = std::make_unique<X11ClientEnds>();
    connect(m_clientEnds.get(), &X11ClientEnds::ended, this, &HotKeys::availabilityChanged);
}

void X11HotKeys::handle(const xcb_generic_event_t &event)
{
    if (m_keyboard.takeIn(event) == X11Keyboard::Change::Mapping) {
        m_grabs.refresh();
        tellAvailabilityLater();
        return;
    }
    if (const std::optional<xcb_timestamp_t> time = m_heldKeys.releaseTime(event)) {
        endHoldsThatAreUp(time);
        m_typeAhead.takeBackModifiers();
        listenForReleases();
        return;
    }
    const uint8_t type = typeOf(event);
    if (type == XCB_KEY_PRESS)
        handlePress(reinterpret_cast<const xcb_key_press_event_t &>(event));
    else if (type == XCB_KEY_RELEASE)
        handleRelease(reinterpret_cast<const xcb_key_release_event_t &>(event));
}

void X11HotKeys::handleRelease(const xcb_key_release_event_t &event)
{
    endHold(event.detail, eventOf(event));
    if (m_typeAhead.isKeeping())
        m_typeAhead.take(event, false);
    else
        m_handOver.passOver();
}

void X11HotKeys::handlePress(const xcb_key_press_event_t &event)
{
    // The grabs of hot keys are on the root window; on another there is only that of Return.
    if (event.event != m_connection.root()) {
        m_typeAhead.begin(event);
        return;
    }
    const std::vector<X11Combination> combinations = m_grabs.matching(event.detail, event.state);
    if (m_typeAhead.isKeeping() && (combinations.empty() || !m_typeAhead.hasLetGo())) {
        m_typeAhead.take(event, true);
        return;
    }
    // Held keys repeat, and so take the keyboard again if it was given back.
    if (const auto held = m_holds.find(event.detail); held != m_holds.end()) {
        held->second.isGivenBack = false;
        m_handOver.passOver();
        return;
    }
    Hold hold;
    for (const X11Combination &combination : combinations) {
        const std::vector<HotKeyId> &ids = m_ids.at(combination);
        hold.ids.insert(hold.ids.end(), ids.begin(), ids.end());
    }
    if (hold.ids.empty()) {
        handleOtherPress(event.detail);
        return;
    }
    m_handOver.begin();
    m_handOver.passOver();
    hold.press = eventOf(event);
    report(hold.ids, hold.press, true);
    m_holds.emplace(event.detail, std::move(hold));
    // Most presses are followed by typing for the user, which must not wait for the keymap then.
    m_keyboard.keymap();
}

/// A key that is pressed while a hot key is down.
void X11HotKeys::handleOtherPress(xcb_keycode_t keycode)
{
    // That of a grab which was given back meanwhile belongs to whoever has the keyboard.
    if (std::all_of(m_holds.begin(), m_holds.end(),
                    [](const auto &entry) { return entry.second.isGivenBack; })) {
        m_handOver.letGo();
        return;
    }
    // A modifier alone says nothing, and tells every client by itself that it is down. Let go, it
    // would leave the hot key repeating into our window.
    const std::vector<xcb_keycode_t> &modifiers = m_grabs.modifiers().heldKeys;
    if (std::find(modifiers.begin(), modifiers.end(), keycode) != modifiers.end())
        m_handOver.passOver();
    else
        m_handOver.holdBack();
}

std::optional<X11EventThread::TimePoint> X11HotKeys::keepDeadlines(X11EventThread::TimePoint now)
{
    if (m_typeAhead.isKeeping() && now >= *m_typeAhead.deadline())
        giveTypedAheadBack();
    const auto nextLook = keepHandOver(now);
    return nextLook ? nextLook : m_typeAhead.deadline();
}

std::optional<X11EventThread::TimePoint> X11HotKeys::keepHandOver(X11EventThread::TimePoint now)
{
    if (!m_handOver.isHoldingBack())
        return std::nullopt;
    if (m_handOver.isOurWindowReady(now))
        letHeldBackKeysGo();
    else if (m_handOver.isTooLate(now))
        m_handOver.passOver();
    else
        return now + kLookInterval;
    return std::nullopt;
}

void X11HotKeys::letHeldBackKeysGo()
{
    expectReleaseElsewhere();
    m_handOver.letGo();
    endHoldsThatAreUp();
}

HotKeyEvent X11HotKeys::eventOf(const xcb_key_press_event_t &event) const
{
    return {{}, event.time, event.root_x, event.root_y, m_grabs.modifiers().carbonOf(event.state)};
}

void X11HotKeys::endHold(xcb_keycode_t keycode, HotKeyEvent event)
{
    const auto held = m_holds.find(keycode);
    if (held == m_holds.end())
        return;
    report(held->second.ids, event, false);
    m_holds.erase(held);
    listenForReleases();
}

void X11HotKeys::listenForReleases()
{
    const bool isAnyGivenBack = std::any_of(
        m_holds.begin(), m_holds.end(), [](const auto &entry) { return entry.second.isGivenBack; });
    m_heldKeys.setListening(isAnyGivenBack || m_typeAhead.isModifierLent());
}

void X11HotKeys::endHoldsThatAreUp(std::optional<xcb_timestamp_t> releaseTime)
{
    std::vector<std::pair<xcb_keycode_t, HotKeyEvent>> ended;
    for (const auto &[keycode, hold] : m_holds) {
        if (hold.isGivenBack && !m_heldKeys.isDown(keycode))
            ended.emplace_back(keycode, hold.press);
    }
    if (ended.empty())
        return;
    // What tells the release is a raw event, which has neither place nor modifiers.
    const XcbPointer<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(
        m_connection.get(), xcb_query_pointer(m_connection.get(), m_connection.root()), nullptr));
    for (auto &[keycode, event] : ended) {
        event.timestamp = releaseTime.value_or(event.timestamp);
        if (pointer) {
            event.x = pointer->root_x;
            event.y = pointer->root_y;
            event.carbonModifiers = m_grabs.modifiers().carbonOf(pointer->mask);
        }
        endHold(keycode, event);
    }
}

/// To be called before the keyboard is given back: a release in between is then told twice rather
/// than never.
void X11HotKeys::expectReleaseElsewhere()
{
    m_heldKeys.setListening(true);
    for (auto &[keycode, hold] : m_holds)
        hold.isGivenBack = true;
}

void X11HotKeys::giveKeyboardBack()
{
    if (m_holds.empty())
        return;
    expectReleaseElsewhere();
    m_handOver.forget();
    // This ends also the grab that a key began by itself, and thaws the keys that the server held
    // back for it.
    xcb_ungrab_keyboard(m_connection.get(), XCB_CURRENT_TIME);
}

/// Handles the events that the server has sent before it was asked.
void X11HotKeys::takeArrived()
{
    m_connection.roundTrip();
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())})
        handle(*event);
}

void X11HotKeys::giveTypedAheadBack()
{
    m_typeAhead.giveBack();
    listenForReleases();
}

void X11HotKeys::report(const std::vector<HotKeyId> &ids, const HotKeyEvent &event, bool isPress)
{
    for (const HotKeyId id : ids) {
        HotKeyEvent report = event;
        report.id = id;
        QMetaObject::invokeMethod(
            this, [this, report, isPress] { deliver(report, isPress); }, Qt::QueuedConnection);
    }
}
