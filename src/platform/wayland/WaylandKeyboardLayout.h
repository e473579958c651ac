#pragma once

#include "platform/KeyboardLayout.h"
#include "platform/typing/KeymapNames.h"

#include <QByteArray>

#include <array>
#include <memory>

class WaylandConnection;
class SeatKeyboard;

/// The keymap of the seat, as the compositor tells it to every program. Which of its groups is in
/// effect it tells only to the window with the keyboard; so that is gathered from the keys that are
/// pressed in ours.
class WaylandKeyboardLayout : public KeyboardLayout
{
    Q_OBJECT

public:
    explicit WaylandKeyboardLayout(std::shared_ptr<WaylandConnection> connection,
                                   QObject *parent = nullptr);
    ~WaylandKeyboardLayout() override;

    // ^KeyboardLayout
    QString asciiCapableName(quint32 keyCode) const override;
    QString characters(quint32 keyCode, quint32 carbonModifiers) const override;

    // ^QObject
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Keymap
    {
        QByteArray text;
        XkbPointer<xkb_keymap> map; ///< Null until it is asked for, and when it is no keymap.
    };
    struct Key
    {
        xkb_keycode_t code = 0;
        xkb_keysym_t symbol = XKB_KEY_NoSymbol;
    };

    void take(const QByteArray &text);
    xkb_keymap *currentKeymap() const;
    void settleGroup(xkb_keymap *keymap) const;

    KeymapNames m_names;
    /// The current one and the one before: they alternate while somebody types by a keyboard that
    /// no hand is on, as we do.
    mutable std::array<Keymap, 2> m_keymaps;
    mutable xkb_layout_index_t m_group = 0;
    Key m_lastKey; ///< Pressed in a window of ours.
    std::unique_ptr<SeatKeyboard> m_keyboard;
};
