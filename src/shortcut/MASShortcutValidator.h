#pragma once

#include "shortcut/MASShortcut.h"
#include "shortcut/MenuModel.h"

#include <QCoreApplication>
#include <QPointer>

#include <functional>
#include <utility>

class HotKeys;
class SymbolicHotKeys;

/// Says whether a combination that was just typed may become a global shortcut, and why not.
/// Recorders use the shared one unless given another; a test makes its own. Used from the main
/// thread.
class MASShortcutValidator
{
    Q_DECLARE_TR_FUNCTIONS(MASShortcutValidator)

public:
    /// Neither is owned, and a missing one is not asked.
    explicit MASShortcutValidator(SymbolicHotKeys *symbolicHotKeys = nullptr,
                                  HotKeys *hotKeys = nullptr);

    /// Tells the shared validator what the desktop has taken: once, at the start of the program.
    static void connectShared(SymbolicHotKeys *symbolicHotKeys, HotKeys *hotKeys);
    static MASShortcutValidator &sharedValidator();

    /// Where the application's main menu is asked for at each question.
    void setMainMenu(std::function<MenuModel()> mainMenu) { m_mainMenu = std::move(mainMenu); }

    /// Who knows whether a shortcut is bound under a key of the settings other than `key`.
    using BoundElsewhere = std::function<bool(const MASShortcut &shortcut, const QString &key)>;
    void setBoundElsewhere(BoundElsewhere boundElsewhere)
    {
        m_boundElsewhere = std::move(boundElsewhere);
    }

    /// Whether every combination with Option is valid. If not, which is so at first, only Space
    /// and Escape are, because Option types special characters on most layouts.
    bool allowAnyShortcutWithOptionModifier() const { return m_allowAnyShortcutWithOptionModifier; }
    void setAllowAnyShortcutWithOptionModifier(bool allows)
    {
        m_allowAnyShortcutWithOptionModifier = allows;
    }

    /// A question is about to come: the desktop's list is read anew, without waiting for it.
    void prepare() const;

    bool isShortcutValid(const MASShortcut &shortcut) const;

    /// Whether the keys close a window or quit in whatever window of ours they are pressed, by what
    /// is printed on them: no shortcut is ever made of these.
    static bool closesOrQuits(const MASShortcut &shortcut);

    /// Whether a stored shortcut may become a hot key: one that a recorder could have stored. The
    /// desktop's list is left out of it: whether the desktop really keeps the combination is told
    /// when it is registered.
    bool isShortcutRecordable(const MASShortcut &shortcut) const;

    /// Whether somebody has the shortcut that is to be stored under `key`: another key of ours, or
    /// whoever isShortcutAlreadyTakenBySystem() asks.
    bool isShortcutAlreadyTaken(const MASShortcut &shortcut, const QString &key,
                                QString *explanation = nullptr) const;

    /// Whether the desktop, another program or the main menu has the shortcut. `explanation`, when
    /// given, receives a sentence for the user if it is taken and is left alone otherwise.
    bool isShortcutAlreadyTakenBySystem(const MASShortcut &shortcut,
                                        QString *explanation = nullptr) const;

    /// The same question for one menu with its submenus.
    bool isShortcutAlreadyTakenInMenu(const MASShortcut &shortcut, const MenuModel &menu,
                                      QString *explanation = nullptr) const;

private:
    static QString takenBySystem();
    bool isSymbolicHotKey(const MASShortcut &shortcut) const;
    bool isHeldByAnotherProgram(const MASShortcut &shortcut) const;

    QPointer<SymbolicHotKeys> m_symbolicHotKeys;
    QPointer<HotKeys> m_hotKeys;
    std::function<MenuModel()> m_mainMenu;
    BoundElsewhere m_boundElsewhere;
    bool m_allowAnyShortcutWithOptionModifier = false;
};
