#include "platform/x11/keys/X11ChordPlan.h"

#include <algorithm>
#include <ranges>

namespace {

/// The keys that are down among `keycodes`.
std::vector<xcb_keycode_t> heldOf(const X11Connection &connection,
                                  const std::vector<xcb_keycode_t> &keycodes)
{
    const XcbPointer<xcb_query_keymap_reply_t> down(
        xcb_query_keymap_reply(connection.get(), xcb_query_keymap(connection.get()), nullptr));
    std::vector<xcb_keycode_t> held;
    for (const xcb_keycode_t keycode : keycodes) {
        if (down && (down->keys[keycode / 8] & (1U << (keycode % 8))))
            held.push_back(keycode);
    }
    return held;
}

} // namespace

X11ChordPlan::X11ChordPlan(const X11HotKeys::Typing &typing) : m_typing(typing)
{
    // Asked anew: a notice may be under way, and in another group the key types another letter.
    m_typing.keyboard.readGroup();
}

std::optional<X11HotKeys::Keystroke> X11ChordPlan::of(const KeySequence &sequence) const
{
    if (std::ranges::all_of(sequence, &KeyChord::isShortcut))
        return typed(strokesAnywhere(sequence));
    // Plain characters are typed in a group that has all of them, and with nothing locked.
    X11Keyboard &keyboard = m_typing.keyboard;
    std::vector<xkb_layout_index_t> groups{keyboard.group()};
    for (xkb_layout_index_t group = 0; group < keyboard.groupCount(); ++group)
        groups.push_back(group);
    for (const xkb_layout_index_t group : groups) {
        const std::optional<Strokes> strokes = strokesIn(group, sequence);
        if (!strokes)
            continue;
        X11HotKeys::Keystroke keystroke = typed(*strokes);
        const X11Keyboard::Locks locks = keyboard.locks();
        if (group != keyboard.group() || (locks.modifiers & XCB_MOD_MASK_LOCK))
            keystroke.locks = X11Keyboard::Locks{uint8_t(group), 0};
        return keystroke;
    }
    return std::nullopt;
}

std::optional<X11ChordPlan::Strokes> X11ChordPlan::strokesIn(xkb_layout_index_t group,
                                                             const KeySequence &sequence) const
{
    Strokes strokes;
    for (const KeyChord &chord : sequence) {
        const auto place = m_typing.keyboard.placeOf(chord.symbol, group);
        if (!place)
            return std::nullopt;
        strokes.push_back({*place, chord.carbonModifiers});
    }
    return strokes;
}

X11ChordPlan::Strokes X11ChordPlan::strokesAnywhere(const KeySequence &sequence) const
{
    // Toolkits look a shortcut up in the other groups where the one in effect has no such letter.
    X11Keyboard &keyboard = m_typing.keyboard;
    Strokes strokes;
    for (const KeyChord &chord : sequence) {
        X11Keyboard::Place place{keyboard.keyFor(chord.symbol).value_or(0), 0};
        for (xkb_layout_index_t group = 0; place.keycode == 0 && group < keyboard.groupCount();
             ++group)
            place = keyboard.placeOf(chord.symbol, group).value_or(place);
        if (place.keycode == 0)
            place.keycode = X11Keyboard::usualKeyFor(chord.symbol).value_or(0);
        strokes.push_back({place, chord.carbonModifiers});
    }
    return strokes;
}

X11HotKeys::Keystroke X11ChordPlan::typed(const Strokes &strokes) const
{
    const X11Modifiers &modifiers = m_typing.grabs.modifiers();
    X11HotKeys::Keystroke keystroke;
    std::vector<xcb_keycode_t> inTheWay = modifiers.heldKeys;
    std::vector<X11HotKeys::Keystroke::Step> steps;
    for (const auto &[place, carbonModifiers] : strokes) {
        const quint16 mask = modifiers.maskOf(carbonModifiers) | place.modifiers;
        // The user may have made a hot key of the very keystroke we type.
        keystroke.isHotKey |= !m_typing.grabs.matching(place.keycode, mask).empty();
        // The key itself as well: the server ignores the press of a key that is down.
        inTheWay.push_back(place.keycode);
        std::vector<xcb_keycode_t> held;
        for (std::size_t bit = 0; bit < modifiers.keys.size(); ++bit) {
            if (mask & (1U << bit))
                held.push_back(modifiers.keys.at(bit));
        }
        for (const xcb_keycode_t key : held)
            steps.push_back({XCB_KEY_PRESS, key});
        steps.insert(steps.end(),
                     {{XCB_KEY_PRESS, place.keycode}, {XCB_KEY_RELEASE, place.keycode}});
        for (const xcb_keycode_t key : held | std::views::reverse)
            steps.push_back({XCB_KEY_RELEASE, key});
    }
    std::ranges::sort(inTheWay);
    const auto repeated = std::ranges::unique(inTheWay);
    inTheWay.erase(repeated.begin(), repeated.end());
    for (const xcb_keycode_t key : heldOf(m_typing.connection, inTheWay))
        keystroke.steps.push_back({XCB_KEY_RELEASE, key});
    keystroke.steps.insert(keystroke.steps.end(), steps.begin(), steps.end());
    return keystroke;
}
