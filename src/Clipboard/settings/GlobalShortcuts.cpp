#include "Clipboard/settings/GlobalShortcuts.h"

#include "hotkey/HotKeyCenter.h"
#include "looks/ReadingDirection.h"
#include "platform/HotKeys.h"
#include "platform/KeyboardLayout.h"
#include "platform/ModifierFlags.h"
#include "platform/SettingsStore.h"
#include "platform/SymbolicHotKeys.h"
#include "shortcut/KeyNames.h"
#include "shortcut/KeyedUnarchiveTransformer.h"
#include "shortcut/MASShortcutBinder.h"
#include "shortcut/MASShortcutMonitor.h"
#include "shortcut/MASShortcutValidator.h"

#include <QCoreApplication>

#include <array>
#include <utility>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("GlobalShortcuts", text);
}

} // namespace

void GlobalShortcuts::connect(KeyboardLayout &keyboardLayout, HotKeys &hotKeys,
                              SymbolicHotKeys &symbolicHotKeys, SettingsStore &settings,
                              const std::function<MenuModel()> &statusMenu)
{
    KeyNames::current().setKeyboardLayout(&keyboardLayout);
    MASShortcutMonitor::connectShared(hotKeys);
    HotKeyCenter::connectShared(hotKeys);
    MASShortcutBinder::connectShared(settings);
    MASShortcutValidator::connectShared(&symbolicHotKeys, &hotKeys);
    MASShortcutValidator::sharedValidator().setBoundElsewhere(
        [](const MASShortcut &shortcut, const QString &key) {
            return MASShortcutBinder::sharedBinder()->isBoundElsewhere(shortcut, key);
        });
    MASShortcutValidator::sharedValidator().setMainMenu([statusMenu] {
        MenuModel items = statusMenu();
        // What every application's own menu has. As a shortcut of ours one of these keys would take
        // copying and pasting away from all of them, and would answer our own paste.
        items.push_back({tr("Cut"), QStringLiteral("x"), ModifierFlags::kControl});
        items.push_back({tr("Copy"), QStringLiteral("c"), ModifierFlags::kControl});
        items.push_back({tr("Paste"), QStringLiteral("v"), ModifierFlags::kControl});
        return items;
    });
}

MASShortcut GlobalShortcuts::defaultOpenShortcut()
{
    return {VirtualKey::kV, ModifierFlags::kCommand | ModifierFlags::kShift};
}

MASShortcut GlobalShortcuts::defaultSwopShortcut()
{
    return {VirtualKey::kX, ModifierFlags::kCommand | ModifierFlags::kShift};
}

std::optional<MASShortcut> GlobalShortcuts::storedShortcut(const SettingsStore &settings,
                                                           const QString &key)
{
    const std::optional<MASShortcut> shortcut =
        KeyedUnarchiveTransformer().transformedValue(settings.value(key));
    return shortcut && !shortcut->keyCodeString().isEmpty() ? shortcut : std::nullopt;
}

bool GlobalShortcuts::canBeHad()
{
    const MASShortcutMonitor *monitor = MASShortcutMonitor::sharedMonitor();
    return !monitor || monitor->canRegister();
}

QStringList GlobalShortcuts::keyCaps(const MASShortcut &shortcut)
{
    const std::array<std::pair<quint64, QString>, 4> modifierNames{{
        {ModifierFlags::kCommand, tr("Super")},
        {ModifierFlags::kControl, tr("Ctrl")},
        {ModifierFlags::kOption, tr("Alt")},
        {ModifierFlags::kShift, tr("Shift")},
    }};
    QStringList words;
    for (const auto &[flag, name] : modifierNames) {
        if (shortcut.modifierFlags() & flag)
            words.append(name);
    }
    words.append(shortcut.keyCodeString());
    return words;
}

QString GlobalShortcuts::wordName(const MASShortcut &shortcut)
{
    return keyCaps(shortcut).join(QStringLiteral(" + "));
}

QString GlobalShortcuts::sentenceName(const MASShortcut &shortcut)
{
    return ReadingDirection::leftToRight(
        QStringLiteral("%1 (%2)").arg(shortcut.description(), wordName(shortcut)));
}

std::optional<QString> GlobalShortcuts::workingSentenceName(const SettingsStore &settings,
                                                            const QString &key)
{
    const std::optional<MASShortcut> shortcut = storedShortcut(settings, key);
    const MASShortcutBinder *binder = MASShortcutBinder::sharedBinder();
    const bool works = binder && binder->hotKeyState(key) == MASShortcutBinder::HotKeyState::Works;
    return shortcut && works ? std::optional(sentenceName(*shortcut)) : std::nullopt;
}
