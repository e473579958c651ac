#include "platform/wayland/WaylandKeyboardLayout.h"

#include "platform/wayland/SeatKeyboard.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

namespace {

bool gives(xkb_keymap *keymap, xkb_layout_index_t group, xkb_keycode_t code, xkb_keysym_t symbol)
{
    const xkb_level_index_t levels = xkb_keymap_num_levels_for_key(keymap, code, group);
    for (xkb_level_index_t level = 0; level < levels; ++level) {
        const xkb_keysym_t *symbols = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(keymap, code, group, level, &symbols);
        if (count == 1 && symbols[0] == symbol)
            return true;
    }
    return false;
}

} // namespace

WaylandKeyboardLayout::WaylandKeyboardLayout(std::shared_ptr<WaylandConnection> connection,
                                             QObject *parent)
    : KeyboardLayout(parent)
{
    m_keyboard =
        std::make_unique<SeatKeyboard>(std::move(connection), [this](const QByteArray &text) {
            QMetaObject::invokeMethod(this, [this, text] { take(text); });
        });
    QCoreApplication::instance()->installEventFilter(this);
}

WaylandKeyboardLayout::~WaylandKeyboardLayout() = default;

QString WaylandKeyboardLayout::asciiCapableName(quint32 keyCode) const
{
    xkb_keymap *keymap = currentKeymap();
    return m_names.asciiCapableName(keymap, m_group, keyCode);
}

QString WaylandKeyboardLayout::characters(quint32 keyCode, quint32 carbonModifiers) const
{
    xkb_keymap *keymap = currentKeymap();
    return KeymapNames::characters(keymap, m_group, keyCode, carbonModifiers);
}

bool WaylandKeyboardLayout::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto *press = static_cast<const QKeyEvent *>(event);
        m_lastKey = {press->nativeScanCode(), press->nativeVirtualKey()};
        const xkb_layout_index_t before = m_group;
        // Whoever has asked for no name yet need hear of none.
        if (xkb_keymap *keymap = m_keymaps[0].map.get())
            settleGroup(keymap);
        if (m_group != before)
            Q_EMIT changed();
    }
    return KeyboardLayout::eventFilter(watched, event);
}

void WaylandKeyboardLayout::take(const QByteArray &text)
{
    if (text == m_keymaps[0].text)
        return;
    std::swap(m_keymaps[0], m_keymaps[1]);
    if (text != m_keymaps[0].text)
        m_keymaps[0] = {text, nullptr};
    m_group = 0;
    if (xkb_keymap *keymap = m_keymaps[0].map.get())
        settleGroup(keymap);
    Q_EMIT changed();
}

xkb_keymap *WaylandKeyboardLayout::currentKeymap() const
{
    Keymap &current = m_keymaps[0];
    if (!current.map && !current.text.isEmpty()) {
        const XkbPointer<xkb_context> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
        if (context)
            current.map.reset(xkb_keymap_new_from_string(context.get(), current.text.constData(),
                                                         XKB_KEYMAP_FORMAT_TEXT_V1,
                                                         XKB_KEYMAP_COMPILE_NO_FLAGS));
        if (!current.map)
            current.text.clear();
        else
            settleGroup(current.map.get());
    }
    return current.map.get();
}

/// To the one in which the last key gives what it gave, if that is not the present one.
void WaylandKeyboardLayout::settleGroup(xkb_keymap *keymap) const
{
    const auto [code, symbol] = m_lastKey;
    if (symbol == XKB_KEY_NoSymbol || gives(keymap, m_group, code, symbol))
        return;
    const xkb_layout_index_t groups = xkb_keymap_num_layouts_for_key(keymap, code);
    for (xkb_layout_index_t group = 0; group < groups; ++group) {
        if (gives(keymap, group, code, symbol)) {
            m_group = group;
            return;
        }
    }
}
