#include "platform/typing/KeymapNames.h"

#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr xkb_keycode_t kEvdevOffset = 8;
constexpr int kEnoughLetters = 8;

/// Keys that give a Latin letter on every layout for a Latin script, dvorak included.
constexpr std::array<quint32, 12> kLetterKeys = {
    VirtualKey::kA, VirtualKey::kS, VirtualKey::kD, VirtualKey::kF, VirtualKey::kG, VirtualKey::kH,
    VirtualKey::kJ, VirtualKey::kK, VirtualKey::kL, VirtualKey::kX, VirtualKey::kC, VirtualKey::kB};

struct DeadKey
{
    xkb_keysym_t symbol;
    char16_t accent;
};

constexpr DeadKey kDeadKeys[] = {
    {XKB_KEY_dead_grave, u'`'},
    {XKB_KEY_dead_acute, u'\u00B4'},
    {XKB_KEY_dead_circumflex, u'^'},
    {XKB_KEY_dead_tilde, u'~'},
    {XKB_KEY_dead_macron, u'\u00AF'},
    {XKB_KEY_dead_breve, u'\u02D8'},
    {XKB_KEY_dead_abovedot, u'\u02D9'},
    {XKB_KEY_dead_diaeresis, u'\u00A8'},
    {XKB_KEY_dead_abovering, u'\u02DA'},
    {XKB_KEY_dead_doubleacute, u'\u02DD'},
    {XKB_KEY_dead_caron, u'\u02C7'},
    {XKB_KEY_dead_cedilla, u'\u00B8'},
    {XKB_KEY_dead_ogonek, u'\u02DB'},
    {XKB_KEY_dead_iota, u'\u037A'},
    {XKB_KEY_dead_belowdot, u'.'},
    {XKB_KEY_dead_hook, u'\u0294'},
    {XKB_KEY_dead_horn, u'\u031B'},
    {XKB_KEY_dead_stroke, u'/'},
    {XKB_KEY_dead_abovecomma, u'\u1FBF'},
    {XKB_KEY_dead_abovereversedcomma, u'\u1FFE'},
    {XKB_KEY_dead_voiced_sound, u'\u309B'},
    {XKB_KEY_dead_semivoiced_sound, u'\u309C'},
    {XKB_KEY_dead_greek, u'\u00B5'},
    {XKB_KEY_dead_currency, u'\u00A4'},
};

std::optional<xkb_keycode_t> keycodeOf(quint32 keyCode)
{
    const std::optional<quint16> evdevCode = VirtualKey::toEvdev(keyCode);
    if (!evdevCode)
        return std::nullopt;
    return *evdevCode + kEvdevOffset;
}

bool isDead(xkb_keysym_t symbol)
{
    return symbol >= XKB_KEY_dead_grave && symbol <= XKB_KEY_dead_longsolidusoverlay;
}

/// Empty for symbols without a character, and for control characters.
QString characterOf(xkb_keysym_t symbol)
{
    const uint32_t code = xkb_keysym_to_utf32(symbol);
    if (code == 0 || QChar::category(code) == QChar::Other_Control)
        return {};
    return QString::fromUcs4(reinterpret_cast<const char32_t *>(&code), 1);
}

QString nameOf(xkb_keysym_t symbol)
{
    const auto *dead = std::find_if(std::begin(kDeadKeys), std::end(kDeadKeys),
                                    [symbol](const DeadKey &key) { return key.symbol == symbol; });
    return dead != std::end(kDeadKeys) ? QString(QChar(dead->accent)) : characterOf(symbol);
}

bool isAsciiCapable(xkb_keymap *keymap, xkb_layout_index_t group)
{
    // Not all twelve, because some Latin layouts have letters of their own among them, as Turkish F
    // has. Those for Cyrillic or Greek have none.
    const auto givesLetter = [&](quint32 keyCode) {
        const xkb_keysym_t symbol = Xkb::plainSymbol(keymap, keycodeOf(keyCode).value_or(0), group);
        return symbol >= XKB_KEY_a && symbol <= XKB_KEY_z;
    };
    return std::count_if(kLetterKeys.begin(), kLetterKeys.end(), givesLetter) >= kEnoughLetters;
}

/// The group in effect or the first that types ASCII; absent when none does.
std::optional<xkb_layout_index_t> asciiGroup(xkb_keymap *keymap, xkb_layout_index_t group)
{
    if (isAsciiCapable(keymap, group))
        return group;
    const xkb_layout_index_t count = xkb_keymap_num_layouts(keymap);
    for (xkb_layout_index_t other = 0; other < count; ++other) {
        if (isAsciiCapable(keymap, other))
            return other;
    }
    return std::nullopt;
}

xkb_mod_mask_t maskOf(xkb_keymap *keymap, quint32 carbonModifiers)
{
    constexpr std::pair<quint32, const char *> kNames[] = {
        {CarbonModifiers::kShift, XKB_MOD_NAME_SHIFT},
        {CarbonModifiers::kControl, XKB_MOD_NAME_CTRL},
        {CarbonModifiers::kOption, XKB_MOD_NAME_ALT},
        {CarbonModifiers::kCommand, XKB_MOD_NAME_LOGO}};
    xkb_mod_mask_t mask = 0;
    for (const auto &[carbon, name] : kNames) {
        const xkb_mod_index_t index = xkb_keymap_mod_get_index(keymap, name);
        if ((carbonModifiers & carbon) && index != XKB_MOD_INVALID)
            mask |= 1U << index;
    }
    return mask;
}

} // namespace

QString KeymapNames::asciiCapableName(xkb_keymap *keymap, xkb_layout_index_t group,
                                      quint32 keyCode) const
{
    const std::optional<xkb_keycode_t> keycode = keycodeOf(keyCode);
    if (!keycode || !keymap)
        return {};
    if (const auto ascii = asciiGroup(keymap, group))
        return nameOf(Xkb::plainSymbol(keymap, *keycode, *ascii));
    xkb_keymap *us = usKeymap();
    return us ? nameOf(Xkb::plainSymbol(us, *keycode, 0)) : QString();
}

QString KeymapNames::characters(xkb_keymap *keymap, xkb_layout_index_t group, quint32 keyCode,
                                quint32 carbonModifiers)
{
    const std::optional<xkb_keycode_t> keycode = keycodeOf(keyCode);
    if (!keycode || !keymap)
        return {};
    // A state of its own: what is held just now has nothing to do with it.
    const XkbPointer<xkb_state> state(xkb_state_new(keymap));
    const xkb_mod_index_t capsLock = xkb_keymap_mod_get_index(keymap, XKB_MOD_NAME_CAPS);
    const bool isLocked =
        (carbonModifiers & CarbonModifiers::kCapsLock) && capsLock != XKB_MOD_INVALID;
    xkb_state_update_mask(state.get(), maskOf(keymap, carbonModifiers), 0,
                          isLocked ? 1U << capsLock : 0, 0, 0, group);
    const xkb_keysym_t symbol = xkb_state_key_get_one_sym(state.get(), *keycode);
    return isDead(symbol) ? QString() : characterOf(symbol);
}

xkb_keymap *KeymapNames::usKeymap() const
{
    // By the rules whose keycodes are the kernel's, as ours are.
    if (!m_us)
        m_us = Xkb::americanKeymap();
    return m_us.get();
}
