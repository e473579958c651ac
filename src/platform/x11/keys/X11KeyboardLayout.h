#pragma once

#include "platform/KeyboardLayout.h"
#include "platform/typing/KeymapNames.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11EventNotifier.h"
#include "platform/x11/keys/X11Keyboard.h"

/// The server's keymap, read when it is first asked for and again after it changed.
class X11KeyboardLayout : public KeyboardLayout
{
    Q_OBJECT

public:
    explicit X11KeyboardLayout(QObject *parent = nullptr);

    // ^KeyboardLayout
    QString asciiCapableName(quint32 keyCode) const override;
    QString characters(quint32 keyCode, quint32 carbonModifiers) const override;

private:
    void takeIn(const xcb_generic_event_t &event);
    xkb_keymap *currentKeymap() const;

    X11Connection m_connection;
    mutable X11Keyboard m_keyboard;
    mutable X11EventNotifier m_events;
    KeymapNames m_names;
    bool m_isChangeTold = true;
};
