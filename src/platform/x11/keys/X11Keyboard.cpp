#include "platform/x11/keys/X11Keyboard.h"

#include <xkbcommon/xkbcommon-x11.h>

// A field of this header is called by a C++ keyword.
#define explicit xkbExplicit
#include <xcb/xkb.h>
#undef explicit

X11Keyboard::X11Keyboard(const X11Connection &connection) : m_connection(connection)
{
    m_hasExtension = !connection.isBroken() &&
                     xkb_x11_setup_xkb_extension(connection.get(), XKB_X11_MIN_MAJOR_XKB_VERSION,
                                                 XKB_X11_MIN_MINOR_XKB_VERSION,
                                                 XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr,
                                                 nullptr, &m_firstEvent, nullptr);
    if (!m_hasExtension)
        return;
    selectNotices();
    readGroup();
}

void X11Keyboard::selectNotices() const
{
    constexpr uint16_t kNotices = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY |
                                  XCB_XKB_EVENT_TYPE_MAP_NOTIFY | XCB_XKB_EVENT_TYPE_STATE_NOTIFY;
    constexpr uint16_t kMapParts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                   XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS |
                                   XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
    constexpr uint16_t kKeyboardParts = XCB_XKB_NKN_DETAIL_KEYCODES;
    // Another keyboard that is plugged in or used may bring a map of its own, which comes as the
    // first notice; a new layout as the second.
    xcb_xkb_select_events_details_t details = {};
    details.affectNewKeyboard = kKeyboardParts;
    details.newKeyboardDetails = kKeyboardParts;
    // Of the state the group only: a notice for each modifier pressed would wake us all day.
    details.affectState = XCB_XKB_STATE_PART_GROUP_STATE;
    details.stateDetails = XCB_XKB_STATE_PART_GROUP_STATE;
    xcb_xkb_select_events_aux(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD, kNotices, 0, 0,
                              kMapParts, kMapParts, &details);
    xcb_flush(m_connection.get());
}

void X11Keyboard::setDetectableAutoRepeat()
{
    if (!m_hasExtension)
        return;
    // Without it the server lets a held key go and presses it again at each repetition, which
    // nobody can tell from fingers.
    constexpr uint32_t kFlag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const auto cookie = xcb_xkb_per_client_flags(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD, kFlag,
                                                 kFlag, 0, 0, 0);
    xcb_discard_reply(m_connection.get(), cookie.sequence);
}

X11Keyboard::Change X11Keyboard::takeIn(const xcb_generic_event_t &event)
{
    const uint8_t type = typeOf(event);
    if (type == XCB_MAPPING_NOTIFY) {
        const auto &notice = reinterpret_cast<const xcb_mapping_notify_event_t &>(event);
        if (notice.request == XCB_MAPPING_POINTER)
            return Change::None;
        m_keymap.reset();
        return Change::Mapping;
    }
    if (!m_hasExtension || type != m_firstEvent)
        return Change::None;
    // The kind stands where other events keep their detail.
    switch (event.pad0) {
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY:
        m_keymap.reset();
        return Change::Mapping;
    case XCB_XKB_STATE_NOTIFY:
        m_group = reinterpret_cast<const xcb_xkb_state_notify_event_t &>(event).group;
        return Change::Group;
    default:
        return Change::None;
    }
}

xkb_keymap *X11Keyboard::keymap()
{
    if (m_keymap || !m_hasExtension)
        return m_keymap.get();
    if (!m_context)
        // The server gives the map whole, so that nothing is included from files. It is asked, and
        // not the names in _XKB_RULES_NAMES, which do not tell what xmodmap has changed.
        m_context.reset(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES));
    const int32_t device = xkb_x11_get_core_keyboard_device_id(m_connection.get());
    if (m_context && device >= 0)
        m_keymap.reset(xkb_x11_keymap_new_from_device(m_context.get(), m_connection.get(), device,
                                                      XKB_KEYMAP_COMPILE_NO_FLAGS));
    return m_keymap.get();
}

void X11Keyboard::readGroup()
{
    if (!m_hasExtension)
        return;
    const auto cookie = xcb_xkb_get_state(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD);
    const XcbPointer<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(m_connection.get(), cookie, nullptr));
    if (state)
        m_group = state->group;
}

std::optional<xcb_keycode_t> X11Keyboard::keyFor(xkb_keysym_t symbol)
{
    const std::optional<xkb_keycode_t> keycode = Xkb::keyFor(keymap(), symbol, m_group);
    return keycode ? std::optional(xcb_keycode_t(*keycode)) : std::nullopt;
}

xkb_layout_index_t X11Keyboard::groupCount()
{
    xkb_keymap *map = keymap();
    return map ? xkb_keymap_num_layouts(map) : 0;
}

std::optional<X11Keyboard::Place> X11Keyboard::placeOf(xkb_keysym_t symbol,
                                                       xkb_layout_index_t group)
{
    const std::optional<Xkb::Place> place = Xkb::placeOf(keymap(), symbol, group);
    if (!place)
        return std::nullopt;
    return Place{xcb_keycode_t(place->keycode), quint16(place->modifiers)};
}

std::optional<xcb_keycode_t> X11Keyboard::usualKeyFor(xkb_keysym_t symbol)
{
    const XkbPointer<xkb_keymap> american = Xkb::americanKeymap();
    const std::optional<xkb_keycode_t> keycode = Xkb::keyFor(american.get(), symbol, 0);
    return keycode ? std::optional(xcb_keycode_t(*keycode)) : std::nullopt;
}

X11Keyboard::Locks X11Keyboard::locks() const
{
    if (!m_hasExtension)
        return {};
    const auto cookie = xcb_xkb_get_state(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD);
    const XcbPointer<xcb_xkb_get_state_reply_t> state(
        xcb_xkb_get_state_reply(m_connection.get(), cookie, nullptr));
    return state ? Locks{state->lockedGroup, state->lockedMods} : Locks{};
}

void X11Keyboard::lock(const Locks &locks) const
{
    if (m_hasExtension)
        xcb_xkb_latch_lock_state(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD, XCB_MOD_MASK_LOCK,
                                 locks.modifiers, 1, locks.group, 0, 0, 0);
}
