#include "ForeignWindow.h"

#include "platform/x11/keys/X11Keyboard.h"
#include "platform/x11/windows/X11ActiveWindow.h"

#include <QMap>
#include <QRegularExpression>
#include <QTest>

#include <iterator>

namespace {

using namespace Qt::StringLiterals;

constexpr int kEvdevOffset = 8;

QString nameOf(xcb_keycode_t keycode)
{
    static const QMap<int, QString> kNames{
        {37, u"Control"_s}, {50, u"Shift"_s}, {133, u"Super"_s}, {36, u"Return"_s},
        {118, u"Insert"_s}, {55, u"v"_s},     {54, u"c"_s},      {53, u"x"_s},
        {60, u"."_s},       {67, u"F1"_s}};
    return kNames.value(keycode, QString::number(keycode));
}

QString modifiersOf(quint16 state)
{
    QString modifiers;
    if (state & XCB_MOD_MASK_SHIFT)
        modifiers += u"Shift-"_s;
    if (state & XCB_MOD_MASK_CONTROL)
        modifiers += u"Control-"_s;
    if (state & XCB_MOD_MASK_1)
        modifiers += u"Alt-"_s;
    if (state & XCB_MOD_MASK_4)
        modifiers += u"Super-"_s;
    return modifiers;
}

/// What the key gives in the event's state, and the modifiers that are not used up by that.
QString symbolOf(xkb_keymap *keymap, const xcb_key_press_event_t &key)
{
    constexpr int kGroupBits = 13;
    const XkbPointer<xkb_state> state(xkb_state_new(keymap));
    xkb_state_update_mask(state.get(), key.state & 0xFF, 0, 0, 0, 0, key.state >> kGroupBits & 3);
    QString symbol;
    for (const auto &[name, text] :
         {std::pair(XKB_MOD_NAME_CTRL, "Ctrl+"), std::pair(XKB_MOD_NAME_ALT, "Alt+"),
          std::pair(XKB_MOD_NAME_SHIFT, "Shift+")}) {
        const xkb_mod_index_t index = xkb_keymap_mod_get_index(keymap, name);
        if ((key.state & (1U << index)) &&
            xkb_state_mod_index_is_consumed(state.get(), key.detail, index) == 0)
            symbol += QLatin1String(text);
    }
    char name[64] = "";
    xkb_keysym_get_name(xkb_state_key_get_one_sym(state.get(), key.detail), name, sizeof name);
    return symbol + QLatin1String(name);
}

} // namespace

ForeignWindow::ForeignWindow(const QByteArray &resourceClass)
    : m_window(xcb_generate_id(m_connection.get()))
{
    constexpr uint32_t kEvents = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
    xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_window, m_connection.root(), 300,
                      200, 200, 100, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_EVENT_MASK, &kEvents);
    const QByteArray classHint = resourceClass.toLower() + '\0' + resourceClass + '\0';
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, uint32_t(classHint.size()), classHint.constData());
    // The input hint of ICCCM: without it some window managers do not give the keyboard away.
    constexpr uint32_t kTakesInput[9] = {1, 1};
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_HINTS,
                        XCB_ATOM_WM_HINTS, 32, uint32_t(std::size(kTakesInput)), kTakesInput);
    m_connection.roundTrip();
}

void ForeignWindow::map()
{
    xcb_map_window(m_connection.get(), m_window);
    m_connection.roundTrip();
}

bool ForeignWindow::show()
{
    map();
    const X11ActiveWindow active(m_connection);
    const bool isManaged = active.isManaged();
    if (!isManaged)
        xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
    m_connection.roundTrip();
    return QTest::qWaitFor([&] { return active.current() == m_window && hasKeyboard(); });
}

void ForeignWindow::hide()
{
    xcb_unmap_window(m_connection.get(), m_window);
    m_connection.roundTrip();
}

void ForeignWindow::destroy()
{
    xcb_destroy_window(m_connection.get(), m_window);
    m_connection.roundTrip();
}

xcb_window_t ForeignWindow::openField()
{
    const xcb_window_t field = xcb_generate_id(m_connection.get());
    xcb_create_window(m_connection.get(), 0, field, m_window, 10, 10, 50, 20, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(m_connection.get(), field);
    xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_PARENT, field, XCB_CURRENT_TIME);
    m_connection.roundTrip();
    return field;
}

void ForeignWindow::closeField(xcb_window_t field)
{
    xcb_destroy_window(m_connection.get(), field);
    m_connection.roundTrip();
}

bool ForeignWindow::grabKey(int evdevCode, quint16 modifiers)
{
    const auto cookie = xcb_grab_key_checked(m_connection.get(), 0, m_connection.root(), modifiers,
                                             xcb_keycode_t(evdevCode + kEvdevOffset),
                                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    return !XcbPointer<xcb_generic_error_t>(xcb_request_check(m_connection.get(), cookie));
}

void ForeignWindow::ungrabKey(int evdevCode, quint16 modifiers)
{
    xcb_ungrab_key(m_connection.get(), xcb_keycode_t(evdevCode + kEvdevOffset), m_connection.root(),
                   modifiers);
    m_connection.roundTrip();
}

bool ForeignWindow::hasKeyboard() const
{
    return X11ActiveWindow(m_connection).hasInputFocus(m_window);
}

QStringList ForeignWindow::takeKeys()
{
    m_connection.roundTrip();
    QStringList keys;
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
        const uint8_t type = event->response_type & 0x7F;
        if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
            continue;
        const auto &key = reinterpret_cast<const xcb_key_press_event_t &>(*event);
        const bool isPress = type == XCB_KEY_PRESS;
        keys.append((isPress ? u"+"_s + modifiersOf(key.state) : u"-"_s) + nameOf(key.detail));
    }
    return keys;
}

QString ForeignWindow::takeSymbols()
{
    static const QRegularExpression kModifier(
        u"(Shift|Control|Alt|Meta|Super)_[LR]$|ISO_Level3_Shift$|Caps_Lock$"_s);
    X11Keyboard keyboard(m_connection);
    xkb_keymap *keymap = keyboard.keymap();
    m_connection.roundTrip();
    QStringList symbols;
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
        if ((event->response_type & 0x7F) != XCB_KEY_PRESS)
            continue;
        const QString symbol =
            symbolOf(keymap, reinterpret_cast<const xcb_key_press_event_t &>(*event));
        if (!symbol.contains(kModifier))
            symbols.append(symbol);
    }
    return symbols.join(u' ');
}
