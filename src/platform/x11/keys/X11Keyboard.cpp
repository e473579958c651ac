#include "platform/x11/keys/X11Keyboard.h"

#include <xkbcommon/xkbcommon-x11.h>

#include <array>
#include <bit>

// A field of this header is called by a C++ keyword.
#define explicit xkbExplicit
#include <xcb/xkb.h>
#undef explicit

namespace {

} // namespace

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
    xkb_keymap *map = keymap();
    if (!map)
        return std::nullopt;
    std::optional<xcb_keycode_t> elsewhere;
    // Neither core events nor XTEST have more than a byte for it.
    const xkb_keycode_t last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(map), 255);
    for (xkb_keycode_t keycode = xkb_keymap_min_keycode(map); keycode <= last; ++keycode) {
        if (Xkb::plainSymbol(map, keycode, m_group) == symbol)
            return xcb_keycode_t(keycode);
        // Toolkits find Ctrl-V in another group where the one in effect has no Latin letters; so
        // the key of that group will do.
        const xkb_layout_index_t groups = xkb_keymap_num_layouts_for_key(map, keycode);
        for (xkb_layout_index_t group = 0; group < groups && !elsewhere; ++group) {
            if (Xkb::plainSymbol(map, keycode, group) == symbol)
                elsewhere = xcb_keycode_t(keycode);
        }
    }
    return elsewhere;
}

xkb_layout_index_t X11Keyboard::groupCount()
{
    xkb_keymap *map = keymap();
    return map ? xkb_keymap_num_layouts(map) : 0;
}

std::optional<X11Keyboard::Place> X11Keyboard::placeOf(xkb_keysym_t symbol,
                                                       xkb_layout_index_t group)
{
    xkb_keymap *map = keymap();
    if (!map)
        return std::nullopt;
    const xkb_mod_mask_t locking =
        XCB_MOD_MASK_LOCK | (1U << xkb_keymap_mod_get_index(map, XKB_MOD_NAME_NUM));
    std::optional<Place> best;
    const xkb_keycode_t last = std::min<xkb_keycode_t>(xkb_keymap_max_keycode(map), 255);
    for (xkb_keycode_t keycode = xkb_keymap_min_keycode(map); keycode <= last; ++keycode) {
        const xkb_level_index_t levels = xkb_keymap_num_levels_for_key(map, keycode, group);
        for (xkb_level_index_t level = 0; level < levels; ++level) {
            const xkb_keysym_t *symbols = nullptr;
            const int count =
                xkb_keymap_key_get_syms_by_level(map, keycode, group, level, &symbols);
            if (count != 1 || symbols[0] != symbol)
                continue;
            std::array<xkb_mod_mask_t, 16> masks{};
            const std::size_t known = xkb_keymap_key_get_mods_for_level(map, keycode, group, level,
                                                                        masks.data(), masks.size());
            for (std::size_t i = 0; i < known; ++i) {
                const bool isFewer =
                    !best || std::popcount(masks[i]) < std::popcount(best->modifiers);
                if ((masks[i] & locking) == 0 && masks[i] <= 0xFF && isFewer)
                    best = Place{xcb_keycode_t(keycode), quint16(masks[i])};
            }
        }
    }
    return best;
}

std::optional<xcb_keycode_t> X11Keyboard::usualKeyFor(xkb_keysym_t symbol)
{
    const XkbPointer<xkb_context> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    const xkb_rule_names names{"evdev", "pc105", "us", "", ""};
    const XkbPointer<xkb_keymap> map(
        context ? xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS)
                : nullptr);
    for (xkb_keycode_t keycode = 8; map && keycode <= 255; ++keycode) {
        if (Xkb::plainSymbol(map.get(), keycode, 0) == symbol)
            return xcb_keycode_t(keycode);
    }
    return std::nullopt;
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
