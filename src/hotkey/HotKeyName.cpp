#include "hotkey/HotKeyName.h"

#include "hotkey/HotKey.h"
#include "platform/KeyboardLayout.h"
#include "platform/ModifierFlags.h"
#include "platform/VirtualKeys.h"

#include <QHash>

#include <array>
#include <utility>

namespace {

struct GlyphOfModifier
{
    quint64 flag;
    quint16 keyCode;
};

/// In the order in which they are shown.
constexpr std::array<GlyphOfModifier, 4> kModifiers{{
    {ModifierFlags::kControl, VirtualKey::kControl},
    {ModifierFlags::kOption, VirtualKey::kOption},
    {ModifierFlags::kShift, VirtualKey::kShift},
    {ModifierFlags::kCommand, VirtualKey::kCommand},
}};

const QHash<quint16, QString> &names()
{
    using namespace VirtualKey;
    static const QHash<quint16, QString> kNames{
        {kReturn, QStringLiteral(u"\u21A9")},
        {kTab, QStringLiteral(u"\u21E5")},
        {kSpace, QStringLiteral(u"\u23B5")},
        {kDelete, QStringLiteral(u"\u232B")},
        {kEscape, QStringLiteral(u"\u238B")},
        {kCommand, QStringLiteral(u"\u2318")},
        {kShift, QStringLiteral(u"\u21E7")},
        {kCapsLock, QStringLiteral(u"\u21EA")},
        {kOption, QStringLiteral(u"\u2325")},
        {kControl, QStringLiteral(u"\u2303")},
        // The keys of the right side share the glyphs of the left one, and Function has that of
        // Command: deliberately, all four.
        {kRightShift, QStringLiteral(u"\u21E7")},
        {kRightOption, QStringLiteral(u"\u2325")},
        {kRightControl, QStringLiteral(u"\u2303")},
        {kFunction, QStringLiteral(u"\u2318")},
        {kVolumeUp, QStringLiteral(u"\U0001F50A")},
        {kVolumeDown, QStringLiteral(u"\U0001F508")},
        {kMute, QStringLiteral(u"\U0001F507")},
        {kForwardDelete, QStringLiteral(u"\u2326")},
        {kHome, QStringLiteral(u"\u2196")},
        {kEnd, QStringLiteral(u"\u2198")},
        {kPageUp, QStringLiteral(u"\u21DE")},
        {kPageDown, QStringLiteral(u"\u21DF")},
        {kLeftArrow, QStringLiteral(u"\u2190")},
        {kRightArrow, QStringLiteral(u"\u2192")},
        {kDownArrow, QStringLiteral(u"\u2193")},
        {kUpArrow, QStringLiteral(u"\u2191")},
        {kF1, QStringLiteral("F1")},
        {kF2, QStringLiteral("F2")},
        {kF3, QStringLiteral("F3")},
        {kF4, QStringLiteral("F4")},
        {kF5, QStringLiteral("F5")},
        {kF6, QStringLiteral("F6")},
        {kF7, QStringLiteral("F7")},
        {kF8, QStringLiteral("F8")},
        {kF9, QStringLiteral("F9")},
        {kF10, QStringLiteral("F10")},
        {kF11, QStringLiteral("F11")},
        {kF12, QStringLiteral("F12")},
        {kF13, QStringLiteral("F13")},
        {kF14, QStringLiteral("F14")},
        {kF15, QStringLiteral("F15")},
        {kF16, QStringLiteral("F16")},
        {kF17, QStringLiteral("F17")},
        {kF18, QStringLiteral("F18")},
        {kF19, QStringLiteral("F19")},
        {kF20, QStringLiteral("F20")},
    };
    return kNames;
}

} // namespace

QString HotKeyName::of(quint16 keyCode, quint64 modifierFlags, const KeyboardLayout *layout)
{
    QString name;
    bool isModifier = false;
    for (const GlyphOfModifier &modifier : kModifiers) {
        if (modifierFlags & modifier.flag)
            name += names().value(modifier.keyCode);
        isModifier |= modifier.keyCode == keyCode;
    }
    if (isModifier)
        return name;
    if (names().contains(keyCode))
        return name + names().value(keyCode);
    return layout ? name + layout->characters(keyCode, HotKey::carbonFlags(modifierFlags)) : name;
}
