#pragma once

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

    /// `key` is an evdev code (linux/input-event-codes.h).
    void press(int key) { set(key, true); }
    void release(int key) { set(key, false); }
    void tap(int key)
    {
        press(key);
        release(key);
    }
    void releaseAll();

private:
    void set(int key, bool isDown);

    _XDisplay *m_display;
    void *m_device = nullptr;
    std::set<int> m_down;
};
