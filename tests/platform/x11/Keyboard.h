#pragma once

#include "platform/HotKeys.h"

#include <QStringList>

#include <set>

struct _XDisplay;

/// The keyboard under the user's fingers: its keys go down on the server's keyboard device, not
/// on the one that programs type with, so they stay down whatever a program releases. What is
/// still held is let go at the end.
class RealKeyboard
{
public:
    RealKeyboard();
    RealKeyboard(const RealKeyboard &) = delete;
    RealKeyboard &operator=(const RealKeyboard &) = delete;
    ~RealKeyboard();

    /// Keys are evdev codes (linux/input-event-codes.h), pressed one after the other.
    template <typename... Keys>
    void press(Keys... keys)
    {
        (set(keys, true), ...);
    }
    void release(int key) { set(key, false); }
    /// Each goes up before the next goes down.
    template <typename... Keys>
    void tap(Keys... keys)
    {
        ((set(keys, true), set(keys, false)), ...);
    }
    void releaseAll();

private:
    void set(int key, bool isDown);

    _XDisplay *m_display;
    void *m_device = nullptr;
    std::set<int> m_down;
};

/// The server's keyboard settings, put back to the plain American ones at the end.
class KeyboardSetup
{
public:
    KeyboardSetup() { reset(); }
    KeyboardSetup(const KeyboardSetup &) = delete;
    KeyboardSetup &operator=(const KeyboardSetup &) = delete;
    ~KeyboardSetup() { reset(); }

    /// Arguments of setxkbmap: "us dvorak", or options and their values.
    void setLayout(const char *arguments);
    /// Makes a group of the layout, counted from 0, the one in effect.
    void setGroup(unsigned group);
    /// Switches this one lock on or off.
    void setLock(int evdevCode, quint16 mask, bool isOn);
    /// Gives Super the modifier mod3 in place of mod4.
    void moveSuper();

private:
    void reset();
};

/// Returns when everything that the keyboard did before has been delivered.
void settle(HotKeys &hotKeys);
