#pragma once

#include "platform/x11/X11Connection.h"

#include <QByteArray>
#include <QStringList>

#include <optional>

/// A window of another program, on a connection of its own: it tells the keys it gets, as the
/// receiving end of whatever is typed.
class ForeignWindow
{
public:
    explicit ForeignWindow(const QByteArray &resourceClass = "Foreign");

    /// Shows the window and waits until it has the keyboard; asks for it where no window manager
    /// gives it away. False when it does not get it.
    [[nodiscard]] bool show();
    /// Shows it, whoever has the keyboard then.
    void map();
    void hide();
    void destroy();
    /// A field inside that is a window of its own and has the keyboard when it returns.
    xcb_window_t openField();
    void closeField(xcb_window_t field);
    /// Keeps for itself a key with exactly these modifiers, as another hot-key program does.
    [[nodiscard]] bool grabKey(int evdevCode, quint16 modifiers);
    void ungrabKey(int evdevCode, quint16 modifiers);

    xcb_window_t id() const { return m_window; }
    bool hasKeyboard() const;
    /// What was typed since the last call: "+v" for a press, "-v" for a release, "+Control-v" for
    /// a press with the server's modifiers added.
    QStringList takeKeys();
    /// The same as a program that looks at its keyboard understands it, without the modifier keys:
    /// "Ctrl+y Shift+Insert quotedbl P".
    QString takeSymbols();

private:
    X11Connection m_connection;
    xcb_window_t m_window;
};
