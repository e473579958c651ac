#include "platform/x11/keys/X11KeyboardLayout.h"

#include <QMetaObject>

X11KeyboardLayout::X11KeyboardLayout(QObject *parent)
    : KeyboardLayout(parent), m_keyboard(m_connection),
      m_events(m_connection, [this](const xcb_generic_event_t &event) { takeIn(event); })
{
}

QString X11KeyboardLayout::asciiCapableName(quint32 keyCode) const
{
    xkb_keymap *keymap = currentKeymap();
    return m_names.asciiCapableName(keymap, m_keyboard.group(), keyCode);
}

QString X11KeyboardLayout::characters(quint32 keyCode, quint32 carbonModifiers) const
{
    xkb_keymap *keymap = currentKeymap();
    return KeymapNames::characters(keymap, m_keyboard.group(), keyCode, carbonModifiers);
}

void X11KeyboardLayout::takeIn(const xcb_generic_event_t &event)
{
    if (m_keyboard.takeIn(event) == X11Keyboard::Change::None || !m_isChangeTold)
        return;
    // One new layout comes as several notices; and a question asked meanwhile is no moment for
    // the asker to hear of it.
    m_isChangeTold = false;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_isChangeTold = true;
            Q_EMIT changed();
        },
        Qt::QueuedConnection);
}

xkb_keymap *X11KeyboardLayout::currentKeymap() const
{
    // The map is asked of the server, and with its answer a notice may come that it is out of date.
    m_events.handleArrived();
    m_keyboard.keymap();
    m_events.handleArrived();
    return m_keyboard.keymap();
}
