#include "Clipboard/preferences/ShortcutNote.h"

#include "Clipboard/settings/GlobalShortcuts.h"
#include "shortcut/KeyNames.h"
#include "shortcut/MASShortcutBinder.h"
#include "shortcut/MASShortcutView.h"

using HotKeyState = MASShortcutBinder::HotKeyState;

ShortcutNote::ShortcutNote(MASShortcutView &recorder) : m_recorder(&recorder)
{
    setObjectName(QStringLiteral("hotKeyNote"));
    setWordWrap(false);
    recorder.setShortcutValueChange([this](const MASShortcutView &) { refresh(); });
    // After another layout the key bears another name.
    connect(&KeyNames::current(), &KeyNames::changed, this, [this] {
        if (m_recorder)
            refresh();
    });
    if (MASShortcutBinder *binder = MASShortcutBinder::sharedBinder())
        connect(binder, &MASShortcutBinder::hotKeyStateChanged, this, [this](const QString &key) {
            const MASShortcutView *shown = m_recorder.data();
            if (shown && key == shown->associatedUserDefaultsKey())
                refresh();
        });
}

void ShortcutNote::refresh()
{
    const MASShortcutBinder *binder = MASShortcutBinder::sharedBinder();
    const auto &key = m_recorder->associatedUserDefaultsKey();
    const auto &shortcut = m_recorder->shortcutValue();
    QString problem;
    switch (binder && key ? binder->hotKeyState(*key) : HotKeyState::None) {
    case HotKeyState::HeldElsewhere:
        problem = tr("Used by another program");
        break;
    case HotKeyState::DoublyBound:
        problem = tr("Used by the other shortcut");
        break;
    case HotKeyState::Unusable:
        problem = tr("Not possible as a shortcut");
        break;
    case HotKeyState::None:
    case HotKeyState::Works:
        break;
    }
    if (const QString keys = binder && key ? binder->keysChosenElsewhere(*key) : QString();
        !keys.isEmpty())
        problem = tr("%1 in the desktop’s settings").arg(keys);
    const QString words = shortcut ? GlobalShortcuts::wordName(*shortcut) : QString();
    setText(problem.isEmpty() ? words : problem);
    setEmphasised(!problem.isEmpty());
}
