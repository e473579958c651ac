#include "Clipboard/GlobalShortcuts.h"

#include "hotkey/HotKeyCenter.h"
#include "platform/ModifierFlags.h"
#include "platform/Platform.h"
#include "shortcut/KeyNames.h"
#include "shortcut/KeyedUnarchiveTransformer.h"
#include "shortcut/MASShortcutBinder.h"
#include "shortcut/MASShortcutMonitor.h"
#include "shortcut/MASShortcutValidator.h"

#include <QStringList>

#include <array>
#include <utility>

void GlobalShortcuts::connect(Platform &platform, const std::function<MenuModel()> &statusMenu)
{
    KeyNames::current().setKeyboardLayout(platform.keyboardLayout.get());
    MASShortcutMonitor::connectShared(*platform.hotKeys);
    HotKeyCenter::connectShared(*platform.hotKeys);
    MASShortcutBinder::connectShared(*platform.settings);
    MASShortcutValidator::connectShared(platform.symbolicHotKeys.get(), platform.hotKeys.get());
    MASShortcutValidator::sharedValidator().setMainMenu(statusMenu);
}

QString GlobalShortcuts::wordName(const MASShortcut &shortcut)
{
    static const std::array<std::pair<quint64, QString>, 4> kModifierNames{{
        {ModifierFlags::kCommand, QStringLiteral("Super")},
        {ModifierFlags::kControl, QStringLiteral("Ctrl")},
        {ModifierFlags::kOption, QStringLiteral("Alt")},
        {ModifierFlags::kShift, QStringLiteral("Shift")},
    }};
    QStringList words;
    for (const auto &[flag, name] : kModifierNames) {
        if (shortcut.modifierFlags() & flag)
            words.append(name);
    }
    words.append(shortcut.keyCodeString());
    return words.join(QStringLiteral(" + "));
}

QString GlobalShortcuts::sentenceName(const MASShortcut &shortcut)
{
    return QStringLiteral("%1 (%2)").arg(shortcut.description(), wordName(shortcut));
}

std::optional<QString> GlobalShortcuts::storedSentenceName(const SettingsStore &settings,
                                                           const QString &key)
{
    const std::optional<MASShortcut> shortcut =
        KeyedUnarchiveTransformer().transformedValue(settings.value(key));
    if (!shortcut || shortcut->keyCodeString().isEmpty())
        return std::nullopt;
    return sentenceName(*shortcut);
}
