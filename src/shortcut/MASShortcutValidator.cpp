#include "shortcut/MASShortcutValidator.h"

#include "platform/HotKeys.h"
#include "platform/SymbolicHotKeys.h"
#include "shortcut/KeyNames.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<quint64, 20> kFunctionKeys{
    VirtualKey::kF1,  VirtualKey::kF2,  VirtualKey::kF3,  VirtualKey::kF4,  VirtualKey::kF5,
    VirtualKey::kF6,  VirtualKey::kF7,  VirtualKey::kF8,  VirtualKey::kF9,  VirtualKey::kF10,
    VirtualKey::kF11, VirtualKey::kF12, VirtualKey::kF13, VirtualKey::kF14, VirtualKey::kF15,
    VirtualKey::kF16, VirtualKey::kF17, VirtualKey::kF18, VirtualKey::kF19, VirtualKey::kF20};

/// Whether the item itself has the shortcut; its submenu does not count.
bool takes(const MenuItem &item, const QString &keyEquivalent, quint64 modifierFlags)
{
    if (item.keyEquivalent.toLower() != keyEquivalent)
        return false;
    if (item.keyEquivalent == keyEquivalent)
        return (item.modifierMask & ModifierFlags::kShortcutMask) == modifierFlags;
    // A capital letter implies Shift in menus.
    constexpr quint64 kOthers =
        ModifierFlags::kControl | ModifierFlags::kOption | ModifierFlags::kCommand;
    return ((item.modifierMask & kOthers) | ModifierFlags::kShift) == modifierFlags;
}

} // namespace

MASShortcutValidator::MASShortcutValidator(SymbolicHotKeys *symbolicHotKeys, HotKeys *hotKeys)
    : m_symbolicHotKeys(symbolicHotKeys), m_hotKeys(hotKeys)
{
}

void MASShortcutValidator::connectShared(SymbolicHotKeys *symbolicHotKeys, HotKeys *hotKeys)
{
    sharedValidator().m_symbolicHotKeys = symbolicHotKeys;
    sharedValidator().m_hotKeys = hotKeys;
}

MASShortcutValidator &MASShortcutValidator::sharedValidator()
{
    static MASShortcutValidator validator;
    return validator;
}

void MASShortcutValidator::prepare() const
{
    if (SymbolicHotKeys *const symbolicHotKeys = m_symbolicHotKeys)
        symbolicHotKeys->refresh();
}

bool MASShortcutValidator::isShortcutValid(const MASShortcut &shortcut) const
{
    const quint64 flags = shortcut.modifierFlags();
    if (std::ranges::find(kFunctionKeys, shortcut.keyCode()) != kFunctionKeys.end())
        return true;
    if (flags & (ModifierFlags::kCommand | ModifierFlags::kControl))
        return true;
    if (flags & ModifierFlags::kOption) {
        return shortcut.keyCode() == VirtualKey::kSpace ||
               shortcut.keyCode() == VirtualKey::kEscape || m_allowAnyShortcutWithOptionModifier;
    }
    return false;
}

bool MASShortcutValidator::closesOrQuits(const MASShortcut &shortcut)
{
    if (shortcut.modifierFlags() != ModifierFlags::kCommand)
        return false;
    const QString printed = shortcut.keyCodeStringForKeyEquivalent();
    // Where no layout tells what is printed, the usual places count.
    return printed.isEmpty()
               ? shortcut.keyCode() == VirtualKey::kW || shortcut.keyCode() == VirtualKey::kQ
               : printed == u"w" || printed == u"q";
}

bool MASShortcutValidator::isShortcutRecordable(const MASShortcut &shortcut) const
{
    const bool isKey = KeyNames::current().isLayoutKnown()
                           ? !shortcut.keyCodeString().isEmpty()
                           : shortcut.keyCode() != VirtualKey::kNotFound;
    return isKey && isShortcutValid(shortcut) && !closesOrQuits(shortcut) &&
           !(m_mainMenu && isShortcutAlreadyTakenInMenu(shortcut, m_mainMenu()));
}

bool MASShortcutValidator::isShortcutAlreadyTaken(const MASShortcut &shortcut, const QString &key,
                                                  QString *explanation) const
{
    if (!m_boundElsewhere || !m_boundElsewhere(shortcut, key))
        return isShortcutAlreadyTakenBySystem(shortcut, explanation);
    if (explanation)
        *explanation = takenBySystem();
    return true;
}

bool MASShortcutValidator::isShortcutAlreadyTakenBySystem(const MASShortcut &shortcut,
                                                          QString *explanation) const
{
    if (isSymbolicHotKey(shortcut) || isHeldByAnotherProgram(shortcut)) {
        if (explanation)
            *explanation = takenBySystem();
        return true;
    }
    return m_mainMenu && isShortcutAlreadyTakenInMenu(shortcut, m_mainMenu(), explanation);
}

bool MASShortcutValidator::isShortcutAlreadyTakenInMenu(const MASShortcut &shortcut,
                                                        const MenuModel &menu,
                                                        QString *explanation) const
{
    const QString keyEquivalent = shortcut.keyCodeStringForKeyEquivalent();
    for (const MenuItem &item : menu) {
        if (isShortcutAlreadyTakenInMenu(shortcut, item.submenu, explanation))
            return true;
        if (!takes(item, keyEquivalent, shortcut.modifierFlags()))
            continue;
        if (explanation) {
            *explanation = tr("This shortcut cannot be used because it is already used by the menu "
                              "item \u2018%1\u2019.")
                               .arg(item.title);
        }
        return true;
    }
    return false;
}

QString MASShortcutValidator::takenBySystem()
{
    return tr("This combination cannot be used because it is already used by a "
              "system-wide keyboard shortcut.\nIf you really want to use this key "
              "combination, most shortcuts can be changed in the Keyboard & Mouse "
              "panel in System Preferences.");
}

bool MASShortcutValidator::isSymbolicHotKey(const MASShortcut &shortcut) const
{
    const SymbolicHotKeys *const symbolicHotKeys = m_symbolicHotKeys;
    if (!symbolicHotKeys)
        return false;
    const QList<SymbolicHotKey> taken = symbolicHotKeys->hotKeys();
    return std::ranges::any_of(taken, [&shortcut](const SymbolicHotKey &hotKey) {
        return hotKey.isEnabled && hotKey.keyCode == shortcut.keyCode() &&
               hotKey.carbonModifiers == shortcut.carbonFlags();
    });
}

bool MASShortcutValidator::isHeldByAnotherProgram(const MASShortcut &shortcut) const
{
    HotKeys *const hotKeys = m_hotKeys;
    return hotKeys && !hotKeys->isAvailable(shortcut.carbonKeyCode(), shortcut.carbonFlags());
}
