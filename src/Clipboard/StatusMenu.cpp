#include "Clipboard/StatusMenu.h"

#include "platform/ModifierFlags.h"

#include <QAction>
#include <QVariant>

namespace {

constexpr char kKeyEquivalent[] = "keyEquivalent";

} // namespace

StatusMenu::StatusMenu(const QString &versionLine, const Actions &actions)
{
    addItem(versionLine, nullptr);
    if (actions.allowRecording) {
        m_notRecorded = addItem({}, nullptr);
        m_allowRecording = addItem(tr("Allow Recording..."), actions.allowRecording);
        showNotRecorded({}, false);
    }
    addItem(tr("Check For Updates..."), actions.checkForUpdates);
    addItem(tr("Preferences..."), actions.openPreferences);
    m_menu.addSeparator();
    addItem(tr("Launch..."), actions.launch);
    m_menu.addSeparator();
    addItem(tr("Clear All"), actions.clearAll);
    m_menu.addSeparator();
    addItem(tr("Help..."), actions.help);
    addItem(tr("Send Feedback..."), actions.showFeedbackDialog);
    m_menu.addSeparator();
    // Deliberately these nine characters and not the letter q with the Command modifier.
    addItem(tr("Quit"), actions.quit, QStringLiteral("Command-q"));
}

void StatusMenu::showNotRecorded(const QString &reason, bool canAsk)
{
    if (!m_notRecorded)
        return;
    m_notRecorded->setText(reason);
    m_notRecorded->setVisible(!reason.isEmpty());
    m_allowRecording->setVisible(canAsk);
}

QAction *StatusMenu::addItem(const QString &title, const std::function<void()> &action,
                             const QString &keyEquivalent)
{
    QAction *item = m_menu.addAction(title);
    item->setProperty(kKeyEquivalent, keyEquivalent);
    // Desktops move entries called Preferences or Quit elsewhere unless they are told not to.
    item->setMenuRole(QAction::NoRole);
    item->setEnabled(action != nullptr);
    if (action)
        connect(item, &QAction::triggered, this, [action] { action(); });
    return item;
}

MenuModel StatusMenu::model() const
{
    MenuModel items;
    for (const QAction *action : m_menu.actions()) {
        // An item without a key clashes with nothing; a shortcut whose key is written with several
        // characters, as a German capital ß is, has no equivalent either and would match it.
        const QString keyEquivalent = action->property(kKeyEquivalent).toString();
        if (keyEquivalent.isEmpty())
            continue;
        MenuItem item;
        item.title = action->text();
        item.keyEquivalent = keyEquivalent;
        // The modifier that every menu key has unless it is told otherwise.
        item.modifierMask = ModifierFlags::kCommand;
        items.push_back(item);
    }
    return items;
}
