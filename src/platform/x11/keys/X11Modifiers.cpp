#include "platform/x11/keys/X11Modifiers.h"

#include "platform/ModifierFlags.h"

#include <xkbcommon/xkbcommon-keysyms.h>

#include <algorithm>
#include <initializer_list>

namespace {

constexpr int kModifierCount = 8;
constexpr quint16 kAllModifiers = 0xFF;

/// The key symbols of the core protocol, which hold every group and level of a key.
class CoreSymbols
{
public:
    CoreSymbols(const X11Connection &connection, xcb_get_keyboard_mapping_cookie_t cookie)
        : m_first(xcb_get_setup(connection.get())->min_keycode),
          m_reply(xcb_get_keyboard_mapping_reply(connection.get(), cookie, nullptr))
    {
    }

    bool hasAny(xcb_keycode_t keycode, std::initializer_list<xcb_keysym_t> symbols) const
    {
        if (!m_reply || keycode < m_first)
            return false;
        const int width = m_reply->keysyms_per_keycode;
        const int begin = (keycode - m_first) * width;
        if (begin + width > xcb_get_keyboard_mapping_keysyms_length(m_reply.get()))
            return false;
        const xcb_keysym_t *row = xcb_get_keyboard_mapping_keysyms(m_reply.get()) + begin;
        return std::find_first_of(row, row + width, symbols.begin(), symbols.end()) != row + width;
    }

private:
    xcb_keycode_t m_first;
    XcbPointer<xcb_get_keyboard_mapping_reply_t> m_reply;
};

/// The keys of each of the eight modifiers.
using ModifierRows = std::array<std::vector<xcb_keycode_t>, kModifierCount>;

ModifierRows rowsOf(xcb_get_modifier_mapping_reply_t &reply)
{
    ModifierRows rows;
    const xcb_keycode_t *keycodes = xcb_get_modifier_mapping_keycodes(&reply);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (int i = 0; i < reply.keycodes_per_modifier; ++i, ++keycodes) {
            if (*keycodes != 0)
                rows[row].push_back(*keycodes);
        }
    }
    return rows;
}

quint16 maskHolding(const ModifierRows &rows, const CoreSymbols &symbols,
                    std::initializer_list<xcb_keysym_t> wanted)
{
    // The first three are Shift, Lock and Control whatever keys they have.
    for (std::size_t row = XCB_MAP_INDEX_1; row < rows.size(); ++row) {
        for (const xcb_keycode_t keycode : rows[row]) {
            if (symbols.hasAny(keycode, wanted))
                return quint16(1U << row);
        }
    }
    return 0;
}

} // namespace

X11Modifiers X11Modifiers::read(const X11Connection &connection)
{
    X11Modifiers modifiers;
    xcb_connection_t *xcb = connection.get();
    if (connection.isBroken())
        return modifiers;
    const xcb_setup_t *setup = xcb_get_setup(xcb);
    const auto mapCookie = xcb_get_modifier_mapping(xcb);
    const auto symbolCookie = xcb_get_keyboard_mapping(
        xcb, setup->min_keycode, uint8_t(setup->max_keycode - setup->min_keycode + 1));
    const XcbPointer<xcb_get_modifier_mapping_reply_t> map(
        xcb_get_modifier_mapping_reply(xcb, mapCookie, nullptr));
    const CoreSymbols symbols(connection, symbolCookie);
    if (!map)
        return modifiers;

    // Mod1 to Mod5 mean what the layout makes of them: Alt, Super and the locks are known by the
    // symbols of their keys.
    const ModifierRows rows = rowsOf(*map);
    if (const quint16 alt = maskHolding(rows, symbols, {XKB_KEY_Alt_L, XKB_KEY_Alt_R}))
        modifiers.option = alt;
    if (const quint16 super = maskHolding(rows, symbols, {XKB_KEY_Super_L, XKB_KEY_Super_R}))
        modifiers.command = super;
    const quint16 taken = modifiers.option | modifiers.command;
    // A lock that shares its modifier cannot be left out without leaving out Alt or Super.
    modifiers.numLock = maskHolding(rows, symbols, {XKB_KEY_Num_Lock}) & ~taken;
    modifiers.scrollLock = maskHolding(rows, symbols, {XKB_KEY_Scroll_Lock}) & ~taken;
    const quint16 locks = XCB_MOD_MASK_LOCK | modifiers.numLock | modifiers.scrollLock;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        modifiers.keys.at(row) = rows[row].empty() ? xcb_keycode_t(0) : rows[row].front();
        if ((locks & (1U << row)) == 0)
            modifiers.heldKeys.insert(modifiers.heldKeys.end(), rows[row].begin(), rows[row].end());
    }
    return modifiers;
}

quint16 X11Modifiers::maskOf(quint32 carbonModifiers) const
{
    quint16 mask = 0;
    if (carbonModifiers & CarbonModifiers::kShift)
        mask |= XCB_MOD_MASK_SHIFT;
    if (carbonModifiers & CarbonModifiers::kControl)
        mask |= XCB_MOD_MASK_CONTROL;
    if (carbonModifiers & CarbonModifiers::kOption)
        mask |= option;
    if (carbonModifiers & CarbonModifiers::kCommand)
        mask |= command;
    return mask;
}

quint32 X11Modifiers::carbonOf(quint16 state) const
{
    quint32 carbon = state & XCB_MOD_MASK_LOCK ? CarbonModifiers::kCapsLock : 0;
    for (const quint32 modifier : {CarbonModifiers::kShift, CarbonModifiers::kControl,
                                   CarbonModifiers::kOption, CarbonModifiers::kCommand}) {
        if (state & maskOf(modifier))
            carbon |= modifier;
    }
    return carbon;
}

std::vector<quint16> X11Modifiers::lockVariants(quint32 carbonModifiers) const
{
    const bool needsCapsLock = carbonModifiers & CarbonModifiers::kCapsLock;
    std::vector<quint16> variants{XCB_MOD_MASK_LOCK};
    if (!needsCapsLock)
        variants.push_back(0);
    for (const quint16 lock : {numLock, scrollLock}) {
        const std::size_t count = variants.size();
        for (std::size_t i = 0; i < count && lock != 0; ++i)
            variants.push_back(variants[i] | lock);
    }
    std::sort(variants.begin(), variants.end());
    variants.erase(std::unique(variants.begin(), variants.end()), variants.end());
    return variants;
}

quint16 X11Modifiers::withoutLocks(quint16 state) const
{
    // Above the modifiers are the buttons of the pointer and the group of the layout.
    return state & kAllModifiers & ~(XCB_MOD_MASK_LOCK | numLock | scrollLock);
}
