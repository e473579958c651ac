#include "platform/kde/QtKeyCodes.h"

#include "platform/KeyboardLayout.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <QString>

#include <algorithm>
#include <array>
#include <utility>

namespace {

/// Keys that print nothing, and those of the keypad, which Qt sets apart by a modifier.
constexpr std::array kNamedKeys = std::to_array<std::pair<quint16, int>>({
    {VirtualKey::kReturn, Qt::Key_Return},
    {VirtualKey::kTab, Qt::Key_Tab},
    {VirtualKey::kSpace, Qt::Key_Space},
    {VirtualKey::kDelete, Qt::Key_Backspace},
    {VirtualKey::kEscape, Qt::Key_Escape},
    {VirtualKey::kForwardDelete, Qt::Key_Delete},
    {VirtualKey::kHelp, Qt::Key_Insert},
    {VirtualKey::kHome, Qt::Key_Home},
    {VirtualKey::kEnd, Qt::Key_End},
    {VirtualKey::kPageUp, Qt::Key_PageUp},
    {VirtualKey::kPageDown, Qt::Key_PageDown},
    {VirtualKey::kLeftArrow, Qt::Key_Left},
    {VirtualKey::kRightArrow, Qt::Key_Right},
    {VirtualKey::kUpArrow, Qt::Key_Up},
    {VirtualKey::kDownArrow, Qt::Key_Down},
    {VirtualKey::kContextualMenu, Qt::Key_Menu},
    {VirtualKey::kVolumeUp, Qt::Key_VolumeUp},
    {VirtualKey::kVolumeDown, Qt::Key_VolumeDown},
    {VirtualKey::kMute, Qt::Key_VolumeMute},
    {VirtualKey::kF1, Qt::Key_F1},
    {VirtualKey::kF2, Qt::Key_F2},
    {VirtualKey::kF3, Qt::Key_F3},
    {VirtualKey::kF4, Qt::Key_F4},
    {VirtualKey::kF5, Qt::Key_F5},
    {VirtualKey::kF6, Qt::Key_F6},
    {VirtualKey::kF7, Qt::Key_F7},
    {VirtualKey::kF8, Qt::Key_F8},
    {VirtualKey::kF9, Qt::Key_F9},
    {VirtualKey::kF10, Qt::Key_F10},
    {VirtualKey::kF11, Qt::Key_F11},
    {VirtualKey::kF12, Qt::Key_F12},
    {VirtualKey::kF13, Qt::Key_F13},
    {VirtualKey::kF14, Qt::Key_F14},
    {VirtualKey::kF15, Qt::Key_F15},
    {VirtualKey::kF16, Qt::Key_F16},
    {VirtualKey::kF17, Qt::Key_F17},
    {VirtualKey::kF18, Qt::Key_F18},
    {VirtualKey::kF19, Qt::Key_F19},
    {VirtualKey::kF20, Qt::Key_F20},
    {VirtualKey::kKeypadEnter, int(Qt::KeypadModifier) | Qt::Key_Enter},
    {VirtualKey::kKeypadPlus, int(Qt::KeypadModifier) | Qt::Key_Plus},
    {VirtualKey::kKeypadMinus, int(Qt::KeypadModifier) | Qt::Key_Minus},
    {VirtualKey::kKeypadMultiply, int(Qt::KeypadModifier) | Qt::Key_Asterisk},
    {VirtualKey::kKeypadDivide, int(Qt::KeypadModifier) | Qt::Key_Slash},
    {VirtualKey::kKeypad0, int(Qt::KeypadModifier) | Qt::Key_0},
    {VirtualKey::kKeypad1, int(Qt::KeypadModifier) | Qt::Key_1},
    {VirtualKey::kKeypad2, int(Qt::KeypadModifier) | Qt::Key_2},
    {VirtualKey::kKeypad3, int(Qt::KeypadModifier) | Qt::Key_3},
    {VirtualKey::kKeypad4, int(Qt::KeypadModifier) | Qt::Key_4},
    {VirtualKey::kKeypad5, int(Qt::KeypadModifier) | Qt::Key_5},
    {VirtualKey::kKeypad6, int(Qt::KeypadModifier) | Qt::Key_6},
    {VirtualKey::kKeypad7, int(Qt::KeypadModifier) | Qt::Key_7},
    {VirtualKey::kKeypad8, int(Qt::KeypadModifier) | Qt::Key_8},
    {VirtualKey::kKeypad9, int(Qt::KeypadModifier) | Qt::Key_9},
});

constexpr std::array kModifiers = std::to_array<std::pair<quint32, Qt::KeyboardModifier>>({
    {CarbonModifiers::kCommand, Qt::MetaModifier},
    {CarbonModifiers::kShift, Qt::ShiftModifier},
    {CarbonModifiers::kOption, Qt::AltModifier},
    {CarbonModifiers::kControl, Qt::ControlModifier},
});

/// Qt's number of a key that prints this; 0 for none.
int printedKey(const QString &printed)
{
    const QString capital = printed.toUpper();
    return capital.size() == 1 && capital.front().isPrint() && !capital.front().isSpace()
               ? capital.front().unicode()
               : 0;
}

int plainKey(quint32 keyCode, const KeyboardLayout &layout)
{
    return printedKey(layout.asciiCapableName(keyCode));
}

int shiftedKey(quint32 keyCode, const KeyboardLayout &layout)
{
    return printedKey(layout.characters(keyCode, CarbonModifiers::kShift));
}

/// The key where `isThere` says yes.
template <typename Condition>
std::optional<quint32> findKey(Condition isThere)
{
    for (const VirtualKey::Row &row : VirtualKey::rows()) {
        const bool isNamed = std::ranges::any_of(
            kNamedKeys, [&row](const auto &named) { return named.first == row.virtualKey; });
        if (!isNamed && isThere(row.virtualKey))
            return row.virtualKey;
    }
    return std::nullopt;
}

} // namespace

std::optional<int> QtKeyCodes::of(const HotKeyCombination &combination,
                                  const KeyboardLayout &layout)
{
    int modifiers = 0;
    quint32 rest = combination.carbonModifiers;
    for (const auto &[carbon, qt] : kModifiers) {
        if ((rest & carbon) != 0)
            modifiers |= int(qt);
        rest &= ~carbon;
    }
    if (rest != 0)
        return std::nullopt;
    const auto *named =
        std::ranges::find(kNamedKeys, combination.keyCode, &std::pair<quint16, int>::first);
    if (named != kNamedKeys.end())
        return modifiers | named->second;
    const int plain = plainKey(combination.keyCode, layout);
    if (plain == 0)
        return std::nullopt;
    // Where Shift makes another sign of the key, Plasma knows it by that sign and without Shift.
    const int shifted = shiftedKey(combination.keyCode, layout);
    const bool isOtherSign = (modifiers & Qt::ShiftModifier) != 0 && shifted != 0 &&
                             shifted != plain && !QChar(plain).isLetter();
    return isOtherSign ? (modifiers & ~int(Qt::ShiftModifier)) | shifted : modifiers | plain;
}

std::optional<HotKeyCombination> QtKeyCodes::combinationOf(int code, const KeyboardLayout &layout)
{
    HotKeyCombination combination;
    for (const auto &[carbon, qt] : kModifiers) {
        if ((code & int(qt)) != 0)
            combination.carbonModifiers |= carbon;
        code &= ~int(qt);
    }
    const auto *named = std::ranges::find(kNamedKeys, code, &std::pair<quint16, int>::second);
    if (named != kNamedKeys.end()) {
        combination.keyCode = named->first;
        return combination;
    }
    if (code == 0)
        return std::nullopt;
    std::optional<quint32> key =
        findKey([&](quint32 candidate) { return plainKey(candidate, layout) == code; });
    if (!key) {
        key = findKey([&](quint32 candidate) { return shiftedKey(candidate, layout) == code; });
        combination.carbonModifiers |= CarbonModifiers::kShift;
    }
    if (!key)
        return std::nullopt;
    combination.keyCode = *key;
    return combination;
}
