#include "Clipboard/preferences/DesktopShortcut.h"

#include "shortcut/KeyNames.h"
#include "shortcut/MASShortcutBinder.h"
#include "shortcut/MASShortcutView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

DesktopShortcut::DesktopShortcut(const MASShortcutView &recorder)
    : m_recorder(&recorder), m_keys(new QLabel)
{
    m_keys->setObjectName(QStringLiteral("desktopKeys"));
    m_keys->setAccessibleName(recorder.accessibleName());
    auto *change = new QPushButton(tr("Change in Settings…"));
    change->setAutoDefault(false);
    change->setAccessibleDescription(recorder.accessibleName());
    connect(change, &QPushButton::clicked, this, &DesktopShortcut::changeWanted);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_keys);
    layout->addWidget(change);
    setFocusProxy(change);
    connect(&KeyNames::current(), &KeyNames::changed, this, &DesktopShortcut::refresh);
    if (const MASShortcutBinder *binder = MASShortcutBinder::sharedBinder())
        connect(binder, &MASShortcutBinder::hotKeyStateChanged, this, &DesktopShortcut::refresh);
    refresh();
}

void DesktopShortcut::refresh()
{
    const MASShortcutBinder *binder = MASShortcutBinder::sharedBinder();
    const MASShortcutView *recorder = m_recorder;
    if (!binder || !recorder)
        return;
    const std::optional<QString> key = recorder->associatedUserDefaultsKey();
    if (!key || !binder->isRegisteredAction(*key))
        return;
    const QString chosen = binder->keysChosenElsewhere(*key);
    const std::optional<MASShortcut> shortcut = binder->valueForUndefinedKey(*key);
    m_keys->setText(chosen.isEmpty() && shortcut ? shortcut->description() : chosen);
}
