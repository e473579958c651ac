#pragma once

#include <QStringList>

/// The server's keyboard settings, put back to the plain American ones at the end.
class KeyboardSetup
{
public:
    KeyboardSetup() { reset(); }
    KeyboardSetup(const KeyboardSetup &) = delete;
    KeyboardSetup &operator=(const KeyboardSetup &) = delete;
    ~KeyboardSetup() { reset(); }

    /// Arguments of setxkbmap: a layout, or options and their values.
    void setLayout(const QStringList &arguments);
    /// Makes a group of the layout, counted from 0, the one in effect.
    void setGroup(unsigned group);
    /// Runs one of the server's tools to its end.
    static void run(const QString &program, const QStringList &arguments);
    /// Switches this one lock on or off.
    void setLock(int evdevCode, quint16 mask, bool isOn);

private:
    void reset();
};
