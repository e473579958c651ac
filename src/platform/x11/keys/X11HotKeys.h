#pragma once

#include "platform/HotKeys.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11EventThread.h"
#include "platform/x11/keys/X11ClientEnds.h"
#include "platform/x11/keys/X11HeldKeys.h"
#include "platform/x11/keys/X11KeyGrabs.h"
#include "platform/x11/keys/X11Keyboard.h"
#include "platform/x11/keys/X11KeyboardHandOver.h"
#include "platform/x11/keys/X11TypeAhead.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

/// Hot keys as key grabs on the root window. They have a thread and a connection of their own:
/// a press is noticed while the main thread is busy, and what is typed for the user goes out on
/// the connection that holds the grabs, in one order with giving the keyboard back. Registrations
/// are kept on both sides: the main thread delivers only what it still knows.
class X11HotKeys : public HotKeys
{
    Q_OBJECT

public:
    /// What a planner of keystrokes needs; valid while it runs.
    struct Typing
    {
        const X11Connection &connection;
        X11Keyboard &keyboard;
        X11KeyGrabs &grabs;
    };
    /// What is typed for the user.
    struct Keystroke
    {
        struct Step
        {
            uint8_t eventType; ///< XCB_KEY_PRESS or XCB_KEY_RELEASE.
            xcb_keycode_t keycode;
        };
        std::vector<Step> steps;
        /// In effect while they are typed; those in effect now when absent.
        std::optional<X11Keyboard::Locks> locks;
        bool isHotKey = false; ///< Whether the steps make up one of our own combinations.
    };

    explicit X11HotKeys(QObject *parent = nullptr);

    /// Whether the server lets us type at all.
    bool canType() const { return m_canType; }

    /// Runs `plan` on the thread and types what it answers. The keyboard is given back before if
    /// one of our combinations is down, because keys sent meanwhile would come to us. What is
    /// typed ahead waits on for letTypedAheadGo(). False when the server is gone.
    [[nodiscard]] bool typeFreely(const std::function<Keystroke(const Typing &)> &plan);

    /// From now on what is typed behind a Return in `window` is kept until letTypedAheadGo(), and
    /// not for long without it.
    void keepTypedAhead(xcb_window_t window);

    /// Gives what was typed ahead to whoever has the keyboard. Returns at once.
    void letTypedAheadGo();

    /// Whether a key that is no modifier is down under somebody's finger.
    bool isKeyHeld();

    // ^HotKeys
    bool registerHotKey(HotKeyId id, quint32 keyCode, quint32 carbonModifiers) override;
    void unregisterHotKey(HotKeyId id) override;
    bool isAvailable(quint32 keyCode, quint32 carbonModifiers) override;
    bool isGranted(HotKeyId id) override;
    void setSuspended(bool isSuspended) override;

private:
    /// A combination that is down.
    struct Hold
    {
        std::vector<HotKeyId> ids;
        HotKeyEvent press;
        /// Its release does not reach us as a key event any more.
        bool isGivenBack = false;
    };

    std::optional<X11Combination> combinationOf(quint32 keyCode, quint32 carbonModifiers) const;
    void deliver(const HotKeyEvent &event, bool isPress);
    void tellAvailabilityLater();
    void watchOtherPrograms();

    // On the thread.
    void handle(const xcb_generic_event_t &event);
    void handlePress(const xcb_key_press_event_t &event);
    void handleRelease(const xcb_key_release_event_t &event);
    /// Press or release, of no id yet.
    HotKeyEvent eventOf(const xcb_key_press_event_t &event) const;
    void type(const Keystroke &keystroke) const;
    void endHold(xcb_keycode_t keycode, HotKeyEvent event);
    void endHoldsThatAreUp(std::optional<xcb_timestamp_t> releaseTime = std::nullopt);
    void handleOtherPress(xcb_keycode_t keycode);
    std::optional<X11EventThread::TimePoint> keepDeadlines(X11EventThread::TimePoint now);
    std::optional<X11EventThread::TimePoint> keepHandOver(X11EventThread::TimePoint now);
    void letHeldBackKeysGo();
    void expectReleaseElsewhere();
    void giveKeyboardBack();
    void takeArrived();
    void giveTypedAheadBack();
    void listenForReleases();
    void report(const std::vector<HotKeyId> &ids, const HotKeyEvent &event, bool isPress);

    std::map<HotKeyId, X11Combination> m_registrations;
    bool m_isSuspended = false;
    /// Made when a combination is first refused; most never are.
    std::unique_ptr<X11ClientEnds> m_clientEnds;

    // The thread's, but for the connection's unchanging setup.
    X11Connection m_connection;
    const bool m_canType;
    X11Keyboard m_keyboard;
    X11KeyGrabs m_grabs;
    X11HeldKeys m_heldKeys;
    X11KeyboardHandOver m_handOver;
    X11TypeAhead m_typeAhead;
    std::map<X11Combination, std::vector<HotKeyId>> m_ids;
    std::map<xcb_keycode_t, Hold> m_holds;
    X11EventThread m_thread;
};
