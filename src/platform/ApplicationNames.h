#pragma once

#include <QString>

/// What a window tells about the program it belongs to. Fields that the window does not tell are
/// empty.
struct WindowIdentity
{
    QString resourceName;     ///< First half of WM_CLASS, or the Wayland app id.
    QString resourceClass;    ///< Second half of WM_CLASS.
    QString gtkApplicationId; ///< _GTK_APPLICATION_ID.
    QString processName;      ///< Base name of the program that owns the window.
    /// That program's file, an absolute path without links: the single file that it was started
    /// from where it runs out of one, else its executable.
    QString programPath = QString();
};

struct ApplicationIdentity
{
    /// The untranslated Name of the application's desktop entry, so that it reads the same in
    /// every language; else the window class; else the process name; else empty.
    QString name;
    /// Whether it says of itself that it is a terminal.
    bool isTerminal = false;
};

/// Finds the application behind a window. The ignore list and capture compare the names told
/// here. Owned by Platform; safe to call from any thread.
class ApplicationNames
{
public:
    ApplicationNames() = default;
    ApplicationNames(const ApplicationNames &) = delete;
    ApplicationNames &operator=(const ApplicationNames &) = delete;
    virtual ~ApplicationNames() = default;

    virtual ApplicationIdentity identify(const WindowIdentity &window) const = 0;
};
