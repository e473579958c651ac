#pragma once

#include "shortcut/MenuModel.h"

#include <QMenu>
#include <QObject>
#include <QString>

#include <functional>

class QAction;

/// The status item's menu, built once and never rebuilt. Owned by AppDelegate. What each entry
/// does is given by the owner; an entry without an action is an information line and disabled.
class StatusMenu : public QObject
{
    Q_OBJECT

public:
    struct Actions
    {
        std::function<void()> checkForUpdates;
        std::function<void()> openPreferences;
        std::function<void()> launch;
        std::function<void()> clearAll;
        std::function<void()> help;
        std::function<void()> showFeedbackDialog;
        std::function<void()> quit;
        /// Null where nobody need allow it.
        std::function<void()> allowRecording = nullptr;
    };

    /// `versionLine` is the first entry's title.
    StatusMenu(const QString &versionLine, const Actions &actions);

    QMenu *menu() { return &m_menu; }

    /// Says at the top why nothing is recorded, and offers to ask for it; nothing when it is empty.
    void showNotRecorded(const QString &reason, bool canAsk);

    /// The entries that have a key, as the shortcut check walks them.
    MenuModel model() const;

private:
    QAction *addItem(const QString &title, const std::function<void()> &action,
                     const QString &keyEquivalent = {});

    QMenu m_menu;
    /// Both null where nobody need allow it.
    QAction *m_notRecorded = nullptr;
    QAction *m_allowRecording = nullptr;
};
