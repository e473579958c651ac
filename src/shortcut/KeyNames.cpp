#include "shortcut/KeyNames.h"

#include "platform/KeyboardLayout.h"
#include "platform/VirtualKeys.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

struct NamedKey
{
    quint16 keyCode;
    const char16_t *name;
};

// F20 is absent deliberately: it is named by the layout like any letter key, hence not at all.
constexpr std::array kNamedKeys = std::to_array<NamedKey>({
    {VirtualKey::kReturn, u"\u21A9"},
    {VirtualKey::kTab, u"\u21E5"},
    {VirtualKey::kDelete, u"\u232B"},
    {VirtualKey::kEscape, u"\u238B"},
    {VirtualKey::kF17, u"F17"},
    {VirtualKey::kKeypadDecimal, u"."},
    {VirtualKey::kKeypadMultiply, u"*"},
    {VirtualKey::kKeypadPlus, u"+"},
    {VirtualKey::kKeypadClear, u"\u2327"},
    {VirtualKey::kKeypadDivide, u"/"},
    {VirtualKey::kKeypadEnter, u"\u2305"},
    {VirtualKey::kKeypadMinus, u"\u2013"},
    {VirtualKey::kF18, u"F18"},
    {VirtualKey::kF19, u"F19"},
    {VirtualKey::kKeypadEquals, u"="},
    {VirtualKey::kKeypad0, u"0"},
    {VirtualKey::kKeypad1, u"1"},
    {VirtualKey::kKeypad2, u"2"},
    {VirtualKey::kKeypad3, u"3"},
    {VirtualKey::kKeypad4, u"4"},
    {VirtualKey::kKeypad5, u"5"},
    {VirtualKey::kKeypad6, u"6"},
    {VirtualKey::kKeypad7, u"7"},
    {VirtualKey::kKeypad8, u"8"},
    {VirtualKey::kKeypad9, u"9"},
    {VirtualKey::kF5, u"F5"},
    {VirtualKey::kF6, u"F6"},
    {VirtualKey::kF7, u"F7"},
    {VirtualKey::kF3, u"F3"},
    {VirtualKey::kF8, u"F8"},
    {VirtualKey::kF9, u"F9"},
    {VirtualKey::kF11, u"F11"},
    {VirtualKey::kF13, u"F13"},
    {VirtualKey::kF16, u"F16"},
    {VirtualKey::kF14, u"F14"},
    {VirtualKey::kF10, u"F10"},
    {VirtualKey::kF12, u"F12"},
    {VirtualKey::kF15, u"F15"},
    {VirtualKey::kHelp, u"?"},
    {VirtualKey::kHome, u"\u2196"},
    {VirtualKey::kPageUp, u"\u21DE"},
    {VirtualKey::kForwardDelete, u"\u2326"},
    {VirtualKey::kF4, u"F4"},
    {VirtualKey::kEnd, u"\u2198"},
    {VirtualKey::kF2, u"F2"},
    {VirtualKey::kPageDown, u"\u21DF"},
    {VirtualKey::kF1, u"F1"},
    {VirtualKey::kLeftArrow, u"\u2190"},
    {VirtualKey::kRightArrow, u"\u2192"},
    {VirtualKey::kDownArrow, u"\u2193"},
    {VirtualKey::kUpArrow, u"\u2191"},
});

bool isPrinted(char32_t character)
{
    return QChar::isLetterOrNumber(character) || QChar::isMark(character) ||
           QChar::isPunct(character) || QChar::isSymbol(character);
}

} // namespace

KeyNames &KeyNames::current()
{
    static KeyNames names;
    return names;
}

void KeyNames::setKeyboardLayout(KeyboardLayout *layout)
{
    if (KeyboardLayout *const previous = m_layout)
        previous->disconnect(this);
    m_layout = layout;
    if (layout)
        connect(layout, &KeyboardLayout::changed, this, &KeyNames::changed);
    Q_EMIT changed();
}

bool KeyNames::isLayoutKnown() const
{
    return !translatedName(VirtualKey::kA).isEmpty();
}

QString KeyNames::name(quint64 keyCode) const
{
    if (keyCode == VirtualKey::kNotFound)
        return {};
    if (keyCode == VirtualKey::kSpace)
        return QCoreApplication::translate("MASShortcut", "Space");
    const auto known = std::ranges::find(kNamedKeys, keyCode, &NamedKey::keyCode);
    if (known != kNamedKeys.end())
        return QString::fromUtf16(known->name);
    return translatedName(keyCode).toUpper();
}

QString KeyNames::translatedName(quint64 keyCode) const
{
    const KeyboardLayout *const layout = m_layout;
    if (!layout)
        return {};
    QString name = layout->asciiCapableName(static_cast<quint16>(keyCode));
    const QList<uint> characters = name.toUcs4();
    return name.isValidUtf16() && std::ranges::all_of(characters, isPrinted) ? name : QString();
}
